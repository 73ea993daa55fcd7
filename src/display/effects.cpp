#include "display/effects.h"

#include <algorithm>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tolmira {

const QString ListaEfeitosSelecionados = QStringLiteral(
    "efeitoZoom,efeitoSurgeY,efeitoRotate,efeitoZoomOut,efeitoZoomOutAndRotate2,efeitoPulse,efeitoEstica,efeitoEsticaY,"
    "efeitoZoom,efeitoSurgeY,efeitoEsquize,efeitoRotate,efeitoZoomOut,efeitoZoomInAndRotate,efeitoZoomOutAndRotate,"
    "efeitoZoomOutAndRotate2,efeitoPulse,efeitoEstica,efeitoEsticaY");

namespace {

struct Variante {
  QString nome;
  QString resultado;
};

// The tables stand in the order of the combo boxes. A family has either a result of its own or variants. With variants,
// "Random" is one more; it draws from the variants' results unless the family brings a list.
struct Familia {
  QString nome;
  QString resultado;
  std::vector<Variante> variantes = {};
  QString listaDoSorteio = {};
};

const QString Random = QStringLiteral("Random");

const std::vector<Familia> &FamiliasDeImagem() {
  static const std::vector<Familia> familias = {
      {u"none"_s, {}},
      {u"Cover"_s, {}, {{u"Cover In"_s, u"cover"_s}, {u"Cover Out"_s, u"uncover"_s}}},
      {u"Curtain"_s, {}, {{u"Curtain X"_s, u"curtainX"_s}, {u"Curtain Y"_s, u"curtainY"_s}}},
      {u"Fade"_s, u"fade"_s},
      {u"Fade Zoom"_s, u"fadeZoom"_s},
      {u"Grow"_s, {}, {{u"Grow X"_s, u"growX"_s}, {u"Grow Y"_s, u"growY"_s}}},
      {u"Scroll"_s,
       {},
       {{u"Scroll Up"_s, u"scrollUp"_s},
        {u"Scroll Down"_s, u"scrollDown"_s},
        {u"Scroll Left"_s, u"scrollLeft"_s},
        {u"Scroll Right"_s, u"scrollRight"_s}}},
      {u"Shuffle"_s, u"shuffle"_s},
      {u"Slide"_s, {}, {{u"Slide X"_s, u"slideX"_s}, {u"Slide Y"_s, u"slideY"_s}}},
      {u"Toss"_s, u"toss"_s},
      {u"Turn"_s,
       {},
       {{u"Turn Up"_s, u"turnUp"_s},
        {u"Turn Down"_s, u"turnDown"_s},
        {u"Turn Left"_s, u"turnLeft"_s},
        {u"Turn Right"_s, u"turnRight"_s}}},
  };
  return familias;
}

const std::vector<Familia> &FamiliasDeTexto() {
  static const std::vector<Familia> familias = {
      {u"none"_s, {}},
      {u"Selecionados"_s,
       {},
       {{u"effect 1"_s, u"efeitoZoom"_s},
        {u"effect 2"_s, u"efeitoSurgeY"_s},
        {u"effect 3"_s, u"efeitoEsquize"_s},
        {u"effect 4"_s, u"efeitoRotate"_s},
        {u"effect 5"_s, u"efeitoZoomOut"_s},
        {u"effect 6"_s, u"efeitoZoomInAndRotate"_s},
        {u"effect 7"_s, u"efeitoZoomOutAndRotate"_s},
        {u"effect 8"_s, u"efeitoPulse"_s},
        {u"effect 9"_s, u"efeitoEstica"_s},
        {u"effect 10"_s, u"efeitoEsticaY"_s}},
       ListaEfeitosSelecionados},
      {u"Pulse"_s, u"pulse"_s},
      {u"Bounce"_s, u"bounceIn"_s},
      {u"BounceIn"_s,
       {},
       {{u"BounceIn Up"_s, u"bounceInUp"_s},
        {u"BounceIn Down"_s, u"bounceInDown"_s},
        {u"BounceIn Left"_s, u"bounceInLeft"_s},
        {u"BounceIn Right"_s, u"bounceInRight"_s}}},
      {u"Fade"_s, u"fadeIn"_s},
      {u"FadeIn"_s,
       {},
       {{u"FadeIn Up"_s, u"fadeInUp"_s},
        {u"FadeIn Down"_s, u"fadeInDown"_s},
        {u"FadeIn Left"_s, u"fadeInLeft"_s},
        {u"FadeIn Right"_s, u"fadeInRight"_s}}},
      {u"Flip"_s, u"flipInY"_s},
      {u"LightIn"_s, u"lightSpeedIn"_s},
      {u"Rotate"_s, u"rotateIn"_s},
      {u"RotateIn"_s,
       {},
       {{u"RotateIn DownLeft"_s, u"rotateInDownLeft"_s},
        {u"RotateIn DownRight"_s, u"rotateInDownRight"_s},
        {u"RotateIn UpLeft"_s, u"rotateInUpLeft"_s},
        {u"RotateIn UpRight"_s, u"rotateInUpRight"_s}}},
      {u"JackInTheBox"_s, u"jackInTheBox"_s},
      {u"Roll"_s, u"rollIn"_s},
      {u"Zoom"_s, u"zoomIn"_s},
      {u"ZoomIn"_s,
       {},
       {{u"ZoomIn Up"_s, u"zoomInUp"_s},
        {u"ZoomIn Down"_s, u"zoomInDown"_s},
        {u"ZoomIn Left"_s, u"zoomInLeft"_s},
        {u"ZoomIn Right"_s, u"zoomInRight"_s}}},
      {u"SlideIn"_s, {}, {{u"SlideIn Left"_s, u"slideInLeft"_s}, {u"SlideIn Right"_s, u"slideInRight"_s}}},
  };
  return familias;
}

QStringList SaidasDeTexto() {
  return QStringLiteral("none,bounceOut,bounceOutDown,bounceOutLeft,bounceOutRight,bounceOutUp,fadeOut,fadeOutDown,"
                        "fadeOutDownBig,fadeOutLeft,fadeOutLeftBig,fadeOutRight,fadeOutRightBig,fadeOutUp,fadeOutUpBig,"
                        "flipOutX,flipOutY,lightSpeedOut,rotateOut,rotateOutDownLeft,rotateOutDownRight,"
                        "rotateOutUpLeft,rotateOutUpRight,rollOut,zoomOut,zoomOutDown,zoomOutLeft,zoomOutRight,"
                        "zoomOutUp,slideOutDown,slideOutLeft,slideOutRight,slideOutUp")
      .split(u',');
}

const std::vector<Familia> &FamiliasDoGrupo(GrupoEfeito grupo) {
  return grupo == GrupoEfeito::Imagem ? FamiliasDeImagem() : FamiliasDeTexto();
}

const Familia *Procura(GrupoEfeito grupo, const QString &nome) {
  const std::vector<Familia> &familias = FamiliasDoGrupo(grupo);
  const auto found =
      std::find_if(familias.begin(), familias.end(), [&](const Familia &familia) { return familia.nome == nome; });
  return found == familias.end() ? nullptr : &*found;
}

QString ListaDoSorteio(const Familia &familia) {
  if (!familia.listaDoSorteio.isEmpty())
    return familia.listaDoSorteio;
  QStringList results;
  for (const Variante &variante : familia.variantes)
    results << variante.resultado;
  return results.join(u',');
}

QString Resultado(GrupoEfeito grupo, const QString &nome, const QString &nomeDaVariante, RandomSource &random) {
  const Familia *familia = Procura(grupo, nome);
  if (!familia)
    return {};
  if (familia->variantes.empty())
    return familia->resultado;
  if (nomeDaVariante == Random)
    return SorteiaEfeito(ListaDoSorteio(*familia), random);
  for (const Variante &variante : familia->variantes) {
    if (variante.nome == nomeDaVariante)
      return variante.resultado;
  }
  return {};
}

} // namespace

