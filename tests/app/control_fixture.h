#pragma once

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

#include "app/control_server.h"
#include "support/recording_page.h"
#include "support/recording_presentation.h"

namespace tolmira::testing {

// One client of a control server, in the same process.
class ControlClient {
public:
  explicit ControlClient(const QString &path) { m_socket.connectToServer(path); }

  bool Connected() const { return m_socket.state() == QLocalSocket::ConnectedState; }
  void Raw(const QByteArray &bytes) { m_socket.write(bytes); }
  void Send(const QJsonObject &request) { Raw(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n'); }
  bool HasLine() const { return m_socket.canReadLine(); }
  QJsonObject Line() {
    // A loop that sleeps, as the program's own does: changes of the state are looked at before it goes to sleep.
    QEventLoop loop;
    QTimer::singleShot(20000, &loop, [&loop] { loop.exit(1); });
    QObject::connect(&m_socket, &QLocalSocket::readyRead, &loop, [this, &loop] {
      if (m_socket.canReadLine())
        loop.exit(0);
    });
    if (!m_socket.canReadLine() && loop.exec() != 0)
      return {{QStringLiteral("error"), QStringLiteral("<no line came>")}};
    return QJsonDocument::fromJson(m_socket.readLine()).object();
  }
  QJsonObject Ask(const QJsonObject &request) {
    Send(request);
    return Line();
  }
  QLocalSocket &Socket() { return m_socket; }

private:
  QLocalSocket m_socket;
};

// A client in a thread of its own, as another program would be: it goes on while this one is inside a box.
class DistantClient {
public:
  explicit DistantClient(const QString &path) {
    m_socket.connectToServer(path);
    m_socket.waitForConnected(10000);
  }
  QJsonObject Ask(const char *request) {
    m_socket.write(QByteArray(request) + '\n');
    m_socket.waitForBytesWritten(10000);
    while (!m_socket.canReadLine())
      if (!m_socket.waitForReadyRead(20000))
        return {{QStringLiteral("error"), QStringLiteral("<no answer came>")}};
    return QJsonDocument::fromJson(m_socket.readLine()).object();
  }
  // The error of the answer; empty when it is good.
  QString Error(const char *request) { return Ask(request).value(QStringLiteral("error")).toString(); }

private:
  QLocalSocket m_socket;
};

// Runs `talk` with a distant client while this thread's message loop turns; false when it does not come to its end.
inline bool FromElsewhere(const QString &path, const std::function<void(DistantClient &)> &talk) {
  const std::unique_ptr<QThread> thread(QThread::create([&] {
    DistantClient client(path);
    talk(client);
  }));
  thread->start();
  const bool done = QTest::qWaitFor([&] { return thread->isFinished(); }, 60000);
  thread->wait();
  return done;
}

// A server before doubles of the whole program.
struct ControlFixture {
  ControlFixture() : page(nullptr) {
    path = temp.filePath(QStringLiteral("control"));
    server = std::make_unique<ControlServer>(Doors(), events);
    error = server->Listen(path);
    client = std::make_unique<ControlClient>(path);
  }

  ControlDoors Doors() {
    return ControlDoors{
        .estado = estado,
        .apresentacao = presentation,
        .agenda = [this] { return agenda; },
        .SelectTab = [this](int n) { calls << QStringLiteral("SelectTab %1").arg(n); },
        .SetScreenState = [this](int index) { calls << QStringLiteral("SetScreenState %1").arg(index); },
        .PressTile = [this](int slot) { calls << QStringLiteral("PressTile %1").arg(slot); },
        .SendToDisplay = [this](const QString &comando) { calls << QStringLiteral("SendToDisplay ") + comando; },
        .displayVisivel = [this] { return displayVisivel; },
        .pagina = [this](const QString &name) -> PageObject * {
          return name == u"display" ? &page : nullptr;
        },
        .fechaConsole = [this] { calls << QStringLiteral("fecha"); },
        .cedendo = [this] { return cedendo; },
    };
  }

  QTemporaryDir temp;
  RecordingPresentation presentation;
  QStringList &calls = presentation.calls; // what the doors were asked for, in order
  EstadoConsole estado;
  std::vector<EntradaAgenda> agenda;
  bool displayVisivel = false;
  bool cedendo = false;
  RecordingPage page;
  ControlEvents events;
  QString path;
  QString error;
  std::unique_ptr<ControlServer> server;
  std::unique_ptr<ControlClient> client;
};

inline QJsonObject Request(const char *text) { return QJsonDocument::fromJson(QByteArray(text)).object(); }

} // namespace tolmira::testing
