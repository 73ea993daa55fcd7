#pragma once

#include "foundation/app_folder.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// A slide show: pictures that run by themselves over looping audio, a text before them and one behind. The texts and the
// audio are kept in the form of the file, which is that of the page.
struct SlideShowDocument {
  QString Titulo;
  qint16 Tempo = 5000;              // ms that a picture stays
  qint16 TempoIntevalo = 2000;      // ms of its way in
  qint16 TempoIntevaloSaida = 2000; // ms of its way out
  QString ArquivodeAudio;           // a path with each "\" doubled; empty: no audio
  QString textoInicio;              // trimmed, line breaks as "<br>"
  QString textoFim;
  QStringList imagens; // full stored paths

  friend bool operator==(const SlideShowDocument &, const SlideShowDocument &) = default;
};

// What a file that cannot be read lacks has its default. The title is not read: a show is named after its file.
SlideShowDocument LeSlideShow(const QString &path);
// Writes the whole show as one step; false when the file stays as it was. Pictures behind one without a path are left out.
bool EscreveSlideShow(const QString &path, const SlideShowDocument &show);

QString CaminhoDoSlideShow(const AppFolder &app, const QString &nome);
QString CaminhoDoShowSemNome(); // in the temporary folder

// Between the boxes of the editor and the document. A text longer than MaiorTextoDoShow in the form of the document would
// not come back whole.
inline constexpr int MaiorTextoDoShow = 1023;
QString TextoParaOShow(const QString &digitado);
QString TextoParaACaixa(const QString &guardado); // CR LF line ends
QString AudioParaOShow(const QString &path);
QString AudioParaACaixa(const QString &guardado);

} // namespace tolmira
