#pragma once

#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocalSocket>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

// A running copy of the program on a desktop of two screens without hardware, spoken to as a button box would.
class RemoteProgram {
public:
  explicit RemoteProgram(const QString &appFolder);
  ~RemoteProgram();

  // Another desktop than the one without hardware: the variables that name it.
  void UseDesktop(const QMap<QString, QString> &environment) { m_desktop = environment; }

  // Starts it and waits until the projection is ready. `screens` is 1 or 2.
  bool Start(int screens = 2);
  bool StartOnly(int screens = 2); // up to the open control socket
  void Kill();                     // as a power cut
  bool Quit();                     // as closing the console; waits for the end

  QJsonObject Do(QJsonObject request); // waits for the answer
  QJsonObject Do(const QString &what, QJsonObject with = {});
  QJsonObject State();
  bool WaitFor(const QString &field, const QJsonValue &value, int ms = 15000);
  QString Eval(const QString &page, const QString &script);
  bool WaitForText(const QString &page, const QString &text, int ms = 15000); // the text on the page, blanks folded
  QImage Grab(const QString &window);
  // As `windows` tells it; empty when there is no such window.
  QJsonObject Window(const QString &name);
  // Windows other than the console and the projection that are open.
  QStringList OpenBoxes();

  qint64 Pid() const { return m_process.processId(); }
  QList<qint64> Renderers() const;
  QByteArray Output() const { return m_output; }
  QProcess &Process() { return m_process; }

private:
  QProcess m_process;
  QLocalSocket m_socket;
  QTemporaryDir m_scratch;
  QString m_app;
  QMap<QString, QString> m_desktop;
  QByteArray m_pending;
  QByteArray m_output;
  int m_nextId = 1;
};
