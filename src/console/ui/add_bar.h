#pragma once

#include <QWidget>

#include "controls/ui/flat_button.h"

namespace tolmira {

// The bar between desk and themes: one button a kind of item, from 0 (Lyrics) to 7 (Notices).
class AddBar : public QWidget {
  Q_OBJECT

public:
  explicit AddBar(QWidget *parent);
};

} // namespace tolmira
