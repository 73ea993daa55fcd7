#include "console/ui/strip_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "console/ui/slides_panel.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/hint_label.h"
#include "controls/ui/palette.h"
#include "controls/ui/passage_card.h"
#include "controls/ui/spoken_role.h"
#include "controls/ui/text_strip.h"
#include "display/page_builder.h"

namespace tolmira {

namespace {

constexpr double Twips = TwipsPerPixel;
constexpr double PixelsPerPoint = 96.0 / 72.0; // of the measures
constexpr int FrameInset = 6;                  // px, so that the frame does not touch the panel's edge

QRgb StateColour(const QString &estadoTela) {
  if (estadoTela == u"Normal")
    return cores::Live;
  return estadoTela == u"TelaPreta" || estadoTela == u"Hide" ? cores::Off : cores::Held;
}

Qt::Alignment AlignmentOf(int alinhamento) {
  switch (alinhamento) {
  case 0:
    return Qt::AlignLeft;
  case 1:
    return Qt::AlignRight;
  default:
    return Qt::AlignHCenter;
  }
}

} // namespace

StripArea::StripArea(ConsoleParts parts, QWidget *parent)
    : QFrame(parent), m_parts(parts), m_label1(new TextStrip(this)), m_passagem(new PassageCard(this)),
      m_slides(new SlidesPanel(parts, this)) {
  SetSpokenRole(this, QAccessible::StaticText);
  setObjectName(QStringLiteral("PicAbac2"));
  setAccessibleName(tr("Text of the item on show"));
  setToolTip(tr("The text on the console; what stands in the frame is on show"));
  setProperty("look", QStringLiteral("panel"));
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(320, 160);
  m_label1->setObjectName(QStringLiteral("Label1"));
  m_label1->setAccessibleName(tr("Song text"));
  m_label1->setToolTip(tr("What stands in the frame is on show. Drag the text, or press an arrow key;\n"
                          "hold Ctrl to move it without showing anything."));
  m_label1->hide();
  m_passagem->setObjectName(QStringLiteral("LabelBiblia"));
  m_passagem->setAccessibleName(tr("Bible passage"));
  m_passagem->hide();
  m_slides->hide();
  const auto twips = [](double px) { return static_cast<int>(px * Twips); };
  VerseStepper &stepper = m_parts.stepper;
  connect(m_label1, &TextStrip::Pressed, this, [this, twips, &stepper](double y) {
    setFocus(Qt::MouseFocusReason);
    stepper.Label1MouseDown(twips(y));
  });
  connect(m_label1, &TextStrip::Dragged, this, [twips, &stepper](double y) { stepper.Label1MouseMove(twips(y)); });
  connect(m_label1, &TextStrip::Released, this, [twips, &stepper](double y) { stepper.Label1MouseUp(twips(y)); });
  MakeHints();
}

void StripArea::MakeHints() {
  const auto hint = [this](const char *name, const char *drawing, const QString &text, QRgb colour = cores::Accent) {
    auto *label = new HintLabel(QLatin1String(drawing), text, this, colour);
    label->setObjectName(QLatin1String(name));
    label->hide();
    return label;
  };
  m_picAviso2 = hint("PicAviso2", "info",
                     tr("Nothing is loaded. Choose an entry of the agenda and press Enter, or double-click it."));
  m_picDicaAgenda = hint("PicDicaAgenda", "agenda", QString());
  m_picDicaAgenda->TextLabel()->setObjectName(QStringLiteral("LbDicaAgenda"));
  m_picAviso = hint("PicAviso", "arrows", QString());
  m_picDica2 = hint("PicDica2", "arrows", tr("Drag the text into the frame and let go to show it."));
  m_picDica3 = hint("PicDica3", "text-off", QString(), cores::Held);
  m_picDica4 = hint("PicDica4", "info", tr("Hold Ctrl while you press the arrow keys to skip verses without showing them."));
  m_mensagem = hint("MensagemTira", "warning", QString(), cores::Held);
}

QRectF StripArea::FrameRect() const {
  const FaixaTexto &faixa = m_parts.console.faixa;
  if (faixa.FrameHeight <= 0)
    return {};
  const double left = std::max<double>(FrameInset, faixa.FrameLeft / Twips);
  const double right = std::min<double>(width() - FrameInset, (faixa.FrameLeft + faixa.FrameWidth) / Twips);
  return {left, faixa.FrameTop / Twips, right - left, faixa.FrameHeight / Twips};
}

void StripArea::Atualiza() {
  const FaixaTexto &faixa = m_parts.console.faixa;
  if (faixa.Label1Visible) {
    TextStrip::Content content;
    content.text = faixa.Label1Texto;
    // The measures and the page take another family when this one is not installed.
    if (faixa.Label1Fonte.family != m_familia) {
      m_familia = faixa.Label1Fonte.family;
      m_familiaInstalada = FonteInstalada(m_familia);
    }
    content.family = m_familiaInstalada;
    content.bold = faixa.Label1Fonte.bold;
    content.fontPx = faixa.Label1Fonte.sizePt * PixelsPerPoint;
    content.lineHeight = m_parts.console.measure.Height(QString(), faixa.Label1Fonte, 0);
    content.alignment = AlignmentOf(faixa.Alinhamento);
    content.left = faixa.Label1Esquerda / Twips;
    content.width = faixa.Label1Largura / Twips;
    m_label1->SetContent(content);
    Speak(m_label1, faixa.VersoAtual);
  }
  m_label1->SetFrame(FrameRect());
  m_label1->setVisible(faixa.Label1Visible);
  MarkVerse();
  ShowPassage();
  ShowSlides();
  ShowHints();
  StripMoved();
  if (!faixa.Label1Visible)
    update();
}

void StripArea::MarkVerse() {
  const EstadoConsole &estado = m_parts.console.estado;
  // While Ctrl holds the projection back, the mark stays at the verse that is out.
  if (estado.EnviarAoTelao || estado.EstrofeAtual < 1)
    m_marcado = estado.EstrofeAtual;
  const auto spanOf = [&estado](int verso) { return estado.Estrofes[static_cast<size_t>(verso)]; };
  const bool inFrame = estado.EstrofeAtual >= 1 && estado.EstrofeAtual <= estado.TotalEstrofes;
  const Estrofe atual = inFrame ? spanOf(estado.EstrofeAtual) : Estrofe();
  m_label1->SetBright(atual.Topo / Twips, atual.Base / Twips);
  if (m_marcado < 1 || m_marcado > estado.TotalEstrofes || estado.VersoHtmlAtual.isEmpty()) {
    m_label1->SetMark(0, 0, {});
    return;
  }
  const Estrofe verso = spanOf(m_marcado);
  m_label1->SetMark(verso.Topo / Twips, verso.Base / Twips, QColor(StateColour(estado.EstadoTela)));
}

void StripArea::ShowPassage() {
  const PainelConsole &painel = m_parts.console.painel;
  const PainelBiblia &biblia = painel.biblia;
  m_passagem->setVisible(biblia.Visible);
  if (!biblia.Visible)
    return;
  PassageCard::Content content;
  content.text = biblia.Texto;
  content.reference = biblia.Referencia;
  content.version = biblia.Versao;
  // A tip of the moment takes the place of the standing one.
  content.tip = painel.PicDica3 || !painel.MensagemTira.isEmpty() ? QString() : painel.LabelDicaBiblia;
  content.alignment = AlignmentOf(biblia.Alinhamento);
  content.large = m_parts.console.ajustes.FonteGrande;
  content.mark = biblia.Adiante ? QColor(cores::Held) : QColor(StateColour(m_parts.console.estado.EstadoTela));
  m_passagem->SetContent(content);
  m_passagem->SetFrame(FrameRect());
  Speak(m_passagem, biblia.Referencia + u". " + biblia.Texto);
}

void StripArea::ShowSlides() {
  m_slides->Atualiza();
  const int index = m_parts.console.painel.SlideEscolhido;
  if (const SlideDocument &documento = m_parts.slides.Documento(); m_parts.slides.Visible() && documento.Tem(index)) {
    const Slide &slide = documento.Em(index);
    const QStringList spoken{tr("Slide %1 of %2").arg(index).arg(documento.Count()), slide.Titulo, slide.Texto};
    Speak(m_slides, spoken.join(QStringLiteral(". ")).simplified());
  }
}

// Of the text and of the area that holds it, which has the focus.
void StripArea::Speak(QWidget *text, const QString &verse) {
  if (text->accessibleDescription() == verse)
    return;
  text->setAccessibleDescription(verse);
  setAccessibleDescription(verse);
}

void StripArea::StripMoved() { m_label1->SetTop(m_parts.console.faixa.Label1Topo / Twips); }

void StripArea::ShowHints() {
  const PainelConsole &painel = m_parts.console.painel;
  m_picDicaAgenda->SetText(painel.LbDicaAgenda);
  m_picDica3->SetText(painel.PicDica3Texto.isEmpty() ? QString()
                                                     : painel.PicDica3Texto + tr(" then release Ctrl to show it."));
  m_mensagem->SetText(painel.MensagemTira);
  m_picAviso->SetText(painel.AvisoAberto ? tr("The window of the notices is open: Enter sends, Esc closes.")
                                         : tr("Drag the text or press an arrow key to show the first verse."));

  const int room = std::max(120, width() - 140);
  const auto place = [&](const QList<QPair<HintLabel *, bool>> &hints, bool middle) {
    int total = 0;
    for (const auto &[label, shown] : hints)
      if (shown) {
        label->SetMaximumTextWidth(room);
        total += label->height() + medidas::Gap;
      }
    int y = middle ? (height() - total) / 2 : height() - total - 4;
    for (const auto &[label, shown] : hints) {
      if (shown) {
        label->move((width() - label->width()) / 2, y);
        label->raise();
        y += label->height() + medidas::Gap;
      }
      label->setVisible(shown);
    }
  };
  place({{m_picAviso2, painel.PicAviso2}, {m_picDicaAgenda, painel.PicDicaAgenda}}, true);
  place({{m_mensagem, !painel.MensagemTira.isEmpty()},
         {m_picAviso, painel.PicAviso || painel.AvisoAberto},
         {m_picDica2, painel.PicDica2},
         {m_picDica3, painel.PicDica3},
         {m_picDica4, painel.PicDica4}},
        false);
}

void StripArea::paintEvent(QPaintEvent *event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  if (!m_label1->isVisible() && !m_passagem->isVisible() && !m_slides->isVisible())
    TextStrip::PaintFrame(painter, FrameRect());
  if (hasFocus()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(cores::Accent), 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), medidas::Corner, medidas::Corner);
  }
}

