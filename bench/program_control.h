#pragma once

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

// The control interface of a program that is measured, and the lines "name value unit" of what came out.
namespace tolmira::bench {

constexpr int Patience = 30000; // ms

class Control {
public:
  bool Connect(const QString &path, int ms) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms) {
      m_socket.connectToServer(path);
      if (m_socket.waitForConnected(100))
        return true;
      QThread::msleep(2);
    }
    return false;
  }
  void Send(QJsonObject request) {
    m_socket.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
    m_socket.flush();
  }
  std::optional<QJsonObject> Next() {
    while (!m_socket.canReadLine())
      if (!m_socket.waitForReadyRead(Patience))
        return std::nullopt;
    return QJsonDocument::fromJson(m_socket.readLine()).object();
  }
  QJsonObject Do(QJsonObject request) {
    const int id = ++m_id;
    request[QStringLiteral("id")] = id;
    Send(request);
    while (const auto answer = Next())
      if (answer->value(QStringLiteral("id")).toInt() == id)
        return *answer;
    return {};
  }
  QJsonObject Do(const char *what) { return Do(QJsonObject{{QStringLiteral("do"), QLatin1String(what)}}); }

private:
  QLocalSocket m_socket;
  int m_id = 0;
};

inline void Print(const char *name, double value, const char *unit) {
  std::printf("%-34s %10.2f %s\n", name, value, unit);
}

inline void PrintSpread(const char *name, std::vector<double> values, const char *unit) {
  std::sort(values.begin(), values.end());
  if (values.empty())
    return;
  Print((std::string(name) + " median").c_str(), values[values.size() / 2], unit);
  Print((std::string(name) + " p95").c_str(), values[values.size() * 95 / 100], unit);
}

inline QJsonObject Show(const QString &item, int kind = 2) {
  return {{QStringLiteral("do"), QStringLiteral("show")},
          {QStringLiteral("kind"), kind},
          {QStringLiteral("label"), item},
          {QStringLiteral("target"), item}};
}

inline QJsonObject Key(const char *key) {
  return {{QStringLiteral("do"), QStringLiteral("key")}, {QStringLiteral("key"), QLatin1String(key)}};
}

} // namespace tolmira::bench
