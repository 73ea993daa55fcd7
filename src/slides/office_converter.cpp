#include "slides/office_converter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace tolmira {

namespace {

constexpr Limites LimitesDoEscritorio{quint64(8) << 30, 10 * 60, quint64(1) << 30, 1024};

// Settings of the profile, in LibreOffice's own form.
const char Ajustes[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="DisableMacrosExecution" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="MacroSecurityLevel" oor:op="fuse"><value>3</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="BlockUntrustedRefererLinks" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="DisableActiveContent" oor:op="fuse"><value>true</value></prop></item>
</oor:items>
)";

bool EscreveAjustes(const QString &path) {
  constexpr qint64 Tamanho = sizeof(Ajustes) - 1;
  QFile arquivo(path);
  return arquivo.open(QIODevice::WriteOnly) && arquivo.write(Ajustes, Tamanho) == Tamanho && arquivo.flush();
}

} // namespace

OfficeConverter::OfficeConverter(QObject *parent) : QObject(parent) {
  connect(&m_processo, &LimitedProcess::Acabou, this, &OfficeConverter::Acabou);
}

QString OfficeConverter::Programa() {
  const QString programa = QStandardPaths::findExecutable(QStringLiteral("soffice"));
  return programa.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("libreoffice")) : programa;
}

void OfficeConverter::Comeca(const QString &programa, const QString &arquivo, const QString &pasta) {
  const QDir onde(pasta);
  const QString saida = onde.filePath(QStringLiteral("pdf"));
  m_pdf = saida + u'/' + QFileInfo(arquivo).completeBaseName() + QStringLiteral(".pdf");
  onde.mkpath(QStringLiteral("profile/user"));
  onde.mkpath(QStringLiteral("pdf"));
  if (!EscreveAjustes(onde.filePath(QStringLiteral("profile/user/registrymodifications.xcu")))) {
    QMetaObject::invokeMethod(
        this, [this] { emit Falhou(Problema::Disco); }, Qt::QueuedConnection);
    return;
  }
  LimitedProcess::Comando comando;
  comando.programa = programa;
  comando.argumentos =
      QStringList{QStringLiteral("-env:UserInstallation=") +
                      QString::fromLatin1(QUrl::fromLocalFile(onde.filePath(QStringLiteral("profile"))).toEncoded()),
                  QStringLiteral("--headless"),
                  QStringLiteral("--norestore"),
                  QStringLiteral("--nolockcheck"),
                  QStringLiteral("--convert-to"),
                  QStringLiteral("pdf"),
                  QStringLiteral("--outdir"),
                  saida,
                  arquivo};
  comando.pasta = pasta;
  comando.limites = LimitesDoEscritorio;
  comando.prazoMs = prazoMs;
  m_processo.Comeca(comando);
}

void OfficeConverter::Para() {
  m_processo.Para();
}

// It ends with code 0 even when it could not read the file, so what counts is whether the PDF is there.
void OfficeConverter::Acabou(LimitedProcess::Fim fim, int) {
  using Fim = LimitedProcess::Fim;
  if (fim == Fim::Saiu && QFileInfo(m_pdf).isFile())
    emit Terminou(m_pdf);
  else if (fim == Fim::NaoComecou)
    emit Falhou(Problema::SemPrograma);
  else
    emit Falhou(fim == Fim::Demorou ? Problema::Demorou : Problema::Recusou);
}

} // namespace tolmira
