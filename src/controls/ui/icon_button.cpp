#include "controls/ui/icon_button.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"

namespace tolmira {

QPushButton *NewIconButton(const QString &name, const char *drawing, const QString &spoken, QWidget *parent) {
  auto *made = new QPushButton(parent);
  made->setObjectName(name);
  made->setProperty("look", QStringLiteral("icon"));
  made->setIcon(DeskIcon(QLatin1String(drawing)));
  made->setIconSize({medidas::Icon, medidas::Icon});
  made->setAccessibleName(spoken);
  made->setToolTip(spoken);
  return made;
}

} // namespace tolmira
