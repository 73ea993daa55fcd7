#include "app/control_hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDoubleSpinBox>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeView>

#include "app/control_item_views.h"
#include "app/control_keys.h"
#include "app/control_windows.h"

namespace tolmira {

namespace {

ControlAnswer Refused(const QWidget *widget, const QString &why) {
  return ControlAnswer::Failed(QStringLiteral("\"%1\" %2").arg(NameOf(widget), why));
}

// Why a person could not work this control now; empty when nothing is in the way.
QString Obstacle(const QWidget *widget) {
  if (!widget->isVisible())
    return QStringLiteral("is not visible");
  if (!widget->isEnabled())
    return QStringLiteral("is not enabled");
  const QWidget *box = OpenBox();
  if (box && box != widget->window())
    return QStringLiteral("is behind the open window \"%1\"").arg(NameOf(box));
  return {};
}

void ScrollTo(QWidget *widget) {
  for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget())
    if (auto *area = qobject_cast<QScrollArea *>(parent))
      area->ensureWidgetVisible(widget, 0, 0);
}

// Where a person would aim: on the box and caption of a check box, which may be wider than they are.
QPoint AimAt(const QWidget *widget) {
  if (qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget)) {
    const bool check = qobject_cast<const QCheckBox *>(widget);
    QStyleOptionButton option;
    option.initFrom(widget);
    option.text = static_cast<const QAbstractButton *>(widget)->text();
    return widget->style()
        ->subElementRect(check ? QStyle::SE_CheckBoxClickRect : QStyle::SE_RadioButtonClickRect, &option, widget)
        .center();
  }
  return widget->rect().center();
}

void FocusByClick(QWidget *widget) {
  for (QWidget *each = widget; each; each = each->parentWidget()) {
    if (each->isEnabled() && (each->focusPolicy() & Qt::ClickFocus)) {
      each->setFocus(Qt::MouseFocusReason);
      return;
    }
    if (each->isWindow())
      return;
  }
}

