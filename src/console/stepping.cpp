#include "console/stepping.h"

#include <algorithm>
#include <cmath>

namespace tolmira {

namespace {

constexpr int IntervaloDoDeslize = 16; // ms; ten ticks make a glide
constexpr int PassosDoDeslize = 10;
constexpr int MovimentoGrande = 120; // twips: a strip dragged this far out of the frame clears the screen
constexpr int MovimentoClique = 45;  // twips: below this a press is a click
constexpr int TempoDaDica4 = 6000;   // ms
constexpr int TecladaRapida = 1000;  // ms

} // namespace

VerseStepper::VerseStepper(ConsoleContext &console) : m_console(console) {
  m_timerMove = console.clock.NewTimer([this] { TickMove(); });
  m_timerFinaliza = console.clock.NewTimer([this] {
    m_timerFinaliza->Stop();
    MouseUp_Finaliza(false, false);
  });
  m_timerDica4 = console.clock.NewTimer([this] {
    m_timerDica4->Stop();
    m_console.painel.PicDica4 = false;
    m_console.Atualiza();
  });
}

bool VerseStepper::Gliding() const { return m_timerMove->IsActive(); }

int VerseStepper::fimdolabel() const {
  const EstadoConsole &estado = m_console.estado;
  if (estado.TotalEstrofes < 1)
    return m_console.faixa.Label1Topo;
  return m_console.faixa.Label1Topo + estado.Estrofes[static_cast<size_t>(estado.TotalEstrofes)].Base;
}

void VerseStepper::TeclaEstrofe(int delta) {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;

  const qint64 now = m_console.clock.NowMs();
  const bool quick = m_ultimaTecla >= 0 && now - m_ultimaTecla < TecladaRapida;
  m_contaTeclas = quick && !painel.PicDica4 ? m_contaTeclas + 1 : 0;
  m_ultimaTecla = now;
  if (!painel.PicDica4 && m_contaTeclas > 2) {
    m_contaTeclas = 0;
    painel.PicDica4 = true;
    m_timerDica4->Start(TempoDaDica4);
  }

  if (estado.EstrofeAtual == -1)
    delta = 1;
  int novo = std::max(estado.EstrofeAtual + delta, 1);
  // A verse without text has no span that a press could hit; stepping passes over it.
  while (novo > 1 && novo < estado.TotalEstrofes && estado.Estrofes[static_cast<size_t>(novo)].Texto.isEmpty())
    novo += delta;
  if (novo <= estado.TotalEstrofes) {
    const int y = estado.Estrofes[static_cast<size_t>(novo)].Topo + 5;
    Label1MouseDown(y);
    m_movePorTecla = true;
    Label1MouseUp(y);
  }
  if (m_console.view)
    m_console.view->FocusStrip();
}

void VerseStepper::Label1MouseDown(int yTwips) {
  m_timerMove->Stop();
  m_timerFinaliza->Stop();
  m_topoAoClicar = m_console.faixa.Label1Topo;
  m_posMouseY = yTwips;
  m_arrastando = true;
  m_movePorTecla = false;
}

void VerseStepper::Label1MouseMove(int yTwips) {
  if (!m_arrastando)
    return;
  m_console.faixa.Label1Topo += yTwips - m_posMouseY;
  if (m_console.view)
    m_console.view->StripMoved();
}

void VerseStepper::Label1MouseUp(int yTwips) {
  if (!m_arrastando)
    return;
  m_arrastando = false;
  EstadoConsole &estado = m_console.estado;
  FaixaTexto &faixa = m_console.faixa;
  PainelConsole &painel = m_console.painel;

  if (estado.TipoAtual != u"Bíblia" && !estado.EhLetra()) {
    estado.DefineTipo(QStringLiteral("Louvor"));
    m_console.paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, 0);
  }
  estado.ModoMovimento = QStringLiteral("Normal");

  const int moved = std::abs(faixa.Label1Topo - m_topoAoClicar);
  const bool below = fimdolabel() >= faixa.FrameTop && faixa.Label1Topo > faixa.FrameTop + faixa.FrameHeight;
  const bool above = fimdolabel() < faixa.FrameTop;
  if (below || above) {
    if (moved >= MovimentoGrande) {
      LimpaTela(below ? QStringLiteral("Abaixo") : QStringLiteral("Acima"));
      return;
    }
    m_movePorTecla = true;
  }

