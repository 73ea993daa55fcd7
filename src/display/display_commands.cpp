#include "display/display_commands.h"

#include "captions/caption_composer.h"
#include "display/display_channel.h"
#include "display/notice_call.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

#include <QStringList>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int TempoLimiteSegundos = 8;
constexpr int VolumeDoVideo = 50;
constexpr double MaiorAviso = 24 * 60 * 60 * 1000.0; // ms, of an end that a page announces
constexpr double SilencioDepoisMs = 5000;            // the sound is gone this long after the slide show has ended

} // namespace

DisplayCommands::DisplayCommands(EstadoConsole &estado, EstadoLegenda &legenda, const AppFolder &app,
                                 DisplayLayers &layers, PreviewMirror *mirror, Clock &clock)
    : m_estado(estado), m_legenda(legenda), m_app(app), m_layers(layers), m_mirror(mirror),
      m_timerVolume(clock.NewTimer([this] { TickVolume(); })) {}

void DisplayCommands::ProcessaComando(const QString &comando) {
  m_timerVolume->Stop();
  if (comando == u"Fechar") {
    // Nothing of the window may be touched behind this, its visibility included: it may be gone.
    m_layers.Unload();
    return;
  }
  ExecutaVerbo(comando);
  m_layers.SetWindowVisible(m_displayVisivel);
}

// A step that cannot be done (a field is missing, the page does not exist) is left out and the steps behind it still
// run; nothing is reported.
void DisplayCommands::ExecutaVerbo(const QString &comando) {
  struct Verbo {
    QStringView literal; // with the separator at its end: a beginning; without: the whole command
    void (*acao)(DisplayCommands &, QStringList &campos);
  };
  static constexpr Verbo Verbos[] = {
      {u"CarregaTema|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.m_layers.ShowPicwmp(false);
         d.m_layers.wmp()->ControlsStop();
         d.m_layers.wmp()->Close();
         d.m_layers.PicwmpToBack();
         d.Navega(campos[1]);
       }},
      {u"YOUTUBE:|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.Navega(campos[1]);
         d.m_layers.ShowPicWV(true);
         if (d.m_layers.TelaPretaVisible())
           d.m_layers.TelaPretaToFront();
       }},
      {u"PararYoutube", [](DisplayCommands &d, QStringList &) { d.NavegaPaginaVazia(); }},
      {u"Video|#", [](DisplayCommands &d, QStringList &campos) { d.IniciaVideo(campos[1]); }},
      {u"VideoComando|#", [](DisplayCommands &, QStringList &) {}}, // reserved
      {VerboCancelaAviso, [](DisplayCommands &d, QStringList &) { d.CancelaAviso(); }},
      {u"ChangeCSS|#",
       [](DisplayCommands &d, QStringList &campos) { d.ChamaPagina(QStringLiteral("ChangeCSS"), campos, 3); }},
      {u"GotoNextImage",
       [](DisplayCommands &d, QStringList &campos) { d.ChamaPagina(QStringLiteral("GotoNextImage"), campos, 0); }},
      {u"GotoSlideImage|#",
       [](DisplayCommands &d, QStringList &campos) { d.ChamaPagina(QStringLiteral("GotoSlideImage"), campos, 1); }},
      {u"UpdateText|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.ChamaPagina(QStringLiteral("UpdateTextHtml"), campos, 1);
         d.AtualizaLegenda(campos);
       }},
      {u"UpdateImagesInHtml|#",
       [](DisplayCommands &d, QStringList &campos) {
         CallPageScript(d.m_layers.WV(), QStringLiteral("ChangeinnerHTML"), QStringLiteral("slideshow"), campos[1]);
         CallPageScript(d.m_layers.WV(), QStringLiteral("StartCycle"));
       }},
      // The bridge does not know this name, so nothing reaches the page; who needs that function calls it directly.
      {u"SetAttributeByClass|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.ChamaPagina(QStringLiteral("SetAttributeByClass"), campos, 3);
       }},
      {u"SetAtributo|#",
       [](DisplayCommands &d, QStringList &campos) { d.ChamaPagina(QStringLiteral("SetAttribute"), campos, 3); }},
      {u"ChangeOptions|#",
       [](DisplayCommands &d, QStringList &campos) { d.ChamaPagina(QStringLiteral("ChangeOptions"), campos, 2); }},
      {VerboAviso, [](DisplayCommands &d, QStringList &campos) { d.ExibeAviso(campos); }},
      {u"Normal",
       [](DisplayCommands &d, QStringList &) {
         d.MostraSoAPagina();
         CallPageScript(d.m_layers.WV(), QStringLiteral("ChangeCSS"), QStringLiteral("texto"),
                        QStringLiteral("display"), QStringLiteral("block"));
         d.m_displayVisivel = true;
       }},
      {u"OcultarTexto",
       [](DisplayCommands &d, QStringList &) {
         d.MostraSoAPagina();
         d.m_displayVisivel = true;
       }},
      {u"TelaPreta|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.m_displayVisivel = true;
         d.DefineFundoPadrao(QString());
         d.DefineTelaPreta(campos[1].toLower() == u"true");
       }},
      {u"PadraDeFundo|#",
       [](DisplayCommands &d, QStringList &campos) {
         d.DefineTelaPreta(false);
         d.DefineFundoPadrao(campos[1]);
         d.m_displayVisivel = true;
       }},
      {u"Hide",
       [](DisplayCommands &d, QStringList &) {
         d.MostraSoAPagina();
         d.m_displayVisivel = false;
       }},
      {u"NoTopMost", [](DisplayCommands &d, QStringList &) { d.m_layers.SetTopmost(false); }},
      {u"Show", [](DisplayCommands &d, QStringList &) { d.MostraJanela(); }},
      {u"Position|#", [](DisplayCommands &d, QStringList &) { d.MostraJanela(); }},
  };

  for (const Verbo &verbo : Verbos) {
    const bool comCampos = verbo.literal.endsWith(u"|#");
    if (comCampos ? !comando.startsWith(verbo.literal) : comando != verbo.literal)
      continue;
    // A verb that is recognised with its separator has at least the field behind it.
    QStringList campos = comando.split(QStringLiteral("|#"));
    verbo.acao(*this, campos);
    return;
  }
}

