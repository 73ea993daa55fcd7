#pragma once

#include <QFrame>
#include <QLatin1String>

#include "controls/ui/palette.h"

class QLabel;

namespace tolmira {

// A calm sentence laid over a panel: an icon and a text on a plate of its own. It lets the mouse through and never
// takes part in the layout below it.
class HintLabel : public QFrame {
  Q_OBJECT

public:
  HintLabel(QLatin1String drawing, const QString &text, QWidget *parent, QRgb colour = cores::Accent);
  void SetText(const QString &text);
  QString Text() const;
  void SetMaximumTextWidth(int px);
  QLabel *TextLabel() { return m_text; }

private:
  QLabel *m_text;
};

} // namespace tolmira
