#include "themes/ui/picture_menus.h"

#include <QMenu>
#include <QTimer>
#include <initializer_list>
#include <utility>

namespace tolmira {

namespace {

using Entrada = std::pair<QString, MarcaDeImagem>;

QMenu *Menu(QWidget *dono, const char *nome, std::initializer_list<Entrada> entradas, const MenusDeImagem::Faz &faz) {
  auto *menu = new QMenu(dono);
  menu->setObjectName(QLatin1String(nome));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  // What is chosen is done when the menu has gone: it may yield to the event loop, which then deletes the menu.
  for (const auto &[texto, marca] : entradas)
    menu->addAction(texto, dono,
                    [dono, faz, marca = marca] { QTimer::singleShot(0, dono, [faz, marca] { faz(marca); }); });
  return menu;
}

} // namespace

QMenu *MenusDeImagem::MenuImg(QWidget *dono, const Faz &faz) {
  return Menu(dono, "MenuImg",
              {{QStringLiteral("Add Image"), MarcaDeImagem::Add}, {QStringLiteral("Preview"), MarcaDeImagem::Preview}},
              faz);
}

QMenu *MenusDeImagem::MenuImg2(QWidget *dono, const QString &primeira, const Faz &faz) {
  return Menu(
      dono, "MenuImg2",
      {{primeira.isEmpty() ? QStringLiteral("Display this image on the projector") : primeira, MarcaDeImagem::Show},
       {QStringLiteral("Select this image"), MarcaDeImagem::Swap},
       {QStringLiteral("Preview"), MarcaDeImagem::Preview},
       {QStringLiteral("Delete"), MarcaDeImagem::Delete}},
      faz);
}

QMenu *MenusDeImagem::MenuImg3(QWidget *dono, const QString &primeira, const Faz &faz) {
  return Menu(dono, "MenuImg3",
              {{primeira.isEmpty() ? QStringLiteral("Display as background image") : primeira, MarcaDeImagem::Show},
               {QStringLiteral("Delete"), MarcaDeImagem::Delete}},
              faz);
}

} // namespace tolmira