void DisplayCommands::ChamaPagina(const QString &nome, QStringList &campos, int quantos) {
  if (campos.size() <= quantos)
    return;
  const auto campo = [&](int n) { return n <= quantos ? campos[n] : QString(); };
  QString a1 = campo(1);
  CallPageScript(m_layers.WV(), nome, a1, campo(2), campo(3), campo(4), campo(5), campo(6), campo(7));
}

// A page from the net has no notices, and what lies under the media is not seen: there the page above the layers runs
// them. While that one is there it goes on doing so, so that a new notice takes the place of the one before.
void DisplayCommands::ExibeAviso(const QStringList &campos) {
  if (campos.size() < CamposDoAviso)
    return;
  const int meu = ++m_avisos;
  if (campos[1].isEmpty()) { // takes one away, wherever it runs
    m_avisoNaPagina = false;
    PassaAviso(m_layers.WV(), campos);
    return PassaAviso(m_layers.WVAviso(false), campos);
  }
  if (m_paginaDaRede || m_layers.PicwmpVisible() || m_layers.WVAviso(false))
    return PassaAviso(m_layers.WVAviso(true), campos);
  PageObject *pagina = m_layers.WV();
  if (!pagina)
    return;
  PassaAviso(pagina, campos);
  m_avisoNaPagina = true;
  // A page that somebody made, or one that could not be loaded, may have no such function.
  pagina->Evaluate(QStringLiteral("typeof ExibeAviso === 'function'"),
                   [this, campos, meu, vivo = std::weak_ptr(m_vivo)](const QString &json) {
                     if (!vivo.expired() && meu == m_avisos && json != u"true")
                       PassaAviso(m_layers.WVAviso(true), campos);
                   });
}

void DisplayCommands::CancelaAviso() {
  ++m_avisos;
  m_avisoNaPagina = false;
  TiraAviso(m_layers.WV());
  TiraAviso(m_layers.WVAviso(false));
}

// A notice has nothing to do with the item on show: it goes on above the next page where it is on this one.
void DisplayCommands::PaginaVaiEmbora() {
  if (!std::exchange(m_avisoNaPagina, false))
    return;
  const auto continua = [this, meu = m_avisos, vivo = std::weak_ptr(m_vivo)](const QString &json) {
    if (vivo.expired() || meu != m_avisos || json == u"null")
      return;
    if (PageObject *acima = m_layers.WVAviso(true))
      acima->ExecuteScript(u"ContinuaAviso(" + json + u")");
  };
  m_layers.WV()->Evaluate(QStringLiteral("AvisoEmCurso()"), continua);
}

void DisplayCommands::Navega(const QString &url) {
  m_paginaDaRede = url.contains(u"://") && !url.startsWith(u"file:", Qt::CaseInsensitive);
  if (PageObject *pagina = m_layers.WV())
    pagina->Navigate(url, TempoLimiteSegundos);
}

void DisplayCommands::NavegaPaginaVazia() {
  Navega(m_app.At(u"\\html\\emptyback.html"));
}

