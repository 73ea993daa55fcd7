#pragma once

#include <QPushButton>

namespace tolmira {

// A button that shows a colour of the stores (0x00BBGGRR) as a swatch.
class ColourButton : public QPushButton {
  Q_OBJECT

public:
  ColourButton(const char *name, const QString &spoken, QWidget *parent);
  void SetColour(qint32 colour);
  qint32 Colour() const { return m_colour; }

private:
  qint32 m_colour = -1;
};

} // namespace tolmira
