#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QIcon>

namespace tolmira {

// A row that stands for one state: icon, caption, and the key that reaches it. While chosen it carries its own colour.
// A press never changes what is chosen; the owner does.
class StateButton : public QAbstractButton {
  Q_OBJECT

public:
  StateButton(const QString &caption, QLatin1String drawing, QRgb colour, QWidget *parent);
  void SetKeyHint(const QString &hint);
  void SetCompact(bool compact); // icon and key only, for a row of states
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent *event) override;
  void nextCheckState() override {}
  void enterEvent(QEnterEvent *event) override;
  void leaveEvent(QEvent *event) override;

private:
  QColor m_colour;
  QIcon m_icon;
  QIcon m_iconChosen;
  QString m_hint;
  bool m_compact = false;
};

} // namespace tolmira
