#include "console/effect_controls.h"

#include "console/bible_loader.h"
#include "console/control_slides.h"
#include "console/song_loader.h"
#include "console/theme_control.h"
#include "display/effects.h"
#include "foundation/text_utils.h"

#include <algorithm>

namespace tolmira {

namespace {

// The variant that stands after a change of the family: the one that stood before when the new family has it too, else
// "Random"; none for a family without variants.
QString VarianteDe(GrupoEfeito grupo, const QString &familia, const QString &antes) {
  const QStringList variantes = VariantesDeEfeito(grupo, familia, DirecaoEfeito::In);
  if (variantes.isEmpty())
    return {};
  return variantes.contains(antes) ? antes : QStringLiteral("Random");
}

} // namespace

EffectControls::EffectControls(ConsoleContext &console, ThemeControl &temas, SongLoader &loader, BibleLoader &leitura,
                               ControlSlides &slides)
    : m_console(console), m_temas(temas), m_loader(loader), m_leitura(leitura), m_slides(slides) {}

const TemaRecord &EffectControls::Visual() const {
  return m_slides.Visible() ? m_slides.Visual() : m_console.estado.TemaAtual;
}

TemaRecord &EffectControls::Visual() {
  return m_slides.Visible() ? m_slides.Visual() : m_console.estado.TemaAtual;
}

void EffectControls::Terminou() {
  if (m_console.view && (m_console.faixa.Label1Visible || m_slides.Visible()))
    m_console.view->FocusStrip();
}

void EffectControls::ComboEfeitoImagem(const QString &familia) {
  if (!Carregado())
    return;
  TemaRecord &tema = Visual();
  tema.Efeito_Imagem_Fx = familia;
  ComboEfeitoImagemExtra(VarianteDe(GrupoEfeito::Imagem, familia, tema.Efeito_Imagem_FxExtra));
}

void EffectControls::ComboEfeitoImagemExtra(const QString &variante) {
  if (!Carregado())
    return;
  Visual().Efeito_Imagem_FxExtra = variante;
  EnviaEfeitoDaImagem();
  updateEfeitos2();
  Terminou();
}

// One draw for both pages, so that a "Random" shows the operator what the congregation sees.
void EffectControls::EnviaEfeitoDaImagem(Alvo alvo) {
  const TemaRecord &tema = Visual();
  const QString fx = EfeitoCycle(tema.Efeito_Imagem_Fx, tema.Efeito_Imagem_FxExtra, m_console.random);
  if (alvo != Alvo::Telao)
    CallPageScript(m_console.previa(), QStringLiteral("ChangeOptions"), QStringLiteral("fx"), fx);
  if (alvo != Alvo::Previa)
    m_console.canal.SendToDisplay(u"ChangeOptions|#fx|#" + fx + u"|#");
}

void EffectControls::ComboEfeitoTexto(const QString &familia) {
  if (!Carregado())
    return;
  TemaRecord &tema = Visual();
  tema.Efeito_Texto_Fx = familia;
  ComboEfeitoTextoExtra(VarianteDe(GrupoEfeito::Texto, familia, tema.Efeito_Texto_FxExtra));
}

// Nothing is sent: the verse on show stays as it is, and the next one comes in with this effect.
void EffectControls::ComboEfeitoTextoExtra(const QString &variante) {
  if (!Carregado())
    return;
  Visual().Efeito_Texto_FxExtra = variante;
  updateEfeitos2();
  Terminou();
}

void EffectControls::ChkMoveImagem(bool ligado) {
  const EstadoConsole &estado = m_console.estado;
  const bool pode = Carregado() && estado.TipoAtual != u"Slides" && !estado.ImagensCongeladas;
  if (pode && ligado != estado.TemaAtual.MoveImagens) {
    m_console.estado.TemaAtual.MoveImagens = ligado;
    EnviaMovimento();
  }
  updateEfeitos2(); // a tick that was refused goes away again
  Terminou();
}

bool EffectControls::ImagemDaGaleria(const QString &path, bool move) {
  EstadoConsole &estado = m_console.estado;
  if (!Carregado())
    return false;
  if (estado.EhSlides() || estado.EhSlideShow() || estado.EhVideo()) {
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                             estado.EhVideo() ? NaoDuranteVideo : NaoDuranteSlides);
    return false;
  }
  estado.FundoPreso = true;
  ChkMoveImagem(move);
  m_temas.ExibirImagem(path, true);
  updateEfeitos2();
  return true;
}

void EffectControls::EnviaMovimento(Alvo alvo) {
  m_console.SetPageStyle(QStringLiteral("img"), QStringLiteral("animation-play-state"),
                         Visual().MoveImagens ? QStringLiteral("running") : QStringLiteral("paused"), alvo);
}

