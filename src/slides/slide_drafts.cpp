#include "slides/slide_drafts.h"

#include "foundation/text_file.h"

#include <QJsonArray>
#include <algorithm>
#include <limits>

namespace tolmira {

namespace {

const QString Kind = QStringLiteral("kind");
const QString Slides = QStringLiteral("slides");
const QString Path = QStringLiteral("path");
const QString Nome = QStringLiteral("name");
const QString Size = QStringLiteral("size");
const QString Modified = QStringLiteral("modified");
const QString Interval = QStringLiteral("Intervalo");
const QString Look = QStringLiteral("look");
const QString Others = QStringLiteral("others");

// The fields of the look that a document has, by the names of the record.
struct TextField {
  const char *name;
  QString TemaRecord::*field;
};
struct TickField {
  const char *name;
  bool TemaRecord::*field;
};
constexpr TextField Texts[] = {{"Font_Name", &TemaRecord::Font_Name},
                               {"Font_Cor", &TemaRecord::Font_Cor},
                               {"FontSombra_Right", &TemaRecord::FontSombra_Right},
                               {"FontSombra_Down", &TemaRecord::FontSombra_Down},
                               {"FontSombra_Blur", &TemaRecord::FontSombra_Blur},
                               {"FontSombra_Opacity", &TemaRecord::FontSombra_Opacity},
                               {"FontSombra_Cor", &TemaRecord::FontSombra_Cor},
                               {"FontBorda_Cor", &TemaRecord::FontBorda_Cor},
                               {"FontBorda_Espessura", &TemaRecord::FontBorda_Espessura},
                               {"Efeito_Imagem_Fx", &TemaRecord::Efeito_Imagem_Fx},
                               {"Efeito_Imagem_FxExtra", &TemaRecord::Efeito_Imagem_FxExtra},
                               {"Efeito_Imagem_speed", &TemaRecord::Efeito_Imagem_speed},
                               {"Efeito_Imagem_sync", &TemaRecord::Efeito_Imagem_sync},
                               {"Efeito_Imagem_delay", &TemaRecord::Efeito_Imagem_delay},
                               {"Efeito_Imagem_easing", &TemaRecord::Efeito_Imagem_easing},
                               {"Efeito_Texto_Fx", &TemaRecord::Efeito_Texto_Fx},
                               {"Efeito_Texto_FxExtra", &TemaRecord::Efeito_Texto_FxExtra},
                               {"Efeito_Texto_FxOut", &TemaRecord::Efeito_Texto_FxOut}};
constexpr TickField Ticks[] = {{"Maiusculas", &TemaRecord::Maiusculas},
                               {"MoveImagens", &TemaRecord::MoveImagens},
                               {"FontSombra_Enabled", &TemaRecord::FontSombra_Enabled},
                               {"FontBorda_Enabled", &TemaRecord::FontBorda_Enabled}};

QJsonObject ToJson(const Slide &slide) {
  return {{QStringLiteral("Imagem"), slide.Imagem},
          {QStringLiteral("Titulo"), slide.Titulo},
          {QStringLiteral("Texto"), slide.Texto},
          {QStringLiteral("Alinhamento"), slide.Alinhamento},
          {QStringLiteral("Espacamento"), slide.Espacamento},
          {QStringLiteral("FontSize"), slide.FontSize},
          {QStringLiteral("incluirTexto"), slide.incluirTexto}};
}

Slide SlideFrom(const QJsonObject &object) {
  const auto number = [&object](const QString &name) {
    using Limits = std::numeric_limits<qint16>;
    return static_cast<qint16>(std::clamp<int>(object[name].toInt(), Limits::min(), Limits::max()));
  };
  return {object[QStringLiteral("Imagem")].toString(), object[QStringLiteral("Titulo")].toString(),
          object[QStringLiteral("Texto")].toString(),  number(QStringLiteral("Alinhamento")),
          number(QStringLiteral("Espacamento")),       number(QStringLiteral("FontSize")),
          number(QStringLiteral("incluirTexto"))};
}

} // namespace

QJsonObject ToJson(const SlideDraft &draft) {
  QJsonArray slides;
  for (const Slide &slide : draft.documento.slides)
    slides.append(ToJson(slide));
  QJsonObject look{{QStringLiteral("CordeFundo"), draft.documento.visual.CordeFundo}};
  for (const TextField &text : Texts)
    look[QLatin1String(text.name)] = draft.documento.visual.*text.field;
  for (const TickField &tick : Ticks)
    look[QLatin1String(tick.name)] = draft.documento.visual.*tick.field;
  QJsonArray others;
  for (const auto &[chave, valor] : draft.documento.outrasChaves)
    others.append(QJsonArray{chave, valor});
  return {{Kind, Slides},
          {Path, draft.path},
          {Nome, draft.nome},
          {Size, draft.arquivo.size},
          {Modified, draft.arquivo.modifiedMs},
          {Interval, draft.documento.Intervalo},
          {Slides, slides},
          {Look, look},
          {Others, others}};
}

std::optional<SlideDraft> SlideDraftFrom(const QJsonObject &object) {
  if (object[Kind].toString() != Slides || !object[Slides].isArray())
    return std::nullopt;
  SlideDraft draft;
  draft.path = object[Path].toString();
  draft.nome = object[Nome].toString();
  draft.arquivo = {object[Size].toInteger(-1), object[Modified].toInteger(-1)};
  SlideDocument &documento = draft.documento;
  documento.Intervalo = object[Interval].toInt();
  for (const QJsonValue &slide : object[Slides].toArray())
    documento.slides.append(SlideFrom(slide.toObject()));
  const QJsonObject look = object[Look].toObject();
  documento.visual.CordeFundo = look[QStringLiteral("CordeFundo")].toInt();
  for (const TextField &text : Texts)
    documento.visual.*text.field = look[QLatin1String(text.name)].toString();
  for (const TickField &tick : Ticks)
    documento.visual.*tick.field = look[QLatin1String(tick.name)].toBool();
  for (const QJsonValue &other : object[Others].toArray())
    documento.outrasChaves.append({other[0].toString(), other[1].toString()});
  return draft;
}

bool DocumentHasChanged(const SlideDraft &draft) {
  return !draft.path.isEmpty() && FileExists(draft.path) && FileStateOf(draft.path) != draft.arquivo;
}

} // namespace tolmira