ControlAnswer MouseAt(QWidget *widget, const QPoint &position, const ClickWish &wish) {
  QWidget *window = widget->window();
  QWidget *hit = window->childAt(widget->mapTo(window, position));
  if (!hit || (hit != widget && !widget->isAncestorOf(hit)))
    return Refused(widget, hit ? QStringLiteral("is covered by \"%1\"").arg(NameOf(hit))
                               : QStringLiteral("lies outside its window"));
  if (!hit->isEnabled())
    return Refused(widget, QStringLiteral("is not enabled"));

  const QPoint local = hit->mapFrom(window, widget->mapTo(window, position));
  const QPoint global = hit->mapToGlobal(local);
  const Qt::MouseButton button = wish.rightButton ? Qt::RightButton : Qt::LeftButton;
  const QPointer<QWidget> target(hit);
  FocusByClick(hit);
  const auto send = [&](QEvent::Type type) {
    if (!target)
      return;
    QMouseEvent event(type, local, hit->mapTo(window, local), global, button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
  };
  send(QEvent::MouseButtonPress);
  send(QEvent::MouseButtonRelease);
  if (wish.doubled) {
    send(QEvent::MouseButtonDblClick);
    send(QEvent::MouseButtonRelease);
  }
  if (wish.rightButton && target) {
    QContextMenuEvent menu(QContextMenuEvent::Mouse, local, global);
    QApplication::sendEvent(target, &menu);
  }
  return ControlAnswer::Ok();
}

// The index that a number or a text names among `count` captions; -1 for none.
template <typename Caption> int IndexOf(const QJsonValue &wish, int count, Caption caption) {
  if (wish.isDouble()) {
    const int index = wish.toInt(-1);
    return index >= 0 && index < count ? index : -1;
  }
  for (int n = 0; n < count; ++n)
    if (wish.isString() && caption(n) == wish.toString())
      return n;
  return -1;
}

ControlAnswer SetCombo(QComboBox *combo, const QJsonValue &value) {
  const int index = IndexOf(value, combo->count(), [combo](int n) { return combo->itemText(n); });
  if (index < 0 && combo->isEditable() && value.isString()) {
    combo->lineEdit()->selectAll();
    KeyHand::Type(combo->lineEdit(), value.toString());
    return ControlAnswer::Ok();
  }
  if (index < 0)
    return Refused(combo, QStringLiteral("has no such entry"));
  combo->setCurrentIndex(index);
  const QPointer<QComboBox> alive(combo);
  const QString text = combo->itemText(index);
  emit combo->activated(index);
  if (alive)
    emit combo->textActivated(text);
  return ControlAnswer::Ok();
}

ControlAnswer SetSlider(QAbstractSlider *slider, const QJsonValue &value) {
  if (!value.isDouble())
    return Refused(slider, QStringLiteral("takes a number"));
  const int wish = value.toInt(slider->minimum() - 1);
  if (wish < slider->minimum() || wish > slider->maximum())
    return Refused(slider, QStringLiteral("takes %1 to %2").arg(slider->minimum()).arg(slider->maximum()));
  const QPointer<QAbstractSlider> alive(slider);
  slider->setSliderDown(true);
  slider->setSliderPosition(wish);
  if (alive)
    alive->setSliderDown(false);
  return ControlAnswer::Ok();
}

ControlAnswer SetSpin(QAbstractSpinBox *spin, const QJsonValue &value) {
  if (!value.isDouble())
    return Refused(spin, QStringLiteral("takes a number"));
  if (auto *whole = qobject_cast<QSpinBox *>(spin)) {
    if (value.toDouble() < whole->minimum() || value.toDouble() > whole->maximum())
      return Refused(spin, QStringLiteral("takes %1 to %2").arg(whole->minimum()).arg(whole->maximum()));
    whole->setValue(qRound(value.toDouble()));
  } else if (auto *number = qobject_cast<QDoubleSpinBox *>(spin)) {
    if (value.toDouble() < number->minimum() || value.toDouble() > number->maximum())
      return Refused(spin, QStringLiteral("takes %1 to %2").arg(number->minimum()).arg(number->maximum()));
    number->setValue(value.toDouble());
  } else {
    return Refused(spin, QStringLiteral("cannot be set"));
  }
  emit spin->editingFinished();
  return ControlAnswer::Ok();
}

template <typename Edit> ControlAnswer SetMultiline(Edit *edit, const QJsonValue &value) {
  if (edit->isReadOnly())
    return Refused(edit, QStringLiteral("is read-only"));
  edit->selectAll();
  edit->insertPlainText(value.toString());
  return ControlAnswer::Ok();
}

ControlAnswer SetLine(QLineEdit *edit, const QJsonValue &value) {
  if (edit->isReadOnly())
    return Refused(edit, QStringLiteral("is read-only"));
  edit->setFocus(Qt::OtherFocusReason);
  edit->selectAll();
  if (value.toString().isEmpty())
    edit->del();
  else
    KeyHand::Type(edit, value.toString());
  return ControlAnswer::Ok();
}

ControlAnswer ClickAction(QAction *action) {
  const QString name = NameOf(action);
  if (!action->isVisible() || !action->isEnabled())
    return ControlAnswer::Failed(QStringLiteral("\"%1\" is not %2").arg(
        name, action->isVisible() ? QStringLiteral("enabled") : QStringLiteral("visible")));
  const QWidget *box = OpenBox();
  if (box && !action->associatedObjects().contains(const_cast<QWidget *>(box)))
    return ControlAnswer::Failed(QStringLiteral("\"%1\" is behind the open window \"%2\"").arg(name, NameOf(box)));
  action->trigger();
  return ControlAnswer::Ok();
}

ControlAnswer SetProperty(QWidget *widget, const QJsonValue &value) {
  // A control of our own making says by the USER mark which of its properties the operator sets.
  const QMetaProperty user = widget->metaObject()->userProperty();
  for (const char *name : {user.isValid() ? user.name() : "value", "value", "currentIndex", "checked", "text"}) {
    const int index = widget->metaObject()->indexOfProperty(name);
    if (index < 0 || !widget->metaObject()->property(index).isWritable())
      continue;
    if (widget->setProperty(name, value.toVariant()))
      return ControlAnswer::Ok();
  }
  return Refused(widget, QStringLiteral("cannot be set to that"));
}

} // namespace

QString TextOf(const QWidget *widget) {
  if (auto *combo = qobject_cast<const QComboBox *>(widget))
    return combo->currentText();
  if (auto *edit = qobject_cast<const QTextEdit *>(widget))
    return edit->toPlainText();
  if (auto *edit = qobject_cast<const QPlainTextEdit *>(widget))
    return edit->toPlainText();
  if (auto *view = qobject_cast<const QAbstractItemView *>(widget))
    return CurrentItemText(view);
  if (auto *tabs = qobject_cast<const QTabBar *>(widget))
    return tabs->tabText(tabs->currentIndex());
  if (auto *tabs = qobject_cast<const QTabWidget *>(widget))
    return tabs->tabText(tabs->currentIndex());
  for (const char *name : {"text", "title", "windowTitle"}) {
    const QVariant text = widget->property(name);
    if (text.typeId() == QMetaType::QString && !text.toString().isEmpty())
      return text.toString();
  }
  return {};
}

QJsonValue ValueOf(const QWidget *widget) {
  if (auto *button = qobject_cast<const QAbstractButton *>(widget))
    return button->isCheckable() ? QJsonValue(button->isChecked()) : QJsonValue();
  if (qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget) ||
      qobject_cast<const QPlainTextEdit *>(widget) || qobject_cast<const QAbstractItemView *>(widget))
    return TextOf(widget);
  if (qobject_cast<const QLabel *>(widget))
    return {};
  for (const char *name : {"value", "currentIndex", "checked"}) {
    const QVariant value = widget->property(name);
    if (value.isValid())
      return QJsonValue::fromVariant(value);
  }
  return {};
}

