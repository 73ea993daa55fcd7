#pragma once

#include <QTreeWidget>

namespace tolmira {

// A list of rows with columns and no branches, which says something in its middle while it is empty.
class RowList : public QTreeWidget {
  Q_OBJECT

public:
  RowList(const QStringList &headings, QWidget *parent);
  void SetEmptyText(const QString &text);

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QString m_emptyText;
};

} // namespace tolmira
