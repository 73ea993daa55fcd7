#include "web/FrmUp.h"

#include "controls/ui/palette.h"
#include "controls/ui/work_strip.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "web/later.h"
#include "web/update.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr int Largura = 520;
constexpr int Altura = 110;
constexpr int AlturaComNota = 180;

} // namespace

FrmUp::FrmUp(const UpdateDoors &doors, const QUrl &instalador, const QUrl &pagina)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_instalador(instalador), m_pagina(pagina),
      m_strip(new WorkStrip(this)) {
  setObjectName(QStringLiteral("FrmUp"));
  setWindowTitle(u"Atualizando o " + NomeDoPrograma);
  const QString desktop = doors.areaDeTrabalho.isEmpty()
                              ? QStandardPaths::writableLocation(QStandardPaths::DesktopLocation)
                              : doors.areaDeTrabalho;
  m_arquivo = desktop + u'/' + NomeDoInstalador();
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  const auto label = [this, column](const char *name, const QString &text) {
    auto *made = new QLabel(text, this);
    made->setObjectName(QLatin1String(name));
    made->setTextFormat(Qt::PlainText);
    made->setWordWrap(true);
    column->addWidget(made);
  };
  label("Label1", tr("The installer comes to your desktop as %1.").arg(NomeDoInstalador()));
  const bool administrador = doors.administrador ? doors.administrador() : ::geteuid() == 0;
  if (!administrador)
    label("Label2",
          tr("You are not the administrator of this computer. It may ask for the administrator's password "
             "when the installation starts, or not let you install at all; then ask whoever looks after it."));
  column->addStretch(1);
  column->addWidget(m_strip);
  connect(m_strip, &WorkStrip::Stopped, this, &QWidget::close);
  setMinimumSize(Largura, administrador ? Altura : AlturaComNota);
  resize(minimumSize());
}

void FrmUp::Open() {
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  if (!m_comecou) {
    m_comecou = true;
    Baixa();
  }
}

void FrmUp::Baixa() {
  const QString texto = tr("Downloading…");
  m_strip->Begin(texto);
  if (!m_instalador.isValid()) { // the answer named none
    m_dl1 = ContaDepois([this] { Acabou({}); });
    return;
  }
  QDir().mkpath(QFileInfo(m_arquivo).path());
  m_arquivo = MapStoredPath(m_arquivo).text(); // where one of that name lies in another case, it is the one replaced
  PedidoDeDownload pedido;
  pedido.endereco = m_instalador;
  pedido.arquivo = m_arquivo;
  pedido.limiteBytes = LimiteDoInstalador;
  m_dl1 = m_doors.paginas.Cliente().Download(
      pedido, [this, texto](qint64 veio, qint64 total) { m_strip->Advance(texto, veio, total); },
      [this](const FimDoDownload &fim) { Acabou(fim); });
}

void FrmUp::Acabou(const FimDoDownload &fim) {
  m_dl1.reset();
  m_strip->End();
  if (!fim.inteiro || !fim.porHttps) {
    if (fim.inteiro)
      QFile::remove(m_arquivo); // nobody knows who wrote it
    Falhou(tr("Go to the maker's site, download the newest version there and install it by hand."));
    return;
  }
  if (!FileExists(m_arquivo)) {
    Falhou(u"To update, visit our website and download and install the latest copy of " + NomeDoPrograma);
    return;
  }
  UserPrompt &prompt = m_doors.prompt;
  prompt.Message(MessageKind::Information, NomeDoPrograma,
                 u"O " + NomeDoPrograma + u" will be closed to allow the update to proceed.");
  prompt.Message(MessageKind::Information, NomeDoPrograma,
                 QStringLiteral("If the installation does not start automatically, manually install using the "
                                "installation file that was downloaded to your Desktop."));
  // The desktop's own handler of such files gets it. It takes a file and no parameters, so the installer's " /silent"
  // cannot be passed on.
  m_doors.opener.Open(QUrl::fromLocalFile(m_arquivo));
  close();
  if (m_doors.encerra)
    m_doors.encerra();
}

void FrmUp::Falhou(const QString &conselho) {
  m_doors.prompt.Message(MessageKind::Warning, NomeDoPrograma,
                         QStringLiteral("Could not download the update.") + u'\n' + conselho);
  if (m_pagina.isValid())
    m_doors.opener.Open(m_pagina);
  close();
}

void FrmUp::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  if (!event->spontaneous())
    m_dl1.reset();
  QWidget::hideEvent(event);
}

void FrmUp::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

} // namespace tolmira