  estado.FundoPreso = false;
  const bool pronta = estado.TotalEstrofes > 0 && !estado.PaginandoEstrofes;
  const bool click = moved < MovimentoClique && !m_movePorTecla;
  if (click) {
    painel.PicDica2 = false;
    painel.PicAviso = false;
  }
  if (!pronta) {
    const int y = faixa.Label1Topo + yTwips;
    if (moved < 30 && y >= faixa.FrameTop && y <= faixa.FrameTop + faixa.FrameHeight)
      painel.MensagemTira = QStringLiteral("Click on the text and drag it to the desired position, then release.");
    m_console.Atualiza();
    return;
  }

  // A press points at a verse; a drag brings one into the frame.
  const bool pointed = moved < 30;
  int winner = pointed ? VersoEm(yTwips) : VersoNoQuadro();
  if (winner < 0 && estado.EstrofeAtual < 1) {
    if (below) { // nothing of the song was ever in the frame, and nothing is now
      PlaceBelowFrame();
      m_movePorTecla = false;
      m_console.Atualiza();
      return;
    }
    winner = 1; // the glide ends at the first verse, so that is the one to send
  }
  if (winner > 0)
    estado.EstrofeAtual = winner;

  const bool byKey = m_movePorTecla;
  movem(estado.EstrofeAtual, true);
  if (byKey)
    MouseUp_Finaliza(false, false);
  else
    m_timerFinaliza->Start(IntervaloDoDeslize * (PassosDoDeslize + 1));
  m_movePorTecla = false;
}

int VerseStepper::VersoEm(int yTwips) const {
  const EstadoConsole &estado = m_console.estado;
  for (int i = 1; i <= estado.TotalEstrofes; ++i) {
    const Estrofe &verso = estado.Estrofes[static_cast<size_t>(i)];
    if (!verso.Texto.isEmpty() && verso.Topo <= yTwips && yTwips <= verso.Base)
      return i;
  }
  return -1;
}

int VerseStepper::VersoNoQuadro() const {
  const EstadoConsole &estado = m_console.estado;
  const FaixaTexto &faixa = m_console.faixa;
  for (int i = 1; i <= estado.TotalEstrofes; ++i) {
    const Estrofe &verso = estado.Estrofes[static_cast<size_t>(i)];
    const int topo = verso.Topo + faixa.Label1Topo;
    const int base = verso.Base + faixa.Label1Topo;
    const bool holdsTop = topo <= faixa.FrameTop && faixa.FrameTop <= base;
    const bool inside = topo >= faixa.FrameTop && base <= faixa.FrameTop + faixa.FrameHeight;
    if (!verso.Texto.isEmpty() && (holdsTop || inside))
      return i;
  }
  return -1;
}

void VerseStepper::LimpaTela(const QString &modo) {
  EstadoConsole &estado = m_console.estado;
  estado.ModoMovimento = modo;
  MouseUp_Finaliza(false, false);
  if (estado.EhLetra() && estado.EnviarAoTelao) {
    m_console.canal.SendToDisplay(modo == u"Abaixo" ? QStringLiteral("UpdateText|#|#|#")
                                                    : QStringLiteral("UpdateText|#|#"));
    CallPageScript(m_console.previa(), QStringLiteral("UpdateTextHtml"));
    estado.VersoHtmlAtual.clear();
    estado.VersoTextoAtual.clear();
    m_console.legenda.TextoLegenda.clear();
  }
  estado.EstrofeAtual = -1;
  estado.UltimoTexto.clear();
  m_console.Atualiza();
}

int VerseStepper::Destino(int index, bool fitPrevious) const {
  const EstadoConsole &estado = m_console.estado;
  const FaixaTexto &faixa = m_console.faixa;
  const Estrofe &verso = estado.Estrofes[static_cast<size_t>(index)];
  int destino = faixa.FrameTop - verso.Topo + (faixa.FrameHeight - (verso.Base - verso.Topo)) / 2;
  if (fitPrevious && index > 1) {
    const int fimAnterior = estado.Estrofes[static_cast<size_t>(index - 1)].Base;
    if (destino + fimAnterior > faixa.FrameTop)
      destino = faixa.FrameTop - fimAnterior;
  }
  return destino;
}

