#include "web/FrmComunicado.h"

#include "controls/ui/palette.h"
#include "controls/ui/work_strip.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize Tamanho{520, 320};
constexpr qsizetype MaiorVersao = 40; // letters that are shown

} // namespace

FrmComunicado::FrmComunicado(const UpdateDoors &doors, std::function<void(const NovaVersao &)> atualiza)
    : QWidget(doors.dono, Qt::Dialog), m_posicoes(doors.posicoes), m_atualiza(std::move(atualiza)),
      m_label1(new QLabel(this)), m_text1(new QPlainTextEdit(this)), m_strip(new WorkStrip(this)),
      m_agora(new QPushButton(tr("&Update now"), this)), m_depois(new QPushButton(tr("&Later"), this)) {
  setObjectName(QStringLiteral("FrmComunicado"));
  setWindowTitle(tr("Updates of %1").arg(NomeDoPrograma));
  m_label1->setObjectName(QStringLiteral("Label1"));
  m_label1->setProperty("look", QStringLiteral("title"));
  m_label1->setTextFormat(Qt::PlainText);
  m_label1->setWordWrap(true);
  // What the server says is text and nothing else.
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setReadOnly(true);
  m_text1->setTabChangesFocus(true);
  m_text1->setAccessibleName(tr("What is said of the new version"));
  m_text1->setToolTip(tr("From the maker's server"));
  m_agora->setObjectName(QStringLiteral("Command1"));
  m_agora->setProperty("look", QStringLiteral("main"));
  m_agora->setToolTip(tr("Downloads the installer to the desktop"));
  m_depois->setObjectName(QStringLiteral("Command2"));
  m_depois->setToolTip(tr("Changes nothing (Esc)"));
  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(medidas::Gap);
  buttons->addStretch(1);
  for (QPushButton *button : {m_depois, m_agora}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  column->addWidget(m_label1);
  column->addWidget(m_text1, 1);
  column->addWidget(m_strip);
  column->addLayout(buttons);
  connect(m_strip, &WorkStrip::Stopped, this, &QWidget::close);
  connect(m_depois, &QPushButton::clicked, this, &QWidget::close);
  connect(m_agora, &QPushButton::clicked, this, [this] {
    close();
    m_atualiza(m_nova);
  });
  resize(Tamanho);
}

void FrmComunicado::Espera() {
  m_label1->setText(tr("Is there a newer version?"));
  m_text1->clear();
  m_agora->setEnabled(false);
  m_strip->Begin(tr("Asking the maker's server…"));
  if (!isVisible())
    m_posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_depois->setFocus();
}

void FrmComunicado::Mostra(const NovaVersao &nova) {
  m_nova = nova;
  m_label1->setText(tr("Version %1 of %2 is there. This is version %3.")
                        .arg(nova.versao.left(MaiorVersao), NomeDoPrograma, QStringLiteral(TOLMIRA_VERSION)));
  m_text1->setPlainText(nova.paragrafos.join(QStringLiteral("\n\n")));
  m_strip->End();
  m_agora->setEnabled(true);
}

void FrmComunicado::hideEvent(QHideEvent *event) {
  m_posicoes.SaveFormPosition(*this, false);
  if (!event->spontaneous()) {
    m_strip->End();
    emit Fechada();
  }
  QWidget::hideEvent(event);
}

void FrmComunicado::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

} // namespace tolmira
