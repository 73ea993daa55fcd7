#pragma once

#include "themes/theme_record.h"

#include <QList>
#include <QString>
#include <utility>

namespace tolmira {

// Positions in the list of intervals, which are also the interval codes: "Manual", "10 sec", "15 sec", "20 sec", "30
// sec", "1 min".
inline constexpr int SlideManual = 0;
inline constexpr int SlideUmMinuto = 5;

inline constexpr qint16 AlinhamentoCentrado = 2; // any other value means left

// One slide. The defaults are those of a slide that is added in the editor.
struct Slide {
  QString Imagem; // full stored path
  QString Titulo;
  QString Texto; // CR LF line ends
  qint16 Alinhamento = 0;
  qint16 Espacamento = 12; // line height in tenths
  qint16 FontSize = 4;     // per cent of the page's width
  qint16 incluirTexto = 1; // 1: title and text are shown; anything else: the picture alone

  friend bool operator==(const Slide &, const Slide &) = default;
};

// A named series of slides with one look. The defaults of the look are those of a new document.
struct SlideDocument {
  SlideDocument();

  QList<Slide> slides; // slide number i of the file is element i - 1
  int Intervalo = SlideManual;
  // Font, colours, shadow, outline, movement, effects and capitals. Kind, pictures, video, filters and the picture
  // interval of the record play no part in a document.
  TemaRecord visual;
  // Keys of the file that the editor does not write, in their order, such as those that only the presentation reads:
  // they are not lost when the document is saved.
  QList<std::pair<QString, QString>> outrasChaves;

  int Count() const { return static_cast<int>(slides.size()); }
  bool Tem(int index) const { return index >= 1 && index <= Count(); }
  const Slide &Em(int index) const { return slides[index - 1]; } // from 1; there must be one
  Slide &Em(int index) { return slides[index - 1]; }

  friend bool operator==(const SlideDocument &, const SlideDocument &) = default;
};

// The longest Texto or Titulo, counted as it stands in the file (a line break takes two characters), that comes back
// whole.
inline constexpr int MaiorTextoDeSlide = 1023;

// The two readers of one file: the editor and the presentation know part of the look by different keys and have
// different defaults, so what the editor stores as shadow, outline and text colour changes nothing on the screen. A
// file that cannot be read gives a document without slides. The font is passed through FonteInstalada by whoever shows
// it.
SlideDocument LoadSlideNew(const QString &path);       // editor
SlideDocument LeSlidesParaExibir(const QString &path); // presentation

// Writes the document as one step, keys in their order; false when the file stays as it was. A document without slides
// gets the look of a new one first.
bool GravaSlide(const QString &path, SlideDocument &documento);

} // namespace tolmira
