#pragma once

#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>

namespace tolmira::testing {

inline QString NameOf(const QWidget *widget) {
  const QString name = widget->objectName().isEmpty() ? widget->property("text").toString() : widget->objectName();
  return QStringLiteral("%1 '%2'").arg(QLatin1String(widget->metaObject()->className()), name);
}

// A widget that a person reads or uses, and not one that only holds others.
inline bool IsControl(const QWidget *widget) {
  return qobject_cast<const QLabel *>(widget) || qobject_cast<const QAbstractButton *>(widget) ||
         qobject_cast<const QComboBox *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
         qobject_cast<const QAbstractSlider *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
         qobject_cast<const QAbstractScrollArea *>(widget);
}

// Inside of a control with parts of its own (the box of a combo, the bars of a list).
inline bool IsPart(const QWidget *widget, const QWidget *window) {
  for (const QWidget *above = widget->parentWidget(); above && above != window; above = above->parentWidget()) {
    if (const auto *area = qobject_cast<const QScrollArea *>(above); area && area->viewport()->isAncestorOf(widget))
      continue;
    if (IsControl(above) && !qobject_cast<const QAbstractButton *>(above))
      return true;
  }
  return false;
}

// What is wrong with how a shown window is laid out: a control that is cut by what it stands in, that lies over another,
// or that has less room than its text needs. `mayScroll`: what stands in a scroll area may go beyond its view.
inline QStringList LayoutFaults(QWidget *window, bool mayScroll = false) {
  QStringList faults;
  QList<QPair<QWidget *, QRect>> controls; // with what is seen of them
  for (QWidget *widget : window->findChildren<QWidget *>()) {
    if (widget->window() != window || !widget->isVisibleTo(window) || !IsControl(widget) || IsPart(widget, window))
      continue;
    if (qobject_cast<QScrollBar *>(widget))
      continue;
    const QRect place(widget->mapTo(window, QPoint()), widget->size());
    QRect room = window->rect();
    QRect seen = place;
    bool scrolled = false;
    for (QWidget *above = widget->parentWidget(); above; above = above->parentWidget()) {
      const auto *area = above->parentWidget() ? qobject_cast<QScrollArea *>(above->parentWidget()) : nullptr;
      scrolled = scrolled || (area && area->viewport() == above);
      if (!(scrolled && mayScroll))
        room &= QRect(above->mapTo(window, QPoint()), above->size());
      seen &= QRect(above->mapTo(window, QPoint()), above->size());
      if (above == window)
        break;
    }
    if (!(scrolled && mayScroll) && !room.contains(place))
      faults << QStringLiteral("%1 is cut").arg(NameOf(widget));

    const auto *label = qobject_cast<QLabel *>(widget);
    if (label && !label->text().isEmpty()) {
      const bool elided = label->minimumSizeHint().width() < label->sizeHint().width() && !label->toolTip().isEmpty();
      if (label->wordWrap() ? label->height() < label->heightForWidth(label->width())
                            : !elided && (label->width() < label->sizeHint().width() ||
                                          label->height() < label->sizeHint().height()))
        faults << QStringLiteral("%1 has no room for its text").arg(NameOf(widget));
    }
    const auto *button = qobject_cast<QAbstractButton *>(widget);
    const bool elidedButton = button && button->minimumSizeHint().width() < button->sizeHint().width() &&
                              !button->toolTip().isEmpty();
    if (button && !elidedButton && button->width() < button->sizeHint().width())
      faults << QStringLiteral("%1 has no room for its text").arg(NameOf(widget));
    controls.append({widget, seen});
  }
  // A control may stand inside another one (the box on a tile); two that have nothing to do with each other may not meet.
  for (qsizetype i = 0; i < controls.size(); ++i)
    for (qsizetype j = i + 1; j < controls.size(); ++j) {
      const auto &[a, seenOfA] = controls[i];
      const auto &[b, seenOfB] = controls[j];
      if (a->isAncestorOf(b) || b->isAncestorOf(a))
        continue;
      const QRect both = seenOfA & seenOfB;
      if (both.width() > 0 && both.height() > 0)
        faults << QStringLiteral("%1 lies over %2").arg(NameOf(a), NameOf(b));
    }
  return faults;
}

// What a screen reader would meet without a name or a role, in the window and everything below it; and controls that a
// person finds no tool tip on, but for those named in `withoutTip`.
inline QStringList SpeechFaults(QWidget *window, const QStringList &withoutTip = {}) {
  QStringList faults;
  QSet<const QAccessibleInterface *> seen;
  const auto walk = [&](auto &self, QAccessibleInterface *node, const QString &path) -> void {
    if (!node || !node->isValid() || seen.contains(node))
      return;
    seen.insert(node);
    const QAccessible::State state = node->state();
    const QString name = node->text(QAccessible::Name);
    const QObject *object = node->object();
    const QString here = path + u'/' + (object ? QLatin1String(object->metaObject()->className()) + QStringLiteral(" ") + object->objectName()
                                               : name);
    if (state.invisible && !(object && qobject_cast<const QWidget *>(object) == window))
      return;
    if (state.focusable && name.trimmed().isEmpty() && node->role() != QAccessible::Window)
      faults << here + QStringLiteral(" has no name");
    if (state.focusable && (node->role() == QAccessible::NoRole || node->role() == QAccessible::Client))
      faults << here + QStringLiteral(" has no role");
    if (const auto *widget = qobject_cast<const QWidget *>(object);
        widget && state.focusable && widget != window && widget->toolTip().isEmpty() && IsControl(widget) &&
        !withoutTip.contains(widget->objectName()))
      faults << here + QStringLiteral(" has no tool tip");
    for (int i = 0; i < node->childCount(); ++i)
      self(self, node->child(i), here);
  };
  walk(walk, QAccessible::queryAccessibleInterface(window), QString());
  return faults;
}

} // namespace tolmira::testing
