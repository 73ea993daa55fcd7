#include "console/ui/screen_panel.h"

#include "bible/reference_entry.h"
#include "bible/ui/reference_box.h"
#include "console/ui/preview_box.h"
#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"
#include "controls/ui/state_button.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

struct Face {
  const char *drawing;
  QRgb colour;
  const char *key;
};
constexpr Face Faces[] = {{"screen", cores::Live, "F5"},
                          {"text-off", cores::Held, "F6"},
                          {"black", cores::Off, "F7"},
                          {"background", cores::Held, "F8"},
                          {"screen-off", cores::Off, "F9"}};

struct Banner {
  QString text;
  QString state; // selects the colours
};

constexpr int AlturaDoAviso = 44; // px

// What the congregation sees, in as few words as can be.
Banner BannerOf(const EstadoConsole &estado, bool semProjetor) {
  const QString held = QStringLiteral("held");
  const QString off = QStringLiteral("off");
  if (!estado.TelaPronta)
    return {QObject::tr("STARTING"), QString()};
  if (semProjetor)
    return {QObject::tr("NO PROJECTOR"), off};
  if (estado.EstadoTela == u"OcultarTexto")
    return {QObject::tr("TEXT HIDDEN"), held};
  if (estado.EstadoTela == u"TelaPreta")
    return {QObject::tr("BLACK SCREEN"), off};
  if (estado.EstadoTela == u"PadraoDeFundo")
    return {QObject::tr("BACKGROUND ONLY"), held};
  if (estado.EstadoTela == u"Hide")
    return {QObject::tr("NO PROJECTION"), off};
  if (estado.VersoHtmlAtual.isEmpty())
    return {QObject::tr("LIVE, NO TEXT"), QStringLiteral("ready")};
  return {QObject::tr("LIVE"), QStringLiteral("live")};
}

} // namespace

ScreenPanel::ScreenPanel(ConsoleParts parts, PreviewBox *preview, QWidget *parent) : QWidget(parent), m_parts(parts) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  preview->setParent(this);
  column->addWidget(preview, 1000); // all there is until it has its proportions; the rest then shares

  m_banner = new QLabel(this);
  m_banner->setObjectName(QStringLiteral("LbEstadoTela"));
  m_banner->setProperty("look", QStringLiteral("banner"));
  m_banner->setAlignment(Qt::AlignCenter);
  m_banner->setMinimumHeight(AlturaDoAviso);
  m_banner->setMaximumHeight(2 * AlturaDoAviso);
  m_banner->setAccessibleName(tr("State of the projection"));
  m_banner->setToolTip(tr("What the projection shows now"));
  column->addWidget(m_banner, 2);

  m_states = MakeStates();
  column->addLayout(m_states, 5);

  column->addStretch(1);
  column->addWidget(MakeReferenceRow());
}

QGridLayout *ScreenPanel::MakeStates() {
  auto *states = new QGridLayout;
  states->setHorizontalSpacing(medidas::Step);
  states->setVerticalSpacing(medidas::Step);
  for (int i = 0; i < 5; ++i) {
    const Face &face = Faces[i];
    auto *state = new StateButton(ScreenControls::LegendaDoEstado(i), QLatin1String(face.drawing), face.colour, this);
    state->setObjectName(QStringLiteral("LBTela%1").arg(i));
    state->setToolTip(ScreenControls::DicaDoEstado(i));
    state->SetKeyHint(QLatin1String(face.key));
    connect(state, &StateButton::clicked, this, [this, i] { m_parts.controles.SetScreenState(i); });
    states->addWidget(state, i, 1);
    m_lbTela[static_cast<size_t>(i)] = state;
  }
  m_imgCombo = new QLabel(this);
  m_imgCombo->setObjectName(QStringLiteral("ImgCombo"));
  m_imgCombo->setPixmap(DeskIcon(QLatin1String("indicator-right")).pixmap(medidas::Margin, medidas::Margin));
  m_image11 = new QPushButton(this);
  m_image11->setObjectName(QStringLiteral("Image11"));
  m_image11->setProperty("look", QStringLiteral("icon"));
  m_image11->setIcon(DeskIcon(QLatin1String("picture-choose")));
  m_image11->setIconSize({medidas::Icon, medidas::Icon});
  m_image11->setAccessibleName(tr("Change the default background"));
  m_image11->setToolTip(tr("Chooses the picture that \"Background\" shows"));
  connect(m_image11, &QPushButton::clicked, this, [this] { m_parts.controles.Image11(); });
  states->setColumnMinimumWidth(0, m_imgCombo->sizeHint().width());
  states->setColumnMinimumWidth(2, m_image11->sizeHint().width());
  states->setColumnStretch(1, 1);
  return states;
}