void EffectControls::ChkFadeImagem(bool ligado) {
  m_console.ajustes.FadeImagem = ligado;
  Terminou();
}

void EffectControls::ChkZoomImagem(bool ligado) {
  m_console.ajustes.ZoomImagem = ligado;
  Terminou();
}

void EffectControls::ChkFadeTexto(bool ligado) {
  m_console.ajustes.FadeTexto = ligado;
  Terminou();
}

void EffectControls::ChkZoomTexto(bool ligado) {
  m_console.ajustes.ZoomTexto = ligado;
  Terminou();
}

void EffectControls::slider1(int porCento) {
  if (!Carregado())
    return;
  Visual().brightness = std::clamp(porCento, 0, MaiorFiltro);
  updateEfeitos();
}

void EffectControls::slider3(int porCento) {
  if (!Carregado())
    return;
  Visual().contrast = std::clamp(porCento, 0, MaiorFiltro);
  updateEfeitos();
}

void EffectControls::slider4(int porCento) {
  if (!Carregado())
    return;
  Visual().saturate = std::clamp(porCento, 0, MaiorFiltro);
  updateEfeitos();
}

void EffectControls::slider5(int pixels) {
  if (!Carregado())
    return;
  Visual().blur = std::clamp(pixels, 0, MaiorDesfoque);
  updateEfeitos();
}

void EffectControls::updateEfeitos(Alvo alvo) {
  const TemaRecord &tema = Visual();
  m_console.ScriptNasPaginas(QStringLiteral("SetAttributeByClass('efeitos','style','filter: blur(%1px) brightness(%2%) "
                                            "contrast(%3%) saturate(%4%)')")
                                 .arg(tema.blur)
                                 .arg(tema.brightness)
                                 .arg(tema.contrast)
                                 .arg(tema.saturate),
                             alvo);
}

void EffectControls::updateEfeitos2() {
  if (m_console.view)
    m_console.view->ThemesChanged();
}

void EffectControls::SelectColors1() {
  EstadoConsole &estado = m_console.estado;
  if (!Carregado())
    return;
  const std::optional<qint32> cor =
      m_console.prompt.PickColour(QStringLiteral("Background colour"), Visual().CordeFundo);
  if (cor && estado.EhSlides()) { // whose background is the picture
    Visual().CordeFundo = *cor;
    updateEfeitos2();
  } else if (cor) {
    estado.TemaAtual.CordeFundo = *cor;
    const bool atras = estado.EhSlideShow() || estado.EhVideo(); // whose page stays; the colour is there behind it
    if (estado.TemaAtual.Tipo != u"CorDeFundo") {
      if (atras)
        m_temas.DefineFundoMudou(true);
      else
        m_temas.DefineTipo(QStringLiteral("CorDeFundo"));
    }
    estado.TemaAtual.Tipo = QStringLiteral("CorDeFundo");
    if (!estado.EhVideo() || estado.PaginaDeTexto())
      EnviaCorDeFundo();
    updateEfeitos2();
    m_console.Atualiza();
  }
  Terminou();
}

void EffectControls::EnviaCorDeFundo(Alvo alvo) {
  m_console.ChamaPaginas(QStringLiteral("SetAttribute"), QStringLiteral("wheader"), QStringLiteral("style"),
                         u"background-color:" + ColorToHex(m_console.estado.TemaAtual.CordeFundo), alvo);
}

void EffectControls::ComboFontes(const QString &fonte) {
  if (!Carregado() || fonte.isEmpty() || fonte == Visual().Font_Name)
    return;
  Visual().Font_Name = fonte;
  EnviaFonte();
  // Another font has other widths: what is on show is fitted anew.
  m_loader.RecarregaMusica(true);
  m_leitura.RecarregaVersiculo(true);
  updateEfeitos2();
  Terminou();
}

// The one property, not the whole style: text that is hidden stays hidden.
void EffectControls::EnviaFonte(Alvo alvo) {
  m_console.SetPageStyle(QStringLiteral("texto"), QStringLiteral("font-family"),
                         u'"' + EscapaApostrofos(Visual().Font_Name) + u'"', alvo);
}

void EffectControls::PaginaVoltou(Alvo qual) {
  const EstadoConsole &estado = m_console.estado;
  const bool slides = estado.EhSlides() && estado.PaginaDeSlides();
  if (!estado.PaginaDeTexto() && !slides)
    return;
  EnviaFonte(qual);
  updateEfeitos(qual);
  if (!slides && estado.TemaAtual.Tipo == u"CorDeFundo")
    EnviaCorDeFundo(qual);
  if (!slides && estado.TemaAtual.Tipo != u"Imagem")
    return;
  EnviaEfeitoDaImagem(qual);
  if (!estado.ImagensCongeladas)
    EnviaMovimento(qual);
}

} // namespace tolmira
