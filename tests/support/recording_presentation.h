#pragma once

#include <QStringList>
#include <functional>
#include <utility>

#include "console/presentation.h"

namespace tolmira::testing {

// What dialogs asked of the console, in order.
class RecordingPresentation : public Presentation {
public:
  void ShowEntry(int kind, int index, const QString &caption, const QString &name) override {
    calls.append(QStringLiteral("ShowEntry %1 %2 %3 %4").arg(kind).arg(index).arg(caption, name));
    if (onShow)
      onShow();
  }
  void PorNaLista(const QString &label, int kind, const QString &target, QString &message) override {
    calls.append(QStringLiteral("PorNaLista %1 %2 %3").arg(kind).arg(label, target));
    message = QStringLiteral("Added ") + label;
  }
  void exibirAgora(const QString &name) override { calls.append(QStringLiteral("exibirAgora ") + name); }
  void exibirSelecinado() override { calls.append(QStringLiteral("exibirSelecinado")); }
  void exibirPassagem(const QString &reference) override {
    calls.append(QStringLiteral("exibirPassagem ") + reference);
  }
  void exibirVideoDaWeb(const QString &titulo, const QString &link) override {
    calls.append(QStringLiteral("exibirVideoDaWeb %1 %2").arg(titulo, link));
  }
  void cancelaWMP() override { calls.append(QStringLiteral("cancelaWMP")); }
  void editarSelecionado() override { calls.append(QStringLiteral("editarSelecionado")); }
  void removerSelecionadodaLista() override { calls.append(QStringLiteral("removerSelecionadodaLista")); }
  void RemoveFromAgendas(int kind, const QString &name) override {
    calls.append(QStringLiteral("RemoveFromAgendas %1 %2").arg(kind).arg(name));
  }
  void RenameInAgendas(const QString &oldName, const QString &newName, int kind) override {
    calls.append(QStringLiteral("RenameInAgendas %1 %2 %3").arg(kind).arg(oldName, newName));
  }
  void ProcessaEditar(const QString &oldName, const QString &newName) override {
    calls.append(QStringLiteral("ProcessaEditar %1 %2").arg(oldName, newName));
  }
  void ProcessaEditarSlide(const QString &oldName, const QString &newName) override {
    calls.append(QStringLiteral("ProcessaEditarSlide %1 %2").arg(oldName, newName));
  }

  QStringList TakeCalls() { return std::exchange(calls, {}); }

  QStringList calls;
  std::function<void()> onShow; // inside ShowEntry
};

} // namespace tolmira::testing
