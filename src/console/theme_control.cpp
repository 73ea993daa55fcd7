#include "console/theme_control.h"

#include "display/effects.h"

#include <algorithm>
#include <utility>

namespace tolmira {

namespace {

constexpr int TempoDoAviso = 10000; // ms that the queued tile blinks

QString NomeDaEscolha(int n) {
  return QStringLiteral("chkim") + QString::number(n);
}

} // namespace

ThemeControl::ThemeControl(ConsoleContext &console, TabelaTemas &temas) : m_console(console), m_temas(temas) {
  m_chkIM.fill(true);
  m_timerTrocaImagem = console.clock.NewTimer([this] { TickTrocaImagem(); });
  m_timerProximoTema = console.clock.NewTimer([this] {
    m_timerProximoTema->Stop();
    m_console.painel.PicAvisoProximo = 0;
    m_console.Atualiza();
  });
}

void ThemeControl::aplicaTema(int n, bool &forcar) {
  EstadoConsole &estado = m_console.estado;
  m_console.painel.PicAvisoProximo = 0;
  StopRotation(); // a tick of the old theme's must not run while the new page is built
  n = std::clamp(n, 1, NumeroDeTemas);
  const TemaRecord &novo = m_temas[static_cast<size_t>(n)];
  estado.IndiceTema = n;
  if (!forcar)
    forcar = novo.Tipo != estado.TemaAtual.Tipo;
  estado.TemaAtual = novo;
  m_chkIM[static_cast<size_t>(n)] = true;
  m_console.painel.PicTemaAtual = n;
  AplicaTemaAtual();
  if (estado.EhLetra() && m_console.faixa.Label1Visible && ReapresentaTexto) {
    ReapresentaTexto();
    forcar = true;
  } else if (estado.EhSlides()) {
    forcar = true;
  } else {
    if (AjustaVersiculo)
      AjustaVersiculo();
    m_console.yielder.Yield(1);
  }
  const int posicao = estado.TipoAtual == u"Louvor" ? estado.EstrofeAtual - 1 : estado.EstrofeAtual;
  MontaPagina(posicao);
  m_imagem = 1;
  DefineTimerInterval();
  m_console.Atualiza();
}

// The builder sends a song again by itself, but of a Bible verse it only tells the preview.
void ThemeControl::MontaPagina(int posicao) {
  EstadoConsole &estado = m_console.estado;
  if (estado.EhSlides()) { // they cover the theme, which is there again behind them
    if (RedesenhaSlides)
      RedesenhaSlides();
    return;
  }
  // While Ctrl holds the projection back, the verse in the frame is only looked at: the page gets the one that is out.
  const bool preso = estado.EhLetra() && estado.TelaPronta && !estado.EnviarAoTelao;
  const int noQuadro = preso ? std::exchange(estado.EstrofeAtual, -1) : estado.EstrofeAtual;
  m_console.paginas.MontaPagina(estado.TemaAtual, posicao, 0);
  if (preso) {
    estado.EstrofeAtual = noQuadro;
    if (estado.EnviarAoTelao) // let go meanwhile
      m_console.letras.ExibeVerso(noQuadro, true);
    else
      m_console.letras.ReenviaVerso();
  }
  if (ReenviaVersiculo)
    ReenviaVersiculo();
}

void ThemeControl::VoltaAoFundo() {
  StopRotation();
  MontaPagina(m_console.estado.EstrofeAtual);
  m_imagem = 1;
  DefineTimerInterval();
  m_console.Atualiza();
}

bool ThemeControl::TrocaTema(int slot) {
  EstadoConsole &estado = m_console.estado;
  if (slot == 0 && !m_altera && estado.ProximoTema < 1)
    return false;
  if (slot == 0)
    slot = SorteiaTema();
  TemaRecord novo = m_temas[static_cast<size_t>(std::clamp(slot, 1, NumeroDeTemas))];
  novo.Font_Size = estado.TemaAtual.Font_Size;
  const bool changed = !(novo == estado.TemaAtual);
  estado.IndiceTema = slot;
  estado.TemaAtual = novo;
  m_console.painel.PicTemaAtual = slot;
  AplicaTemaAtual();
  if (changed) {
    StopRotation();
    m_imagem = 1;
  }
  DefineTimerInterval();
  return changed;
}

int ThemeControl::SorteiaTema() {
  return tolmira::SorteiaTema(m_console.estado.ProximoTema, m_chkIM, m_console.random);
}

void ThemeControl::AplicaTemaAtual() {
  ClearQueue();
  if (m_console.view)
    m_console.view->ThemesChanged();
  if (RefazFormato)
    RefazFormato();
}

void ThemeControl::ClearQueue() {
  m_timerProximoTema->Stop();
  m_console.estado.ProximoTema = SemTemaNaFila;
  m_console.painel.PicAvisoProximo = 0;
}

void ThemeControl::StopRotation() {
  m_timerTrocaImagem->Stop();
}

void ThemeControl::DefineTimerInterval() {
  const TemaRecord &tema = m_console.estado.TemaAtual;
  if (tema.Tipo != u"Imagem" || tema.Efeito_Imagem_timeout == u"-1" || ContaImagens(tema.Imagem) < 2) {
    m_timerTrocaImagem->Stop();
    return;
  }
  // A timer that runs at this interval already keeps the time that has gone by.
  const int intervalo = IntervaloDoCodigo(tema.Efeito_Imagem_timeout);
  if (!m_timerTrocaImagem->IsActive() || m_timerTrocaImagem->IntervalMs() != intervalo)
    m_timerTrocaImagem->Start(intervalo);
}

void ThemeControl::TickTrocaImagem() {
  if (m_console.estado.EhSlides())
    return;
  const TemaRecord &tema = m_console.estado.TemaAtual;
  if (tema.Tipo != u"Imagem" || tema.Efeito_Imagem_timeout == u"-1") {
    m_timerTrocaImagem->Stop();
    return;
  }
  const QStringList imagens = tema.Imagem.split(u'|');
  ++m_imagem;
  if (imagens.value(m_imagem - 1).isEmpty())
    m_imagem = 1;
  const QString imagem = imagens.value(m_imagem - 1);
  if (imagem.isEmpty())
    return;
  if (tema.Efeito_Imagem_FxExtra == u"Random") {
    const QString fx = EfeitoCycle(tema.Efeito_Imagem_Fx, tema.Efeito_Imagem_FxExtra, m_console.random);
    CallPageScript(m_console.previa(), QStringLiteral("ChangeOptions"), QStringLiteral("fx"), fx);
    m_console.canal.SendToDisplay(QStringLiteral("ChangeOptions|#fx|#") + fx + u"|#");
  }
  m_console.yielder.Yield(5);
  ExibirImagem(imagem, false);
}

void ThemeControl::ExibirImagem(const QString &path, bool fixed) {
  EstadoConsole &estado = m_console.estado;
  if (fixed) {
    // Twice, so that the cycle of the page has two slides.
    estado.TemaAtual.Imagem = path + u'|' + path + u'|';
    estado.TemaAtual.Efeito_Imagem_timeout = QStringLiteral("-1");
    m_timerTrocaImagem->Stop();
  }
  if (fixed || estado.TemaAtual.Tipo != u"Imagem") {
    DefineTipo(QStringLiteral("Imagem"));
    return;
  }
  CallPageScript(m_console.previa(), QStringLiteral("GotoNextImage"));
  m_console.canal.SendToDisplay(QStringLiteral("GotoNextImage"));
}

void ThemeControl::DefineTipo(const QString &tipo) {
  EstadoConsole &estado = m_console.estado;
  estado.TemaAtual.Tipo = tipo;
  if (tipo != u"Imagem")
    StopRotation();
  MontaPagina(estado.EstrofeAtual);
}

void ThemeControl::PressTile(int n) {
  EstadoConsole &estado = m_console.estado;
  if (n < 1 || n > NumeroDeTemas)
    return;
  if (estado.TipoAtual == u"Slides" || estado.TipoAtual == u"SlideShow") {
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), NaoDuranteSlides);
    return;
  }
  const bool textOnShow = estado.EhLetra() || estado.TipoAtual == u"Bíblia";
  if ((textOnShow || estado.EhVideo()) && n != estado.IndiceTema) {
    estado.ProximoTema = n;
    m_console.painel.PicAvisoProximo = n;
    m_timerProximoTema->Start(TempoDoAviso);
    m_console.Atualiza();
    return;
  }
  ClearQueue();
  if (estado.EhVideo()) {
    AplicaPorTras();
    m_console.Atualiza();
    return;
  }
  bool forcar = true;
  aplicaTema(n, forcar);
}

