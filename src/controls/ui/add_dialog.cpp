#include "controls/ui/add_dialog.h"

#include <QCoreApplication>
#include <QLabel>

namespace tolmira {

QString IncludeCaption(QString agendaTitle) {
  return u"&Include in '" + agendaTitle.replace(u'&', QStringLiteral("&&")) + u'\'';
}

QLabel *NewAddedLabel(QWidget *parent) {
  auto *label = new QLabel(parent);
  label->setObjectName(QStringLiteral("Label2"));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumHeight(label->fontMetrics().lineSpacing());
  label->setAccessibleName(QCoreApplication::translate("AddDialog", "What was added last"));
  return label;
}

} // namespace tolmira
