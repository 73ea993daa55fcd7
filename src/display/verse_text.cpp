#include "display/verse_text.h"

#include <QRegularExpression>

namespace tolmira {

QString TextoParaPagina(QString verso) {
  static const QRegularExpression loneLineEnd(QStringLiteral("\\r(?!\\n)|(?<!\\r)\\n|[\\x{2028}\\x{2029}]"));
  static const QRegularExpression ampersand(
      QStringLiteral("&(?=[A-Za-z#])(?!(?:[A-Za-z][A-Za-z0-9]*|#[0-9]+|#[xX][0-9A-Fa-f]+);)"));
  static const QRegularExpression backslash(QStringLiteral("\\\\(?!')"));
  // The one common reference that a song in capitals would spoil.
  const QString blank = QStringLiteral("&nbsp;");
  verso.replace(blank, blank, Qt::CaseInsensitive);
  verso.replace(loneLineEnd, QStringLiteral(" "));
  verso.replace(ampersand, QStringLiteral("&amp;"));
  verso.replace(backslash, QStringLiteral("&#92;")); // behind the ampersands, whose references are its own
  return SemSeparador(std::move(verso));
}

QString SemSeparador(QString texto) { return texto.replace(QStringLiteral("|#"), QStringLiteral("&#124;#")); }

} // namespace tolmira