void ThemeControl::MenuAplicar(int n) {
  const EstadoConsole &estado = m_console.estado;
  if (estado.EhSlideShow() || estado.EhVideo()) {
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                             estado.EhVideo() ? NaoDuranteVideo : NaoDuranteSlides);
    return;
  }
  bool forcar = false;
  aplicaTema(n, forcar);
}

void ThemeControl::TemaSalvo() {
  EstadoConsole &estado = m_console.estado;
  static const QStringList cobrem = {QStringLiteral("Slides"), QStringLiteral("SlideShow"), QStringLiteral("Video"),
                                     QStringLiteral("Youtube")};
  if (!cobrem.contains(estado.TipoAtual)) {
    bool forcar = false;
    aplicaTema(estado.IndiceTema, forcar);
    return;
  }
  AplicaPorTras();
}

// What is on show covers the theme's page, which comes when it has ended.
void ThemeControl::AplicaPorTras() {
  EstadoConsole &estado = m_console.estado;
  m_fundoMudou = true;
  const QString tamanho = estado.TemaAtual.Font_Size;
  estado.TemaAtual = m_temas[static_cast<size_t>(std::clamp(estado.IndiceTema, 1, NumeroDeTemas))];
  estado.TemaAtual.Font_Size = tamanho;
  if (m_console.view)
    m_console.view->ThemesChanged();
  if (RefazFormato)
    RefazFormato();
}

