#pragma once

#include <QComboBox>

namespace tolmira {

// The installed fonts, each written in its own face. A face is loaded when its row has come in sight, so that the box
// opens at once with a thousand of them. A font that is not installed is named all the same, though it is no choice.
class FontBox : public QComboBox {
  Q_OBJECT

public:
  explicit FontBox(QWidget *parent = nullptr);
  void CarregaFontes(); // the installed families
  void ShowFont(const QString &family);
};

} // namespace tolmira
