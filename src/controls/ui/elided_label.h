#pragma once

#include <QLabel>

namespace tolmira {

// One line of plain text that ends in an ellipsis when its place is too narrow; `text()` stays whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

public:
  explicit ElidedLabel(QWidget *parent = nullptr);
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent *event) override;
};

} // namespace tolmira
