#include "bible/ui/bible_doors.h"

#include <QCoreApplication>

namespace tolmira {

namespace {

const QString Secao = QStringLiteral("Config");
const QString Chave = QStringLiteral("ctrlenter");
const QString Ligado = QStringLiteral("on");
const QString Desligado = QStringLiteral("off");

} // namespace

bool CtrlEnter::IsOn() const { return m_store.ReadConfig(Secao, Chave, Desligado) == Ligado; }

void CtrlEnter::Toggle() { m_store.WriteConfig(Secao, Chave, IsOn() ? Desligado : Ligado); }

QString CtrlEnter::Hint() const {
  return IsOn() ? QCoreApplication::translate("CtrlEnter", "Enter shows, Ctrl+Enter adds to the agenda")
                : QCoreApplication::translate("CtrlEnter", "Enter adds to the agenda, Ctrl+Enter shows");
}

} // namespace tolmira
