#pragma once

#include "foundation/app_folder.h"

#include <QString>

namespace tolmira {

// Files of the toolkit's dialogue form that can stand behind a text.
QString FiltroDeImagens();

// The bare name under which the picture at `path` lies in <app>\Images\, as a setting can keep it. A picture from
// elsewhere, or with a name that a setting or a list of pictures would break, is copied in first, under a free name;
// nothing there is ever replaced, and a picture that lies there already is not copied twice. Empty when the file is no
// picture or could not be copied.
QString TrazParaImagens(const AppFolder &app, const QString &path);

} // namespace tolmira
