#include "controls/ui/colour_button.h"

#include "controls/ui/palette.h"

#include <QPainter>

namespace tolmira {

ColourButton::ColourButton(const char *name, const QString &spoken, QWidget *parent) : QPushButton(parent) {
  setObjectName(QLatin1String(name));
  setProperty("look", QStringLiteral("icon"));
  setIconSize({medidas::Icon, medidas::Icon});
  setAccessibleName(spoken);
  setToolTip(spoken);
}

void ColourButton::SetColour(qint32 colour) {
  if (colour == m_colour)
    return;
  m_colour = colour;
  QPixmap swatch(medidas::Icon, medidas::Icon);
  swatch.fill(QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff));
  QPainter painter(&swatch);
  painter.setPen(QColor(cores::Quiet)); // the edge of a colour that is like the panel's
  painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
  painter.end();
  setIcon(QIcon(swatch));
}

} // namespace tolmira
