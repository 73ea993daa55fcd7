#pragma once

#include <QString>
#include <functional>

class QMenu;
class QWidget;

namespace tolmira {

enum class MarcaDeImagem { Add, Show, Swap, Preview, Delete };

// The menus on pictures: on the gallery's free space, on a picture, and on one that is shown large. `faz` is called
// with the entry that was chosen.
struct MenusDeImagem {
  using Faz = std::function<void(MarcaDeImagem)>;
  static QMenu *MenuImg(QWidget *dono, const Faz &faz);
  // An empty `primeira` leaves the first entry as it is.
  static QMenu *MenuImg2(QWidget *dono, const QString &primeira, const Faz &faz);
  static QMenu *MenuImg3(QWidget *dono, const QString &primeira, const Faz &faz);
};

} // namespace tolmira
