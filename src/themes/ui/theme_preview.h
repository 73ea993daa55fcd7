#pragma once

#include "display/display_channel.h"
#include "display/lyrics_composer.h"
#include "display/page_builder.h"
#include "display/ui/projection_frame.h"
#include "themes/ui/theme_editor_doors.h"

#include <QImage>

namespace tolmira {

// A theme with a sample text in the projection's own page. It has records of its own, so nothing that it does reaches
// the console or the projection. Everything but Monta changes the page that is there.
class ThemePreview : public ProjectionFrame {
  Q_OBJECT

public:
  ThemePreview(const ThemeEditorDoors &doors, QWidget *parent);

  void Monta(const TemaRecord &tema, const QString &texto);

  void EfeitoDaImagem(const TemaRecord &tema);
  void Intervalo(int posicao); // in the interval list; 0 is "None"
  void Filtros(const TemaRecord &tema);
  void CorDeFundo(const TemaRecord &tema);
  void Movimento(const TemaRecord &tema);
  void Texto(const TemaRecord &tema, const QString &texto);   // at rest
  void Entrada(const TemaRecord &tema, const QString &texto); // with the theme's entrance effect
  void Saida(const TemaRecord &tema, const QString &texto);   // with its exit effect
  void GotoSlideImage(int posicao);                           // from 1

  // The page with the text at rest, all movement at its end. Waits a moment, without the operator's keys and clicks,
  // for a page that is still drawing itself. Null when there is no page.
  QImage Retrato(const TemaRecord &tema, const QString &texto);
  QImage
  AoLadoDoTexto() const; // above and below the text, for a background that is not known otherwise; null while it loads

protected:
  void Ajustada() override;
  void Exibida() override;
  void Recuperada() override { Navega(); }

private:
  QString Html(const TemaRecord &tema, const QString &texto, const QString &classes) const;
  PageBuilder::Hosts Hosts();
  double Escala() const; // of the page to its measures
  void Navega();
  void Espera(const std::function<bool()> &pronto);

  const std::function<Display *()> m_telao;
  RandomSource &m_random;
  AjustesTexto m_ajustes;
  EstadoConsole m_estado;
  DisplayChannel m_canal; // leads nowhere
  LyricsComposer m_letras;
  PageBuilder m_paginas;
  TemaRecord m_tema; // of the page, for a page that has to be made again
  QString m_texto;
  bool m_montada = false;
  int m_carga = 0;       // counts the pages
  int m_pronta = 0;      // the last one that takes scripts
  bool m_quieta = false; // what was told last stands on the page
};

} // namespace tolmira
