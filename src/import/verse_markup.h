#pragma once

#include <QString>

namespace tolmira {

enum class VerseMarkup {
  None,     // the text as it stands
  Elements, // OSIS, ThML and TEI: elements with attributes, entities
  Gbf,      // the General Bible Format: "<WG1063>", "<RF>note<Rf>"
};

// A verse as it is shown: one line without notes, headings, psalm titles, Strong's numbers, other markup or pilcrows,
// blanks single and none at the ends. Where a source leaves out the blank beside a note or an added word, it is put
// back. "<" and
// ">" of the text itself become the angle quotes of the same look, since ">" would end a chapter. Added words stay; the
// name of God that a source marks as such is in capitals.
QString PlainVerse(const QString &entry, VerseMarkup markup);

} // namespace tolmira
