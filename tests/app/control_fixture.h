#pragma once

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include "app/control_server.h"
#include "console/presentation.h"
#include "support/recording_page.h"

namespace tolmira::testing {

// Keeps the calls as lines.
class RecordingPresentation : public Presentation {
public:
  explicit RecordingPresentation(QStringList &calls) : m_calls(calls) {}
  std::function<void()> onShow;

  void ShowEntry(int kind, int index, const QString &caption, const QString &name) override {
    m_calls << QStringLiteral("ShowEntry %1 %2 %3 %4").arg(kind).arg(index).arg(caption, name);
    if (onShow)
      onShow();
  }
  void PorNaLista(const QString &label, int kind, const QString &target, QString &message) override {
    m_calls << QStringLiteral("PorNaLista %1 %2 %3").arg(label).arg(kind).arg(target);
    message = QStringLiteral("Added");
  }
  void exibirAgora(const QString &) override {}
  void exibirSelecinado() override {}
  void editarSelecionado() override {}
  void removerSelecionadodaLista() override {}
  void RemoveFromAgendas(int, const QString &) override {}
  void RenameInAgendas(const QString &, const QString &, int) override {}
  void ProcessaEditar(const QString &, const QString &) override {}
  void ProcessaEditarSlide(const QString &, const QString &) override {}

private:
  QStringList &m_calls;
};

// One client of a control server, in the same process.
class ControlClient {
public:
  explicit ControlClient(const QString &path) { m_socket.connectToServer(path); }

  bool Connected() const { return m_socket.state() == QLocalSocket::ConnectedState; }
  void Raw(const QByteArray &bytes) { m_socket.write(bytes); }
  void Send(const QJsonObject &request) { Raw(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n'); }
  bool HasLine() const { return m_socket.canReadLine(); }
  QJsonObject Line() {
    if (!QTest::qWaitFor([this] { return m_socket.canReadLine(); }, 20000))
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

// A server before doubles of the whole program.
struct ControlFixture {
  ControlFixture() : page(nullptr), presentation(calls) {
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
  QStringList calls;
  EstadoConsole estado;
  std::vector<EntradaAgenda> agenda;
  bool displayVisivel = false;
  bool cedendo = false;
  RecordingPage page;
  RecordingPresentation presentation;
  ControlEvents events;
  QString path;
  QString error;
  std::unique_ptr<ControlServer> server;
  std::unique_ptr<ControlClient> client;
};

inline QJsonObject Request(const char *text) { return QJsonDocument::fromJson(QByteArray(text)).object(); }

} // namespace tolmira::testing