void DisplayCommands::IniciaVideo(const QString &caminho) {
  PreparaVideo();
  NavegaPaginaVazia();
  m_layers.ShowPicwmp(true);
  m_layers.ShowWmp(true);
  MediaPlayer *wmp = m_layers.wmp();
  wmp->ControlsStop();
  wmp->Close();
  wmp->SetUrl(caminho);
  wmp->ControlsPlay();
  wmp->SetFullScreen(true);
  m_layers.PicWVToBack();
}

void DisplayCommands::MostraSoAPagina() {
  DefineTelaPreta(false);
  DefineFundoPadrao(QString());
}

void DisplayCommands::MostraJanela() {
  m_layers.SetWindowVisible(true);
  m_layers.SetTopmost(true);
  m_displayVisivel = true;
}

// The caption stays as it was where the command lacks the field that it is made of.
void DisplayCommands::AtualizaLegenda(const QStringList &campos) {
  if (m_estado.TipoAtual == u"Bíblia") {
    if (campos.size() > 3)
      m_legenda.TextoLegenda = ComposeLegendaBiblia(m_legenda.Biblia, campos[2], campos[3], m_estado.VersaoBiblia);
  } else if (m_estado.EhLetra()) {
    if (campos.size() > 4)
      m_legenda.TextoLegenda = ComposeLegendaLetra(m_legenda.Letras, campos[4]);
  } else {
    m_legenda.TextoLegenda.clear();
  }
}

void DisplayCommands::DefineTelaPreta(bool ligado) {
  if (m_mirror)
    m_mirror->FitMirror();
  m_layers.StopGripTimer();
  m_layers.ShowTelaPreta(ligado);
  m_layers.TelaPretaToFront();
  if (m_mirror)
    m_mirror->ShowMirrorBlack(ligado);
  m_layers.PicMoveToFront();
}

void DisplayCommands::DefineFundoPadrao(const QString &caminho) {
  const bool ligado = !caminho.isEmpty();
  if (ligado) {
    m_layers.LoadImagePadrao(caminho);
    if (m_mirror)
      m_mirror->LoadMirrorPicture(caminho);
  }
  m_layers.ShowImagePadrao(ligado);
  m_layers.ShowTelaPreta(ligado);
  if (m_mirror) {
    m_mirror->ShowMirrorBlack(ligado);
    m_mirror->ShowMirrorPicture(ligado);
  }
  if (ligado) {
    // The black lies right under the picture, so that nothing shows at the sides of one with another aspect.
    m_layers.TelaPretaToFront();
    m_layers.ImagePadraoToFront();
  }
  m_layers.PicMoveToFront();
}

void DisplayCommands::PreparaVideo() {
  m_layers.FitMedia();
  m_layers.ShowWmp(true);
  m_layers.wmp()->SetStretchToFit(true);
  m_layers.wmp()->SetVolume(VolumeDoVideo);
  m_timerVolume->Stop();
}

void DisplayCommands::AoNavegar(const QString &uri, bool &cancel) {
  cancel = true;
  if (m_paginaDaRede) // what it goes to is no report of ours
    return;
  const QString endereco = UrlDecode(uri);
  const qsizetype corte = endereco.indexOf(u'?');
  if (corte < 0)
    return;
  const QStringView destino = QStringView(endereco).left(corte);
  const QString valor = endereco.mid(corte + 1);
  if (destino == u"http://image/") {
    if (OnImageName)
      OnImageName(valor);
  } else if (destino == u"http://webcam//") {
    if (OnCamera)
      OnCamera(uri);
  } else if (destino == u"http://vaiacabar/") {
    const double ms = NumericPrefix(valor);
    IniciaRampa(ms);
    if (OnShowEnding)
      OnShowEnding(RoundHalfEven(std::clamp(ms, 0.0, MaiorAviso)));
  }
}

void DisplayCommands::IniciaRampa(double fimEmMs) {
  const int volume = m_layers.wmp()->Volume();
  if (volume < 10) {
    // So quiet a sound is not worth a ramp.
    m_timerVolume->Start(10);
    m_timerVolume->Stop();
    return;
  }
  m_timerVolume->Start(RoundHalfEven((fimEmMs + SilencioDepoisMs) / volume));
}

void DisplayCommands::TickVolume() {
  MediaPlayer *wmp = m_layers.wmp();
  const int volume = wmp->Volume();
  if (volume == 2)
    m_timerVolume->Start(1000); // the last steps are slow, or the end would be heard as a cut
  if (volume < 1) {
    m_timerVolume->Stop();
    wmp->SetVolume(0);
    wmp->ControlsStop();
  } else {
    wmp->SetVolume(volume - 1);
  }
}

void DisplayCommands::AoPermissao(int kind, int &state) {
  constexpr int Camera = 2;
  constexpr int Permitir = 1;
  constexpr int Padrao = 0;
  state = kind == Camera ? Permitir : Padrao;
}

} // namespace tolmira
