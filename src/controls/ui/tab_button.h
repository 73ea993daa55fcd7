#pragma once

#include "controls/ui/flat_button.h"

class QLineEdit;

namespace tolmira {

// A tab with a title of the user's own: a double click or F2 opens a line edit in its place. Enter keeps what was
// typed, Esc drops it, and leaving the box keeps it. The owner sets the caption; an empty title is reported too.
class TabButton : public FlatButton {
  Q_OBJECT

public:
  explicit TabButton(QWidget *parent = nullptr);
  void BeginRename();

signals:
  void Renamed(const QString &title);

protected:
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;
  void nextCheckState() override {} // the owner says which tab is chosen

private:
  void EndRename(bool keep);
  QLineEdit *m_editor = nullptr;
};

// Lays five or so tabs in a row. Each gets an equal share while all titles fit; otherwise the chosen one shows its
// title and the others share the rest.
class TabRow : public QWidget {
  Q_OBJECT

public:
  explicit TabRow(QWidget *parent = nullptr);
  void AddTab(TabButton *tab);
  void Arrange();
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  QList<TabButton *> m_tabs;
};

} // namespace tolmira
