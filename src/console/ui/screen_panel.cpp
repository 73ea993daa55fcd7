#include "console/ui/screen_panel.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "console/ui/preview_box.h"
#include "controls/ui/palette.h"
#include "controls/ui/state_button.h"

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
Banner BannerOf(const EstadoConsole &estado) {
  const QString held = QStringLiteral("held");
  const QString off = QStringLiteral("off");
  if (!estado.TelaPronta)
    return {QObject::tr("STARTING"), QString()};
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

  auto *states = new QVBoxLayout;
  states->setSpacing(medidas::Step);
  for (int i = 0; i < 5; ++i) {
    const Face &face = Faces[i];
    auto *state =
        new StateButton(ScreenControls::LegendaDoEstado(i), QLatin1String(face.drawing), face.colour, this);
    state->setObjectName(QStringLiteral("LBTela%1").arg(i));
    state->setToolTip(ScreenControls::DicaDoEstado(i));
    state->SetKeyHint(QLatin1String(face.key));
    connect(state, &StateButton::clicked, this, [this, i] { m_parts.controles.SetScreenState(i); });
    states->addWidget(state);
    m_lbTela[static_cast<size_t>(i)] = state;
  }
  column->addLayout(states, 5);

  auto *reference = new QLineEdit(this);
  reference->setObjectName(QStringLiteral("Text2"));
  reference->setPlaceholderText(tr("Bible reference"));
  reference->setAccessibleName(tr("Quick Bible reference"));
  reference->setEnabled(false);
  reference->setToolTip(AindaNao());
  column->addStretch(1);
  column->addWidget(reference);
}

void ScreenPanel::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  SetLook(m_banner, "scale", m_banner->height() > 3 * AlturaDoAviso / 2 ? QStringLiteral("large") : QString());
}

void ScreenPanel::Atualiza() {
  const Banner banner = BannerOf(m_parts.console.estado);
  m_banner->setText(banner.text);
  SetLook(m_banner, "state", banner.state);
  for (int i = 0; i < 5; ++i)
    m_lbTela[static_cast<size_t>(i)]->setChecked(i == m_parts.console.painel.LBTelaMarcado);
}

} // namespace tolmira
