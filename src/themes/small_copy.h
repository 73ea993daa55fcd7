#pragma once

#include "foundation/app_folder.h"
#include "themes/picture_file.h"

namespace tolmira {

// Every small copy has this size, whatever the picture's proportions; who shows it stretches it back.
inline constexpr QSize SmallCopySize{160, 120}; // px

// Makes the small copy <app>\Images\Mini\ + nome of the picture <app>\Images\ + nome: JPEG, quality 50, with the
// picture's date. Unless `refazer` is set, one that is there stays as it is. True when the file exists afterwards.
bool CriaMiniatura(const AppFolder &app, const QString &nome, bool refazer);

// The small copy of that picture, made when there is none or the picture is newer. When it cannot be written the
// picture itself is given, at that size. The `size` is the picture's. Can be called from any thread.
PictureImage TrazMiniatura(const AppFolder &app, const QString &nome);

// The same for a picture by its stored path. One that lies elsewhere than in <app>\Images\ is read at that size, and
// nothing is written.
PictureImage TrazMiniaturaDe(const AppFolder &app, const QString &caminho);

} // namespace tolmira
