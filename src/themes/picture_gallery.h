#pragma once

#include "foundation/app_folder.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace tolmira {

// The pictures of the gallery are the files of this pattern in <app>\Images\.
inline const QString PadraoDaGaleria = QStringLiteral("*.jpg;*.png;*.bmp");

// "2024-03-09-7-5": year, month, day, hour, minute.
QString TextoDaData(const QDateTime &data);
// A list entry is date text + " (-) " + file name.
QString NomeDaEntrada(const QString &entrada);

// What is in the folder now; nothing is remembered from call to call.
class PictureGallery {
public:
  PictureGallery(const AppFolder &app, const IniStore &store) : m_app(app), m_store(store) {}

  QString Caminho(const QString &nome) const { return m_app.At(u"\\Images\\") + nome; }

  // File names in the order of their names. `padrao` is patterns joined by ";".
  QStringList Lista(const QString &padrao) const;
  // Entries, the newest first by their date texts. The date is that of the small copy, or of the picture without one.
  QStringList ListaPorData(const QString &padrao) const;

  // A sentence that says which themes, and whether the default background, use the picture; empty when nothing does.
  QString Uso(const QString &nome) const;
  // Moves the picture to the desktop's trash and removes its small copy. Asks first when something uses the picture,
  // and before it is removed for good where there is no trash. True when the picture is gone.
  bool Exclui(const QString &nome, UserPrompt &prompt) const;

  // `pastaAddImg`: the folder last used for adding, a real path; at first the user's pictures folder.
  QString PastaAddImg() const;
  void GuardaPastaAddImg(const QString &pasta) const;

private:
  const AppFolder &m_app;
  const IniStore &m_store;
};

} // namespace tolmira
