#pragma once

#include <QJsonValue>
#include <QString>

#include "app/control_answer.h"

class QWidget;

namespace tolmira {

struct FoundControl;

// Reads and works single controls as a person at the desk would: what is hidden, disabled, covered or behind a modal
// window refuses.

// The caption or content as text; empty for a control without any.
QString TextOf(const QWidget *widget);
// The state: true or false of a check box, the number of a slider, the index of a combo or tab, the text of an edit,
// the chosen text of a list; null for a control without state.
QJsonValue ValueOf(const QWidget *widget);

struct ClickWish {
  QJsonValue item;      // row (from 0) or text of the item in a list, tree, combo or tab bar; undefined for the control
  bool doubled = false;
  bool rightButton = false;
};

ControlAnswer ReadControl(const FoundControl &control);
ControlAnswer ClickControl(const FoundControl &control, const ClickWish &wish);
ControlAnswer SetControl(const FoundControl &control, const QJsonValue &value);
ControlAnswer TypeInto(const FoundControl &control, const QString &text);

} // namespace tolmira