QStringList FamiliasDeEfeito(GrupoEfeito grupo, DirecaoEfeito direcao) {
  if (grupo == GrupoEfeito::Texto && direcao == DirecaoEfeito::Out)
    return SaidasDeTexto();
  QStringList names;
  for (const Familia &familia : FamiliasDoGrupo(grupo))
    names << familia.nome;
  return names;
}

QStringList VariantesDeEfeito(GrupoEfeito grupo, const QString &familia, DirecaoEfeito direcao) {
  if (grupo == GrupoEfeito::Texto && direcao == DirecaoEfeito::Out)
    return {};
  const Familia *found = Procura(grupo, familia);
  if (!found || found->variantes.empty())
    return {};
  QStringList names;
  for (const Variante &variante : found->variantes)
    names << variante.nome;
  return names << Random;
}

QString EfeitoCycle(const QString &familia, const QString &variante, RandomSource &random) {
  return Resultado(GrupoEfeito::Imagem, familia, variante, random);
}

QString EfeitoTexto(const QString &familia, const QString &variante, RandomSource &random) {
  return Resultado(GrupoEfeito::Texto, familia, variante, random);
}

QString SorteiaEfeito(const QString &lista, RandomSource &random) {
  const QStringList effects = lista.split(u',');
  const auto drawn = static_cast<qsizetype>(random.Draw() * static_cast<double>(effects.size()));
  return effects[std::clamp<qsizetype>(drawn, 0, effects.size() - 1)];
}

QString ExtrasDeEntrada(const AjustesTexto &ajustes) {
  return (ajustes.FadeTexto ? u" comFade"_s : QString()) + (ajustes.ZoomTexto ? u" comZoom"_s : QString());
}

QString ClassesDeEntrada(const QString &fx, const AjustesTexto &ajustes) {
  return u"animated " + fx + u" faster" + ExtrasDeEntrada(ajustes);
}

} // namespace tolmira
