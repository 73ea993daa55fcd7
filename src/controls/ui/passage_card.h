#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

namespace tolmira {

// A passage in its frame: the reference over the text, which is drawn as large as it fits, and a tip under the frame. A
// mark at the frame's edge tells by its colour what the projection does with it.
class PassageCard : public QWidget {
  Q_OBJECT

public:
  struct Content {
    QString text;
    QString reference;
    QString version;
    QString tip;
    Qt::Alignment alignment = Qt::AlignLeft;
    bool large = false; // the text; it still has to fit
    QColor mark; // none when it is not valid
    friend bool operator==(const Content &, const Content &) = default;
  };

  explicit PassageCard(QWidget *parent = nullptr);
  void SetContent(const Content &content);
  void SetFrame(const QRectF &frame);

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QFont TextFont(const QSizeF &room) const;

  Content m_content;
  QRectF m_frame;
};

} // namespace tolmira
