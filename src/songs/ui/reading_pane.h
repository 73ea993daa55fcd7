#pragma once

#include <QPlainTextEdit>

namespace tolmira {

// Shows a text for reading, with the found words marked and the first of them in sight.
class ReadingPane : public QPlainTextEdit {
  Q_OBJECT

public:
  explicit ReadingPane(QWidget *parent);
  void ShowText(const QString &text, const QString &term);
};

// Where `term` stands in `text`, ignoring case as the search does: start and length of each place, at most `most`.
QList<QPair<int, int>> PlacesOf(const QString &term, const QString &text, int most);

} // namespace tolmira