void VerseStepper::movem(int index, bool fitPrevious) {
  EstadoConsole &estado = m_console.estado;
  FaixaTexto &faixa = m_console.faixa;
  if (estado.TotalEstrofes < 1)
    return;
  m_console.painel.PicAviso = false;
  m_console.painel.PicDica2 = false;
  m_console.painel.MensagemTira.clear();
  index = std::clamp(index, 1, estado.TotalEstrofes);
  faixa.VersoAtual = estado.Estrofes[static_cast<size_t>(index)].Texto;
  estado.TopoDestino = Destino(index, fitPrevious);
  m_passoMovimento = std::abs(faixa.Label1Topo - estado.TopoDestino) / PassosDoDeslize;
  m_passosDados = 0;
  if (faixa.Label1Topo == estado.TopoDestino)
    m_timerMove->Stop();
  else
    m_timerMove->Start(IntervaloDoDeslize);
  m_console.Atualiza();
}

void VerseStepper::TickMove() {
  FaixaTexto &faixa = m_console.faixa;
  const int destino = m_console.estado.TopoDestino;
  const int left = destino - faixa.Label1Topo;
  // The division by ten leaves a remainder, which goes with the tenth step.
  if (++m_passosDados >= PassosDoDeslize) {
    faixa.Label1Topo = destino;
    m_timerMove->Stop();
  } else {
    faixa.Label1Topo += left > 0 ? m_passoMovimento : -m_passoMovimento;
  }
  if (m_console.view)
    m_console.view->StripMoved();
}

void VerseStepper::MouseUp_Finaliza(bool force, bool noSend) {
  EstadoConsole &estado = m_console.estado;
  if (!force && !estado.EnviarAoTelao)
    return;
  if (estado.TipoAtual == u"Bíblia") {
    if (!noSend)
      FinalizaBiblia(false);
    return;
  }
  if (fimdolabel() < m_console.faixa.FrameTop ||
      m_console.faixa.Label1Topo > m_console.faixa.FrameTop + m_console.faixa.FrameHeight)
    estado.UltimoTexto.clear();
  // For a key the verse goes out at once: paints and timers get their turn when the handler returns to the loop.
  if (!m_movePorTecla)
    m_console.yielder.Yield(9);
  if (!noSend && estado.EhLetra())
    m_console.letras.ExibeVerso(estado.EstrofeAtual, true);
  m_console.Atualiza(); // what is out has changed
}

// Without a yield: what the loader told the pages and the verse itself belong into one frame.
void VerseStepper::FinalizaBiblia(bool soltouCtrl) {
  if (EnviaVersiculo)
    EnviaVersiculo(soltouCtrl);
  m_console.Atualiza();
}

void VerseStepper::CtrlDown() {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  const bool textShown = m_console.faixa.Label1Visible || painel.biblia.Visible || estado.EhSlides();
  if (!textShown || estado.EstadoTela != u"Normal")
    return;
  estado.EnviarAoTelao = false;
  painel.PicDica3 = true;
  painel.PicDica3Texto = estado.EhSlides()                ? QStringLiteral("Navigate to the desired slide,")
                         : estado.TipoAtual == u"Bíblia" ? QStringLiteral("Navigate to the desired verse,")
                                                         : QStringLiteral("Place the text in the desired position,");
  painel.PicDica2 = false;
  painel.PicDica4 = false;
  m_console.Atualiza();
}

void VerseStepper::CtrlUp() {
  EstadoConsole &estado = m_console.estado;
  estado.EnviarAoTelao = estado.TelaPronta;
  m_console.painel.PicDica3 = false;
  m_console.Atualiza();
  if (estado.EhSlides())
    return;
  if (estado.TipoAtual == u"Bíblia") {
    if (estado.EnviarAoTelao)
      FinalizaBiblia(true);
    return;
  }
  // The strip left the frame while nothing was sent: the screen follows now.
  if (estado.ModoMovimento != u"Normal" && !estado.VersoHtmlAtual.isEmpty())
    LimpaTela(estado.ModoMovimento);
  else
    MouseUp_Finaliza(false, false);
}

void VerseStepper::PlaceBelowFrame() {
  m_timerMove->Stop();
  m_timerFinaliza->Stop();
  m_arrastando = false;
  m_console.faixa.Label1Topo =
      m_console.faixa.FrameTop + static_cast<int>(std::lround(1.1 * m_console.faixa.FrameHeight));
  m_console.faixa.VersoAtual.clear();
}

void VerseStepper::PlaceAt(int index) {
  EstadoConsole &estado = m_console.estado;
  if (estado.TotalEstrofes < 1)
    return;
  m_timerMove->Stop();
  index = std::clamp(index, 1, estado.TotalEstrofes);
  estado.TopoDestino = Destino(index, true);
  m_console.faixa.Label1Topo = estado.TopoDestino;
  m_console.faixa.VersoAtual = estado.Estrofes[static_cast<size_t>(index)].Texto;
}

} // namespace tolmira
