#include "slides/FrmImportar.h"

#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr int Largura = 460;
constexpr int LinhasDoEstado = 4; // the longest sentence, so that the window keeps its size

enum Resposta { AbreAsQueEsperam = 0, OutroDocumento = 1 };

const QString Secao = QStringLiteral("Config");
const QString ChaveDaPasta = QStringLiteral("pastaImportar"); // the folder of the last document

} // namespace

FrmImportar::FrmImportar(const ImportDoors &doors, QWidget *parent)
    : QDialog(parent), m_doors(doors), m_import(doors.store.App()), m_arquivo(new ElidedLabel(this)),
      m_estado(new QLabel(this)), m_barra(new QProgressBar(this)) {
  setObjectName(QStringLiteral("FrmImportar"));
  setWindowTitle(tr("Import document"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_arquivo->setObjectName(QStringLiteral("LbArquivo"));
  m_arquivo->setProperty("look", QStringLiteral("title"));
  column->addWidget(m_arquivo);
  m_barra->setObjectName(QStringLiteral("Barra"));
  m_barra->setAccessibleName(tr("Progress"));
  m_barra->setTextVisible(false);
  column->addWidget(m_barra);
  m_estado->setObjectName(QStringLiteral("LbEstado"));
  m_estado->setTextFormat(Qt::PlainText);
  m_estado->setWordWrap(true);
  m_estado->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  m_estado->setMinimumHeight(LinhasDoEstado * fontMetrics().lineSpacing());
  column->addWidget(m_estado, 1);
  MakeSenha();
  column->addWidget(m_painelSenha);
  auto *row = new QHBoxLayout;
  row->addStretch(1);
  m_parar = Botao("CmdParar", tr("&Stop"), QString());
  m_parar->setAutoDefault(false); // an Enter meant for the file dialogue must not stop anything
  row->addWidget(m_parar);
  column->addLayout(row);
  setMinimumWidth(Largura);
  connect(m_parar, &QPushButton::clicked, this, &FrmImportar::reject);

  connect(&m_import, &DocumentImport::Convertendo, this,
          [this] { Diz(tr("LibreOffice is turning the presentation into pages. This can take a minute.")); });
  connect(&m_import, &DocumentImport::Andou, this, &FrmImportar::AoAndar);
  connect(&m_import, &DocumentImport::PediuSenha, this, &FrmImportar::PedeSenha);
  connect(&m_import, &DocumentImport::Falhou, this, &FrmImportar::Acabou);
  connect(&m_import, &DocumentImport::Parou, this, &QWidget::hide);
  connect(&m_import, &DocumentImport::Terminou, this, [this](const QStringList &imagens, const QString &nome) {
    m_imagens = imagens;
    m_nome = nome;
    Terminou();
  });
}

QPushButton *FrmImportar::Botao(const char *name, const QString &text, const QString &tip) {
  auto *made = new QPushButton(text, this);
  made->setObjectName(QLatin1String(name));
  made->setToolTip(tip);
  return made;
}

void FrmImportar::MakeSenha() {
  m_painelSenha = new QWidget(this);
  auto *row = new QHBoxLayout(m_painelSenha);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Gap);
  m_senha = new QLineEdit(m_painelSenha);
  m_senha->setObjectName(QStringLiteral("TxtSenha"));
  m_senha->setAccessibleName(tr("Password"));
  m_senha->setPlaceholderText(tr("Password"));
  m_senha->setToolTip(tr("The document's password. It is not kept"));
  m_senha->setEchoMode(QLineEdit::Password);
  row->addWidget(m_senha, 1);
  m_abrir = Botao("CmdAbrir", tr("&Open"), tr("Goes on (Enter)"));
  m_abrir->setProperty("look", QStringLiteral("main"));
  row->addWidget(m_abrir);
  connect(m_abrir, &QPushButton::clicked, this, [this] { m_imagens.isEmpty() ? DaSenha() : Entrega(); });
}

void FrmImportar::Pergunta(const AbreImagens &pronto) {
  QString path;
  if (!m_imagens.isEmpty()) {
    const int resposta =
        m_doors.prompt.Ask(tr("Import document"), tr("The pages of '%1' wait to be opened.").arg(m_nome),
                           {tr("Open"), tr("Another document")});
    if (resposta == AbreAsQueEsperam) {
      m_pronto = pronto;
      return Entrega();
    }
    if (resposta != OutroDocumento)
      return;
  }
  if (!m_import.Trabalha()) {
    const QString antes = m_doors.store.ReadConfig(Secao, ChaveDaPasta, QString());
    const QString pasta =
        QFileInfo(antes).isDir() ? antes : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    path = m_doors.prompt.OpenFile(tr("Import document"), pasta, DocumentImport::Filtro());
    if (path.isEmpty())
      return;
    m_doors.store.WriteConfig(Secao, ChaveDaPasta, QFileInfo(path).path());
  }
  Importa(path, pronto);
}

void FrmImportar::Importa(const QString &path, const AbreImagens &pronto) {
  const bool livre = !m_import.Trabalha();
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  if (livre) {
    m_pronto = pronto;
    m_imagens.clear();
    m_arquivo->setText(QFileInfo(path).fileName());
    m_arquivo->setToolTip(path);
    m_parar->setText(tr("&Stop"));
    m_parar->setToolTip(tr("Stops and takes away what was made so far (Esc)"));
    m_parar->setEnabled(true);
    m_parar->setDefault(false);
    MostraSenha(false);
    m_barra->show();
    Diz(tr("Opening the document…"));
  }
  show();
  raise();
  activateWindow();
  if (livre)
    m_import.Comeca(path, m_doors.telaPx(), m_doors.programas());
}

// Without a number of pages the bar only says that something is going on.
void FrmImportar::Diz(const QString &texto) {
  m_barra->setRange(0, 0);
  m_estado->setText(texto);
}

void FrmImportar::AoAndar(int prontas, int total) {
  m_barra->setRange(0, total);
  m_barra->setValue(prontas);
  m_estado->setText(tr("Page %1 of %2").arg(qMin(prontas + 1, total)).arg(total));
}

void FrmImportar::PedeSenha(bool errada) {
  m_barra->setRange(0, 1);
  m_barra->setValue(0);
  m_estado->setText(errada ? tr("This password does not open the document. Try again.")
                           : tr("This document is protected. Enter its password to go on."));
  MostraSenha(true);
}

void FrmImportar::DaSenha() {
  const QString senha = m_senha->text();
  MostraSenha(false);
  Diz(tr("Opening the document…"));
  m_import.DaSenha(senha);
}

// The operator may be in the middle of the service by now. Only whoever looks at this window gets the editor unasked.
void FrmImportar::Terminou() {
  if (m_doors.editorAberto())
    EsperaEditor();
  else if (isActiveWindow())
    Entrega();
  else
    Espera(tr("The pages are ready. Open them here. They stay in the picture gallery in any case."));
}

void FrmImportar::Entrega() {
  if (!m_pronto(m_imagens, m_nome)) {
    EsperaEditor();
    return show();
  }
  m_imagens.clear();
  hide();
}

void FrmImportar::EsperaEditor() {
  Espera(
      tr("The pages are ready, but the editor stands open on other slides. Close it, then open them here. They stay in "
         "the picture gallery in any case."));
}

void FrmImportar::Espera(const QString &frase) {
  Acabou(frase);
  m_painelSenha->show();
  m_senha->hide();
  m_parar->setDefault(false);
  m_abrir->setDefault(true);
  m_abrir->setFocus();
}

void FrmImportar::MostraSenha(bool mostra) {
  m_senha->clear();
  m_senha->show();
  m_painelSenha->setVisible(mostra);
  m_abrir->setDefault(mostra);
  if (mostra)
    m_senha->setFocus();
}

void FrmImportar::Acabou(const QString &frase) {
  m_barra->hide();
  m_estado->setText(frase);
  MostraSenha(false);
  m_parar->setText(tr("&Close"));
  m_parar->setToolTip(tr("Closes this window (Esc)"));
  m_parar->setEnabled(true);
  m_parar->setDefault(true);
  m_parar->setFocus();
}

void FrmImportar::reject() {
  if (!m_import.Trabalha())
    return hide();
  MostraSenha(false);
  m_parar->setEnabled(false);
  Diz(tr("Stopping…"));
  m_import.Para();
}

void FrmImportar::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QDialog::hideEvent(event);
}

} // namespace tolmira
