#pragma once

#include <QString>

#include <vector>

#include "foundation/seams.h"
#include "media/cameras.h"

namespace tolmira {

// The text strip and its frame, in twips (15 to the pixel), relative to the panel that holds them.
struct FaixaTexto {
  int PainelLargura = 0; // window: size of the panel PicAbac
  int PainelAltura = 0;
  int FrameTop = 0;      // AjustaQuadro
  int FrameHeight = 0;
  int FrameLeft = 0;
  int FrameWidth = 0;
  bool Label1Visible = false;
  QString Label1Texto;   // CR LF line ends, padded
  FontSpec Label1Fonte;
  int Label1Topo = 0;    // may lie far above or below the panel
  int Label1Esquerda = 0;
  int Label1Largura = 0;
  int Alinhamento = 2;   // 0 left, 1 right, 2 centre
  QString VersoAtual;    // for screen readers: the text in the frame
};

// The passage on the console, in place of the strip.
struct PainelBiblia {
  bool Visible = false;
  QString Texto; // without the verse's number
  QString Referencia;
  QString Versao;
  int Alinhamento = 0;  // 0 left, 1 right, 2 centre
  bool Adiante = false; // the operator looks ahead: the projection shows something else
};

// A slide show on the projection.
struct PainelSlideShow {
  bool Ativo = false;
  bool Parado = false;
  QString Imagem; // the picture on show; empty before the first one
  bool Acabou = false;    // its end text stands, or nothing
  bool SemMusica = false; // its audio cannot be played
};

// A video on the projection, a local one or one of the web.
struct PainelVideo {
  enum class Situacao { Tocando, Parado, Acabou, Falhou };
  bool Ativo = false;
  Situacao situacao = Situacao::Tocando;
  bool ImagemIlegivel = false; // its picture cannot be decoded: sound alone
  QString Nome;  // of its file, or the title of its entry
  QString Tempo; // gone by and in all; empty while unknown
  QString Aviso; // why it failed and what helps, in the place of its name; mostly empty
  friend bool operator==(const PainelVideo &, const PainelVideo &) = default;
};

// The cameras behind the text.
struct PainelCamera {
  bool Pode = false; // the page on show can have one
  Cameras::Situacao situacao = Cameras::Situacao::Desligada; // of the one that was chosen last
  QString Nome;
};

// A line of the menu of screens. The first is the automatic choice.
struct OpcaoDeTela {
  QString texto;
  bool marcada = false;
  bool presente = true; // false: the chosen monitor, which is not there
  friend bool operator==(const OpcaoDeTela &, const OpcaoDeTela &) = default;
};

// Whether somebody takes the captions.
enum class ServidorDeLegendas { Desligado, SemCliente, ComCliente };

// The state of the projection in words. The colours are those of the style sheet: "live", "ready" (live, without text),
// "held", "off", or empty.
struct SituacaoDaTela {
  QString LbEstadoTela; // what the congregation sees, in capitals
  QString CorDoEstado;
  QString LbDetalheTela; // which verse, or what brings the text back
  QString LbProximo;     // what the next key shows
  QString LbDepois;      // what comes after the item on show; often empty
  QString LbServidorLegenda;
  QString CorDasLegendas;
};

// What the console shows besides its text. The logic writes it and calls ConsoleView::Atualiza; the window only copies
// it to its controls.
struct PainelConsole {
  QString Label9;                  // title of the item on show
  bool LbFaixaVisible = false;     // with SliderFaixa
  bool SliderExLouvorVisible = false;
  bool SliderExBibliaVisible = false;
  bool ComboFontSizeVisible = false;
  bool SliderZoomVisible = true;   // with Label31
  int SliderZoom = 100;            // per cent
  bool sliderZoomBibliaVisible = false;
  bool Picture4Visible = true;     // alignment and size of songs
  bool Picture7Visible = false;    // the same for the Bible
  int ImgAlinhamentoVertical = 2;  // 0 flex-start, 1 flex-end, 2 center
  void DefineAlinhamentoVertical(const QString &valor) {
    ImgAlinhamentoVertical = valor == u"center" ? 2 : valor == u"flex-start" ? 0 : 1;
  }
  bool CommandBtEnabled = false;   // three buttons of text effects, and Command2
  int LBTelaMarcado = 0;           // index of the chosen screen state
  bool SemProjetor = false;        // the monitor of the projection was taken away
  QString TelaoEm;                 // name of the monitor that the projection is on, or was on when it was taken away
  std::vector<OpcaoDeTela> telas;  // where the projection can go
  bool Ensaio = false;             // the projection is a window on the console's own screen
  ServidorDeLegendas Legendas = ServidorDeLegendas::Desligado; // caption server
  SituacaoDaTela situacao;         // made of the records whenever the console is brought up to date

  int SlideEscolhido = 0; // of the slides on show, from 1: ahead of the projection while Ctrl is held

  PainelBiblia biblia;
  PainelSlideShow slideShow;
  PainelVideo video;
  PainelCamera camera;
  QString LbVersao;                // "Tradução: " and the version's name
  QString LabelDicaBiblia;         // how to walk through a passage; before the first one the same as LbVersao

  // tips
  bool PicAviso = false;           // "drag the text or press an arrow key"
  bool AvisoAberto = false;        // the window of the notices is open, and PicAviso says so
  bool PicAviso2 = true;           // nothing loaded
  bool PicDica2 = false;
  bool PicDica3 = false;
  QString PicDica3Texto;
  bool PicDica4 = false;           // press Ctrl to skip verses
  bool PicDicaAgenda = false;
  QString LbDicaAgenda;
  QString MensagemTira;            // a sentence in the strip's own message line; empty for none

  // themes
  int PicTemaAtual = 0;            // slot with the frame of the active theme; 0 for none
  int PicAvisoProximo = 0;         // slot with the blinking frame of the queued theme; 0 for none
  bool ChkIMVisible = true;
};

// The console window as the logic sees it. A double records the calls.
class ConsoleView {
public:
  virtual ~ConsoleView() = default;
  virtual void Atualiza() = 0;        // the panel record or the strip's content changed
  virtual void StripMoved() = 0;      // only Label1Topo changed: called at each tick of a glide
  virtual void AgendaChanged() = 0;   // entries, selection, tab or titles
  virtual void ThemesChanged() = 0;   // tiles or the active theme's values
  virtual void FocusStrip() = 0;      // the focus goes to the strip, where the arrow keys act
  virtual int PreviewWidthPx() const = 0;
};

} // namespace tolmira