void ThemeControl::SetChkIM(int n, bool ticked) {
  if (n < 1 || n > NumeroDeTemas)
    return;
  m_chkIM[static_cast<size_t>(n)] = ticked;
  if (std::none_of(m_chkIM.begin() + 1, m_chkIM.end(), [](bool b) { return b; })) {
    m_chkIM[static_cast<size_t>(n)] = true;
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                             QStringLiteral("At least one item must remain enabled."));
  }
  if (m_console.view)
    m_console.view->ThemesChanged();
}

void ThemeControl::SetCheckAlteraTemaAleatorio(bool ticked) {
  m_altera = ticked;
  m_console.painel.ChkIMVisible = ticked;
  m_console.Atualiza();
}

void ThemeControl::CarregaEscolhas(const Registro &registro) {
  const QString on = QStringLiteral("1");
  SetCheckAlteraTemaAleatorio(registro.ReadValue(QStringLiteral("CheckAlteraTemaAleatorio"), on) == on);
  for (int n = 1; n <= NumeroDeTemas; ++n)
    m_chkIM[static_cast<size_t>(n)] = registro.ReadValue(NomeDaEscolha(n), on) == on;
  // A store that somebody edited may leave no slot to draw from.
  if (std::none_of(m_chkIM.begin() + 1, m_chkIM.end(), [](bool b) { return b; }))
    m_chkIM[1] = true;
  if (m_console.view)
    m_console.view->ThemesChanged();
}

void ThemeControl::SalvaEscolhas(const Registro &registro) const {
  const auto text = [](bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); };
  for (int n = 1; n <= NumeroDeTemas; ++n)
    registro.WriteValue(NomeDaEscolha(n), text(m_chkIM[static_cast<size_t>(n)]));
  registro.WriteValue(QStringLiteral("CheckAlteraTemaAleatorio"), text(m_altera));
}

} // namespace tolmira