ControlAnswer ReadControl(const FoundControl &control) {
  QJsonObject fields;
  if (control.action) {
    fields.insert(QStringLiteral("text"), control.action->text().remove(u'&'));
    fields.insert(QStringLiteral("value"),
                  control.action->isCheckable() ? QJsonValue(control.action->isChecked()) : QJsonValue());
    return ControlAnswer::Ok(fields);
  }
  fields.insert(QStringLiteral("text"), TextOf(control.widget));
  fields.insert(QStringLiteral("value"), ValueOf(control.widget));
  QJsonArray items;
  if (auto *combo = qobject_cast<QComboBox *>(control.widget))
    for (int n = 0; n < combo->count(); ++n)
      items.append(combo->itemText(n));
  else if (auto *tabs = qobject_cast<QTabBar *>(control.widget))
    for (int n = 0; n < tabs->count(); ++n)
      items.append(tabs->tabText(n));
  else if (auto *view = qobject_cast<QAbstractItemView *>(control.widget))
    items = QJsonArray::fromStringList(ItemTexts(view));
  else
    return ControlAnswer::Ok(fields);
  fields.insert(QStringLiteral("items"), items);
  return ControlAnswer::Ok(fields);
}

ControlAnswer ClickControl(const FoundControl &control, const ClickWish &wish) {
  if (control.action)
    return ClickAction(control.action);
  QWidget *widget = control.widget;
  const QString obstacle = Obstacle(widget);
  if (!obstacle.isEmpty())
    return Refused(widget, obstacle);
  ScrollTo(widget);
  if (wish.item.isUndefined() || wish.item.isNull())
    return MouseAt(widget, AimAt(widget), wish);

  if (auto *view = qobject_cast<QAbstractItemView *>(widget)) {
    const QModelIndex index = FindItem(view, wish.item);
    if (!index.isValid())
      return Refused(widget, QStringLiteral("has no such item"));
    view->scrollTo(index);
    return MouseAt(view->viewport(), view->visualRect(index).center(), wish);
  }
  if (auto *tabs = qobject_cast<QTabBar *>(widget)) {
    const int index = IndexOf(wish.item, tabs->count(), [tabs](int n) { return tabs->tabText(n); });
    if (index < 0)
      return Refused(widget, QStringLiteral("has no such tab"));
    return MouseAt(tabs, tabs->tabRect(index).center(), wish);
  }
  return SetControl(control, wish.item);
}

ControlAnswer SetControl(const FoundControl &control, const QJsonValue &value) {
  if (control.action) {
    if (!control.action->isCheckable() || !value.isBool())
      return ControlAnswer::Failed(QStringLiteral("\"%1\" cannot be set to that").arg(NameOf(control.action)));
    return control.action->isChecked() == value.toBool() ? ControlAnswer::Ok() : ClickAction(control.action);
  }
  QWidget *widget = control.widget;
  const QString obstacle = Obstacle(widget);
  if (!obstacle.isEmpty())
    return Refused(widget, obstacle);
  ScrollTo(widget);
  if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
    if (!button->isCheckable() || !value.isBool())
      return Refused(widget, QStringLiteral("takes true or false, if it can be checked at all"));
    if (button->isChecked() == value.toBool())
      return ControlAnswer::Ok();
    return MouseAt(widget, AimAt(widget), {});
  }
  if (auto *combo = qobject_cast<QComboBox *>(widget))
    return SetCombo(combo, value);
  if (auto *slider = qobject_cast<QAbstractSlider *>(widget))
    return SetSlider(slider, value);
  if (auto *spin = qobject_cast<QAbstractSpinBox *>(widget))
    return SetSpin(spin, value);
  if (qobject_cast<QAbstractItemView *>(widget) || qobject_cast<QTabBar *>(widget))
    return ClickControl(control, {value, false, false});
  if (auto *tabs = qobject_cast<QTabWidget *>(widget))
    return ClickControl({tabs->tabBar(), nullptr}, {value, false, false});

  const bool takesText = qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget) ||
                         qobject_cast<QPlainTextEdit *>(widget);
  if (takesText && !value.isString())
    return Refused(widget, QStringLiteral("takes a text"));
  if (auto *edit = qobject_cast<QLineEdit *>(widget))
    return SetLine(edit, value);
  if (auto *edit = qobject_cast<QTextEdit *>(widget))
    return SetMultiline(edit, value);
  if (auto *edit = qobject_cast<QPlainTextEdit *>(widget))
    return SetMultiline(edit, value);
  return SetProperty(widget, value);
}

ControlAnswer TypeInto(const FoundControl &control, const QString &text) {
  if (!control.widget)
    return ControlAnswer::Failed(QStringLiteral("nothing can be typed into a menu entry"));
  QWidget *widget = control.widget;
  const QString obstacle = Obstacle(widget);
  if (!obstacle.isEmpty())
    return Refused(widget, obstacle);
  if (widget->focusPolicy() == Qt::NoFocus)
    return Refused(widget, QStringLiteral("takes no keys"));
  ScrollTo(widget);
  widget->setFocus(Qt::MouseFocusReason);
  // A composite control hands the focus on to the part that takes the keys.
  QWidget *inside = widget->window()->focusWidget();
  KeyHand::Type(inside && widget->isAncestorOf(inside) ? inside : widget, text);
  return ControlAnswer::Ok();
}

} // namespace tolmira
