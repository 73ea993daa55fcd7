#pragma once

#include <QString>
#include <QStringList>

#include "songs/verse.h"
#include "themes/theme_record.h"

namespace tolmira {

// What the program knows about the show at this moment. Made once in main and handed by reference to those who read or
// write it; each field names its one writer.
struct EstadoConsole {
  // start and stop
  bool TelaPronta = false;       // start-up: from the end of loading until the console unloads
  bool ConsoleCarregado = false; // start-up: the load handler has passed its middle

  // the item on show: presentation flow
  QString TipoAtual;   // "Louvor", "Harpa", "Bíblia", "Slides", "SlideShow", "Video", "Youtube" or empty
  QString TipoAnterior; // written only when TipoAtual really changes
  QString ArquivoAtual; // full stored path of the song file
  QString TituloAtual;
  QString ReferenciaAtual; // book, chapter, ":" and verse
  QString TextoBiblia;     // of that verse, without its number: Bible loader
  QString VersaoBiblia;    // the translation that TextoBiblia is from, else the one in force: Bible loader
  bool BibliaMudando = false; // a translation is being changed: Bible loader
  TabelaEstrofes Estrofes;
  int TotalEstrofes = 0;
  QStringList TextoEstrofes; // from 0: verse n is element n - 1, lines joined by "<br>"
  bool PaginandoEstrofes = false;
  bool TextoMaiusculo = false;
  QString FonteTexto;
  QString FonteTamanho; // points, a whole number
  bool TelaLarga = true; // the projection's width over its height is above 1.34
  QString UltimoTexto;

  // stepping
  int EstrofeAtual = -1; // 1-based; -1 means none
  int TopoDestino = 0;   // twips
  QString ModoMovimento = QStringLiteral("Normal"); // "Normal", "Acima", "Abaixo"
  bool EnviarAoTelao = false;

  // slides: ControlSlides
  int SlideAtual = 0; // on the projection, from 1; 0 means none
  int TotalSlides = 0;

  QString SlideShowAtivo; // "True" while the remote of a slide show is open: slide show runner

  // local videos
  QString VideoAtivo;   // "True" while the control of a local video is open: video control
  int VolumeVideo = 50; // the last volume that the operator chose, kept across videos: video control
  int EstadoVideo = 0;  // what the player did after the last press of a transport button: video control

  // web videos
  QString TipoMidia;     // "youtube" while one is on the projection: web video runner
  QString EstadoYoutube; // "Play" while it runs, empty while it is paused: web video control

  // the projection
  QString EstadoTela = QStringLiteral("Normal"); // screen controls: "Normal", "OcultarTexto", "TelaPreta", "PadraoDeFundo", "Hide"
  QString PaginaAtual;     // page builder, presentation flow
  QString VersoHtmlAtual;  // the composers
  QString VersoTextoAtual; // lyrics composer
  QString VersoBibliaAtual; // Bible composer

  // themes
  TemaRecord TemaAtual;              // theme control
  int IndiceTema = 1;                // theme control
  int ProximoTema = SemTemaNaFila;   // theme control
  bool FundoPreso = false;           // whoever places a picture by hand; cleared by stepping
  bool ImagensCongeladas = false;    // image moves are locked for this run

  // agenda
  int ActiveAgenda = 0; // 1 to 5; 0 before the first click on a tab

  void DefineTipo(const QString &tipo) {
    if (tipo != TipoAtual) {
      TipoAnterior = TipoAtual;
      TipoAtual = tipo;
    }
  }
  bool EhSlides() const { return TipoAtual == u"Slides"; }
  bool EhVideo() const { return TipoAtual == u"Video" || TipoAtual == u"Youtube"; } // a sound is one too
  bool EhSlideShow() const { return TipoAtual == u"SlideShow"; }
  // The page on the projection takes verses.
  bool PaginaDeTexto() const {
    return PaginaAtual == u"backcolor.html" || PaginaAtual == u"imagem.html" || PaginaAtual == u"video.html";
  }
  bool PaginaDeSlides() const { return PaginaAtual == u"slide"; }
  bool EhLetra() const { return TipoAtual == u"Louvor" || TipoAtual == u"Harpa"; }
};

// The settings that composers read. Written by the text controls at the moment of their change and at start.
struct AjustesTexto {
  int EstiloLouvor = 4;  // 0 and 1 plain, 2 to 6 with a band, 7 and 8 animated
  int EstiloBiblia = 1;
  int FontSizeClass = 1; // 0 small, 1 medium, 2 large
  int SombraVerso = 7;
  QString TransparenciaFaixa = QStringLiteral("7"); // "0" to "10"
  double EscalaBiblia = 100;                        // per cent
  int ZoomAjust = 100;                              // per cent
  int ZoomAjustBiblia = 100;                        // per cent
  QString AlinhamentoVertical = QStringLiteral("center"); // "flex-start", "center", "flex-end"
  int Alinhamento = 2;       // 0 left, 1 right, 2 centre
  int AlinhamentoBiblia = 0; // 0 left, 1 right, 2 centre
  bool FonteGrande = false;

  // What goes with every effect, for this session: the effect controls.
  bool FadeImagem = false;
  bool ZoomImagem = false;
  bool FadeTexto = false;
  bool ZoomTexto = false;
};

} // namespace tolmira
