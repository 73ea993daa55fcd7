#pragma once

#include "web/web_client.h"

#include <QList>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

namespace tolmira::testing {

// Answers in place of the web, from the message loop as the real one does, and keeps what was asked for.
class ScriptedWeb : public WebClient {
public:
  struct Pedido {
    int method = 0; // 0 for a download
    QUrl url;
    PedidoDeDownload download;
  };

  // The page that a method gets; empty for a failure.
  std::function<QString(int method, const QUrl &url)> page = [](int, const QUrl &) { return QString(); };
  // Writes the file and says how it went.
  std::function<FimDoDownload(const PedidoDeDownload &pedido)> file = [](const PedidoDeDownload &) {
    return FimDoDownload();
  };
  bool answers = true; // else everything stays under way
  QList<Pedido> asked;
  int dropped = 0; // tasks that were ended before their answer

  std::unique_ptr<WebTask> FetchBy(int method, const QUrl &url, std::function<void(const QString &)> pronto) override {
    asked.append({method, url, {}});
    return std::make_unique<Task>(*this, [this, method, url, pronto] {
      const QString text = page(method, url);
      return [text, pronto] { pronto(text); };
    });
  }

  std::unique_ptr<WebTask> Download(const PedidoDeDownload &pedido, std::function<void(qint64, qint64)> andou,
                                    std::function<void(const FimDoDownload &)> pronto) override {
    asked.append({0, pedido.endereco, pedido});
    progress = andou;
    return std::make_unique<Task>(*this, [this, pedido, pronto] {
      const FimDoDownload end = file(pedido);
      return [end, pronto] { pronto(end); };
    });
  }

  std::function<void(qint64 got, qint64 total)> progress; // of the last download

private:
  class Task : public WebTask {
  public:
    Task(ScriptedWeb &web, std::function<std::function<void()>()> answer) : m_web(web) {
      if (!web.answers)
        return;
      m_timer.setSingleShot(true);
      QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer] {
        m_answered = true;
        const std::function<void()> tell = answer();
        tell(); // which may drop this task
      });
      m_timer.start(0);
    }
    ~Task() override {
      if (!m_answered)
        ++m_web.dropped;
    }

  private:
    ScriptedWeb &m_web;
    QTimer m_timer;
    bool m_answered = false;
  };
};

} // namespace tolmira::testing
