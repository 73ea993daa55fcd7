#pragma once

#include "display/display_seams.h"
#include "display/ui/page_profile.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "themes/theme_store.h"

#include <QSize>
#include <QString>
#include <functional>

class QWidget;

namespace tolmira {

// What the theme editor works with. All of it outlives the windows.
struct ThemeEditorDoors {
  const IniStore &store;
  ThemeStore &loja;
  TabelaTemas &temas;
  UserPrompt &prompt;
  Clock &clock;
  RandomSource &random;
  Yielder &yielder;
  TextMeasure &measure;
  FormPositions &posicoes;
  QSize tilePx;                     // of the pictures on the console's tiles
  std::function<Display *()> telao; // null while there is none
  // Lets the operator choose a picture for theme `tema`; `usa` takes its path. Empty: a file dialogue asks.
  std::function<void(int tema, QWidget *dono, const std::function<void(const QString &path)> &usa)> galeria;
  std::function<void(int n)> salvo; // theme n was saved and is in the table
  PageProfile perfil;               // shared with the other pages; without one each preview makes its own
  QWidget *dono = nullptr;          // the console's window, which they stand over
};

} // namespace tolmira
