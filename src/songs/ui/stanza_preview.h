#pragma once

#include "display/display_channel.h"
#include "display/lyrics_composer.h"
#include "display/page_builder.h"
#include "display/ui/projection_frame.h"
#include "songs/ui/editor_doors.h"

#include <functional>

namespace tolmira {

// One stanza as the projection would show it: in the page of a theme, laid out by the real composer. It has records of
// its own, so nothing that it does reaches the console or the projection.
class StanzaPreview : public ProjectionFrame {
  Q_OBJECT

public:
  StanzaPreview(const SongEditorDoors &doors, QWidget *parent);

  // `stanza` with CR LF between its lines; `tamanhoBase` in points, of the song that it is from.
  void Show(const QString &stanza, double tamanhoBase, const TemaRecord &tema, const AjustesTexto &ajustes);
  // The size that a verse would have with what was shown last.
  VerseSize SizeOf(const QString &verse, double tamanhoBase, const TemaRecord &tema, const AjustesTexto &ajustes);

  PageObject *WV(); // null before the widget was shown

protected:
  void Ajustada() override;
  void Recuperada() override { Send(); }

private:
  void Define(double tamanhoBase, const TemaRecord &tema, const AjustesTexto &ajustes);
  void Send();
  PageBuilder::Hosts Hosts(const std::function<Display *()> &telao);

  AjustesTexto m_ajustes;
  EstadoConsole m_estado;
  DisplayChannel m_canal; // leads nowhere
  LyricsComposer m_letras;
  PageBuilder m_paginas;
  TemaRecord m_pageOf; // the theme that the page was built for
  bool m_built = false;
  QString m_stanza;
  double m_base = 0;
};

} // namespace tolmira
