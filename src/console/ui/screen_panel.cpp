#include "console/ui/screen_panel.h"

#include "bible/reference_entry.h"
#include "bible/ui/reference_box.h"
#include "console/ui/preview_box.h"
#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/state_button.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

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

constexpr int AlturaDoAviso = 44; // px
constexpr int AlturaDoAvisoApertado = 34;
constexpr int MaiorAviso = 180;

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
  m_banner->setMinimumHeight(m_aviso = AlturaDoAviso);
  m_banner->setMaximumHeight(MaiorAviso);
  m_banner->setAccessibleName(tr("State of the projection"));
  m_banner->setToolTip(tr("What the projection shows now"));
  column->addWidget(m_banner, 2);
  column->addWidget(MakeLines());

  m_states = new QGridLayout;
  m_states->setHorizontalSpacing(medidas::Step);
  m_states->setVerticalSpacing(medidas::Step);
  MakeStates();
  PlaceStates();
  column->addLayout(m_states, 5);

  column->addStretch(1);
  column->addWidget(MakeReferenceRow());
}

void ScreenPanel::MakeStates() {
  for (int i = 0; i < 5; ++i) {
    const Face &face = Faces[i];
    auto *state = new StateButton(ScreenControls::LegendaDoEstado(i), QLatin1String(face.drawing), face.colour, this);
    state->setObjectName(QStringLiteral("LBTela%1").arg(i));
    state->setToolTip(ScreenControls::DicaDoEstado(i));
    state->SetKeyHint(QLatin1String(face.key));
    connect(state, &StateButton::clicked, this, [this, i] { m_parts.controles.SetScreenState(i); });
    m_lbTela[static_cast<size_t>(i)] = state;
  }
  m_imgCombo = new QLabel(this);
  m_imgCombo->setObjectName(QStringLiteral("ImgCombo"));
  m_imgCombo->setPixmap(DeskIcon(QLatin1String("indicator-right")).pixmap(medidas::Margin, medidas::Margin));
  m_image11 = NewIconButton(QStringLiteral("Image11"), "picture-choose", tr("Change the default background"), this);
  m_image11->setToolTip(tr("Chooses the picture that \"Background\" shows"));
  connect(m_image11, &QPushButton::clicked, this, [this] { m_parts.controles.Image11(); });
}

// One under the other, with the marker and the chooser beside the chosen one; on a desk without the height for that, all
// in one row with the chooser at its end.
void ScreenPanel::PlaceStates() {
  for (int i = 0; i < 5; ++i) { // whatever is added goes out of the place where it stands
    m_states->addWidget(m_lbTela[static_cast<size_t>(i)], m_compact ? 0 : i, m_compact ? i : 1);
    m_states->setColumnStretch(i, m_compact || i == 1 ? 1 : 0);
  }
  m_states->setColumnMinimumWidth(0, m_compact ? 0 : m_imgCombo->sizeHint().width());
  m_states->setColumnMinimumWidth(2, m_compact ? 0 : m_image11->sizeHint().width());
  m_imgCombo->setVisible(!m_compact);
  MoveMarker();
}

void ScreenPanel::MoveMarker() {
  const int row = qBound(0, m_parts.console.painel.LBTelaMarcado, 4);
  const QLayoutItem *there = m_states->itemAtPosition(m_compact ? 0 : row, m_compact ? 5 : 2);
  if (there && there->widget() == m_image11)
    return;
  m_states->addWidget(m_image11, m_compact ? 0 : row, m_compact ? 5 : 2);
  if (!m_compact)
    m_states->addWidget(m_imgCombo, row, 0);
  else
    m_states->removeWidget(m_imgCombo);
}

// Under the banner: which verse is out, what the next key brings, what comes after it.
QWidget *ScreenPanel::MakeLines() {
  auto *block = new QWidget(this);
  auto *row = new QHBoxLayout(block);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Gap);
  auto *lines = new QVBoxLayout;
  lines->setSpacing(0);
  row->addLayout(lines, 1);
  const auto line = [block, lines](const char *name, const QString &spoken) {
    auto *label = new ElidedLabel(block);
    label->setObjectName(QLatin1String(name));
    label->setProperty("look", QStringLiteral("quiet"));
    label->setAccessibleName(spoken);
    lines->addWidget(label);
    return label;
  };
  m_detalhe = line("LbDetalheTela", tr("About the state of the projection"));
  m_proximo = line("LbProximo", tr("What comes next"));
  m_proximo->setProperty("look", QString());
  m_depois = line("LbDepois", tr("What comes after it"));
  m_imageCamera = NewIconButton(QStringLiteral("ImageCamera"), "camera", tr("Cameras"), block);
  connect(m_imageCamera, &QPushButton::clicked, this, &ScreenPanel::CamerasWanted);
  row->addWidget(m_imageCamera, 0, Qt::AlignTop);
  return block;
}

void ScreenPanel::SetCompact(bool compact) {
  m_aviso = compact ? AlturaDoAvisoApertado : AlturaDoAviso;
  m_banner->setMinimumHeight(m_aviso);
  layout()->setSpacing(compact ? 6 : medidas::Gap);
  m_compact = compact;
  PlaceStates();
  for (StateButton *state : m_lbTela)
    state->SetCompact(compact);
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
  m_image9 = NewIconButton(QStringLiteral("Image9"), "bible", tr("Bible version"), block);
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
  const int height = m_banner->height();
  SetLook(m_banner, "scale", height > 3 * AlturaDoAviso  ? QStringLiteral("huge")
                             : height > 3 * AlturaDoAviso / 2 ? QStringLiteral("large")
                                                          : QString());
}

void ScreenPanel::Atualiza() {
  const SituacaoDaTela &situacao = m_parts.console.painel.situacao;
  m_banner->setText(situacao.LbEstadoTela);
  SetLook(m_banner, "state", situacao.CorDoEstado);
  m_banner->setAccessibleDescription(situacao.LbDetalheTela);
  const auto line = [](QLabel *label, const QString &text) {
    label->setText(text);
    label->setToolTip(text);
  };
  line(m_detalhe, situacao.LbDetalheTela);
  line(m_proximo, situacao.LbProximo);
  line(m_depois, situacao.LbDepois);
  line(m_lbVersao, m_parts.console.painel.LbVersao);
  const PainelCamera &camera = m_parts.console.painel.camera;
  m_imageCamera->setEnabled(camera.Pode);
  const bool noTelao = camera.situacao == Cameras::Situacao::NoTelao;
  if (std::exchange(m_cameraNoTelao, noTelao) != noTelao)
    m_imageCamera->setIcon(DeskIcon(QLatin1String("camera"), noTelao ? cores::Live : cores::Text));
  m_imageCamera->setToolTip(noTelao       ? tr("%1 is behind the text").arg(camera.Nome)
                            : camera.Pode ? tr("Puts a camera behind the text (Ctrl+Shift+C)")
                                          : tr("A camera can stand behind songs and passages"));
  for (int i = 0; i < 5; ++i)
    m_lbTela[static_cast<size_t>(i)]->setChecked(i == m_parts.console.painel.LBTelaMarcado);
  MoveMarker();
}

} // namespace tolmira