void StripArea::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  m_label1->setGeometry(rect().adjusted(1, 1, -1, -1));
  m_passagem->setGeometry(m_label1->geometry());
  m_slides->setGeometry(rect().adjusted(medidas::Step, medidas::Step, -medidas::Step, -medidas::Step));
  FaixaTexto &faixa = m_parts.console.faixa;
  faixa.PainelLargura = m_label1->width() * TwipsPerPixel;
  faixa.PainelAltura = m_label1->height() * TwipsPerPixel;
  m_parts.loader.PainelMudou();
  Atualiza();
}

void StripArea::focusInEvent(QFocusEvent *event) {
  QFrame::focusInEvent(event);
  update();
}

void StripArea::focusOutEvent(QFocusEvent *event) {
  QFrame::focusOutEvent(event);
  update();
}

StripPanel::StripPanel(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);

  auto *picture8 = new QWidget(this);
  picture8->setObjectName(QStringLiteral("Picture8"));
  picture8->setFixedHeight(medidas::Control + 4);
  auto *row = new QHBoxLayout(picture8);
  row->setContentsMargins(0, 0, 0, 0);
  // An empty place as wide as the counter keeps the title in the middle.
  row->addSpacing(64);
  m_label9 = new ElidedLabel(picture8);
  m_label9->setObjectName(QStringLiteral("Label9"));
  m_label9->setProperty("look", QStringLiteral("title"));
  m_label9->setAlignment(Qt::AlignCenter);
  m_label9->setAccessibleName(tr("Item on show"));
  row->addWidget(m_label9, 1);
  m_contagem = new QLabel(picture8);
  m_contagem->setObjectName(QStringLiteral("LbContagem"));
  m_contagem->setProperty("look", QStringLiteral("quiet"));
  m_contagem->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  m_contagem->setFixedWidth(64);
  m_contagem->setToolTip(tr("Verse in the frame or slide on show, and how many the item has"));
  row->addWidget(m_contagem);
  column->addWidget(picture8);

  m_area = new StripArea(parts, this);
  column->addWidget(m_area, 1);
}

void StripPanel::Atualiza() {
  const ConsoleContext &console = m_parts.console;
  const bool empty = console.painel.Label9.isEmpty();
  m_label9->setText(empty ? tr("Nothing on show") : console.painel.Label9);
  m_label9->setToolTip(console.painel.Label9);
  SetLook(m_label9, "look", empty ? QStringLiteral("empty-title") : QStringLiteral("title"));
  const EstadoConsole &estado = console.estado;
  QString count;
  if (console.faixa.Label1Visible && estado.TotalEstrofes > 0)
    count = (estado.EstrofeAtual > 0 ? QString::number(estado.EstrofeAtual) : QStringLiteral("–")) + u" / " +
            QString::number(estado.TotalEstrofes);
  if (estado.EhSlides())
    count = (estado.SlideAtual > 0 ? QString::number(estado.SlideAtual) : QStringLiteral("–")) + u" / " +
            QString::number(estado.TotalSlides);
  m_contagem->setText(count);
  m_area->Atualiza();
}

} // namespace tolmira
