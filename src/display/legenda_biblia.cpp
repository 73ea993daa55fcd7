#include "display/legenda_biblia.h"

#include "foundation/text_fields.h"

#include <algorithm>

namespace tolmira {

LegendaBiblia CarregaLegendaBiblia(const IniStore &store) {
  const auto read = [&store](const QString &key, const QString &fallback) {
    return store.ReadConfig(QStringLiteral("Legendas Bíblia"), key, fallback);
  };
  const auto colour = [&read](const QString &key, int fallback) {
    const double stored = NumericPrefix(read(key, QString::number(fallback)));
    return static_cast<int>(std::clamp<double>(stored, 0, 0xFFFFFF));
  };
  LegendaBiblia legenda;
  legenda.maiusculas =
      read(QStringLiteral("maiusculas"), QStringLiteral("False")).compare(u"True", Qt::CaseInsensitive) == 0;
  legenda.fontColorTitulo = colour(QStringLiteral("fontColorTitulo"), legenda.fontColorTitulo);
  legenda.backColorTitulo = colour(QStringLiteral("backColorTitulo"), legenda.backColorTitulo);
  return legenda;
}

} // namespace tolmira