void ScreenPanel::MoveMarker() {
  const int row = qBound(0, m_parts.console.painel.LBTelaMarcado, 4);
  if (m_states->itemAtPosition(row, 2))
    return;
  m_states->addWidget(m_imgCombo, row, 0); // takes them out of the row where they stand
  m_states->addWidget(m_image11, row, 2);
}

QWidget *ScreenPanel::MakeReferenceRow() {
  auto *block = new QWidget(this);
  auto *column = new QVBoxLayout(block);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_text2 = new ReferenceBox(EntryPlace::Console, block);
  m_text2->setObjectName(QStringLiteral("Text2"));
  m_text2->setPlaceholderText(tr("Bible: joh 3 16"));
  m_text2->setAccessibleName(tr("Quick Bible reference"));
  m_text2->setToolTip(tr("A few letters of the book, chapter and verse; Enter shows the passage (F10 comes here)"));
  row->addWidget(m_text2, 1);
  m_image9 = new QPushButton(block);
  m_image9->setObjectName(QStringLiteral("Image9"));
  m_image9->setProperty("look", QStringLiteral("icon"));
  m_image9->setIcon(DeskIcon(QLatin1String("bible")));
  m_image9->setIconSize({medidas::Icon, medidas::Icon});
  m_image9->setAccessibleName(tr("Bible version"));
  m_image9->setToolTip(tr("Bible version (Ctrl+B)"));
  row->addWidget(m_image9);
  column->addLayout(row);
  m_lbVersao = new ElidedLabel(block);
  m_lbVersao->setObjectName(QStringLiteral("LbVersao"));
  m_lbVersao->setProperty("look", QStringLiteral("quiet"));
  column->addWidget(m_lbVersao);

  connect(m_text2, &ReferenceBox::Submitted, this, [this] { SubmitReference(); });
  connect(m_text2, &ReferenceBox::Left, this, [this] {
    if (m_parts.console.view)
      m_parts.console.view->FocusStrip();
  });
  connect(m_image9, &QPushButton::clicked, this, &ScreenPanel::Image9);
  return block;
}

void ScreenPanel::SubmitReference() {
  QString reference = NormalizeReference(m_text2->text());
  if (m_parts.biblia.GetVerse(reference).isEmpty())
    return;
  m_text2->clear();
  m_parts.fluxo.exibirPassagem(reference);
}

void ScreenPanel::Image9() {
  if (!m_mnIb)
    return;
  // Above the button, which stands near the window's lower half.
  m_mnIb->popup(m_image9->mapToGlobal(QPoint(m_image9->width() - m_mnIb->sizeHint().width(), 0)) -
                QPoint(0, m_mnIb->sizeHint().height()));
}

void ScreenPanel::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  SetLook(m_banner, "scale", m_banner->height() > 3 * AlturaDoAviso / 2 ? QStringLiteral("large") : QString());
}

void ScreenPanel::Atualiza() {
  const Banner banner = BannerOf(m_parts.console.estado, m_parts.console.painel.SemProjetor);
  m_banner->setText(banner.text);
  SetLook(m_banner, "state", banner.state);
  m_lbVersao->setText(m_parts.console.painel.LbVersao);
  for (int i = 0; i < 5; ++i)
    m_lbTela[static_cast<size_t>(i)]->setChecked(i == m_parts.console.painel.LBTelaMarcado);
  MoveMarker();
}

} // namespace tolmira
