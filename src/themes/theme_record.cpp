#include "themes/theme_record.h"

#include "foundation/text_fields.h"

#include <algorithm>

namespace tolmira {

int ContaImagens(const QString &lista) {
  return static_cast<int>(std::max<qsizetype>(SplitText(lista, QStringLiteral("|")).size() - 1, 0));
}

int IntervaloDoCodigo(const QString &codigo) {
  static constexpr std::array<int, 5> milliseconds = {10000, 15000, 20000, 30000, 60000};
  bool isNumber = false;
  const int position = codigo.toInt(&isNumber);
  if (!isNumber || position < 1 || position > static_cast<int>(milliseconds.size()))
    return 0;
  return milliseconds[static_cast<std::size_t>(position - 1)];
}

} // namespace tolmira
