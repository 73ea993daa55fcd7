#include "controls/ui/spoken_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace tolmira {

namespace {

constexpr char RoleProperty[] = "spokenRole";

QAccessibleInterface *MakeSpoken(const QString &, QObject *object) {
  auto *widget = qobject_cast<QWidget *>(object);
  const QVariant role = widget ? widget->property(RoleProperty) : QVariant();
  return role.isValid() ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void SetSpokenRole(QWidget *widget, QAccessible::Role role) {
  QAccessible::installFactory(MakeSpoken); // the toolkit keeps one of each
  widget->setProperty(RoleProperty, static_cast<int>(role));
}

} // namespace tolmira
