#pragma once

#include <QListWidget>

namespace tolmira {

// A list that says in its middle what it is for while it has no rows.
class ResultList : public QListWidget {
  Q_OBJECT

public:
  explicit ResultList(QWidget *parent) : QListWidget(parent) {}
  void SetEmptyText(const QString &text);

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QString m_emptyText;
};

} // namespace tolmira
