#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace tolmira {

// One theme as a button: its picture or colour, its number, how many pictures it has, and whether it is a video.
class ThemeTile : public QAbstractButton {
  Q_OBJECT

public:
  struct Content {
    QPixmap picture; // null: the colour stands alone
    QColor colour;
    QString count; // "3 Imagens"; empty for none
    bool video = false;
  };

  ThemeTile(int number, QWidget *parent);
  void SetContent(const Content &content);
  const Content &Shown() const { return m_content; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

signals:
  void MenuWanted(const QPoint &globalPos);

protected:
  void paintEvent(QPaintEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;
  void enterEvent(QEnterEvent *event) override;
  void leaveEvent(QEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;

private:
  int m_number;
  Content m_content;
};

} // namespace tolmira
