#pragma once

#include <QList>
#include <QRect>
#include <QString>

#include <functional>

namespace tolmira {

// Which of the two pages something is for.
enum class Alvo { Ambas, Telao, Previa };

// One browser object, the page inside a page host. Scripts that arrive after a Navigate wait for the page and run in
// order when it has loaded; a newer Navigate and the time-out drop what waited. Nothing here blocks.
class PageObject {
public:
  virtual ~PageObject() = default;
  virtual void Navigate(const QString &url, int timeoutSeconds) = 0; // "file:///" and a path, a path, or a web address
  virtual void ExecuteScript(const QString &script) = 0;
  // Sets a page property, for example "document.getElementById('x').innerHTML", to a text (any characters).
  virtual void SetPageProperty(const QString &path, const QString &value) = 0;
  virtual void SetZoomFactor(double factor) = 0; // 1.0 is 100 per cent
  // Runs a script and hands its result over as JSON text ("null" when there is none).
  virtual void Evaluate(const QString &script, std::function<void(const QString &json)> onResult) = 0;

  // The page itself wants to leave: every such navigation is cancelled; a Navigate by the host is not reported.
  std::function<void(const QString &uri, bool &cancel)> AoNavegar;
  // A server redirects what the host navigated to; without a handler, or while it leaves `cancel` false, the load goes
  // on there. A refused one leaves the page of before in its place: the handler has the host go elsewhere.
  std::function<void(const QString &uri, bool &cancel)> AoDesviar;
  // kind 2 is the camera; state 1 allows, 0 leaves the default.
  std::function<void(int kind, int &state)> AoPermissao;
};

enum class PlayState { Undefined = 0, Stopped = 1, Paused = 2, Playing = 3, Ended = 8 };

// One of the sounds of a file: a language, a comment, the music without the voice.
struct FaixaDeAudio {
  int id = 0; // as the player counts them, from 1
  QString nome; // title and language as the file gives them; may be empty
  friend bool operator==(const FaixaDeAudio &, const FaixaDeAudio &) = default;
};

// The media player behind the projection's video layer.
class MediaPlayer {
public:
  virtual ~MediaPlayer() = default;
  // Begins to play unless stopped, as `URL` does. What is asked for in the same turn of the loop, a position or a pause,
  // counts from the first sound on.
  virtual void SetUrl(const QString &storedPathOrAddress) = 0;
  virtual QString Url() const = 0;
  virtual void Close() = 0;
  virtual void ControlsPlay() = 0;
  virtual void ControlsPause() = 0;
  virtual void ControlsStop() = 0;
  virtual double CurrentPosition() const = 0; // seconds
  virtual void SetCurrentPosition(double seconds) = 0;
  virtual double MediaDuration() const = 0; // seconds; 0 while unknown
  virtual int Volume() const = 0;           // 0 to 100
  virtual void SetVolume(int volume) = 0;
  virtual void SetLoop(bool loop) = 0;
  virtual bool Loop() const = 0;
  virtual PlayState State() const = 0;
  virtual bool Falhou() const = 0;    // the media could not be opened, or broke off with an error; a play tries again
  virtual bool SemImagem() const = 0; // the media is open and has sound alone, or nothing else that can be decoded
  virtual bool ImagemIlegivel() const = 0; // the latter
  virtual QList<FaixaDeAudio> FaixasDeAudio() const = 0; // empty until the media is open
  virtual int FaixaDeAudioAtual() const = 0;             // its id; 0 for none
  virtual void DefineFaixaDeAudio(int id) = 0;
  virtual void SetStretchToFit(bool stretch) = 0;
  virtual void SetFullScreen(bool full) = 0; // the layer fills its window; no window of its own is opened
  virtual void SetUiMode(const QString &mode) = 0; // "none" is all there is here
};

// The layers and the state of the projection window, as the command handler and the window operations drive them. The
// real one is the window FrmQuendar.
class DisplayLayers {
public:
  virtual ~DisplayLayers() = default;
  virtual PageObject *WV() = 0;   // null while the browser object does not exist
  virtual MediaPlayer *wmp() = 0; // never null
  virtual void ShowPicwmp(bool visible) = 0;
  virtual void PicwmpToBack() = 0;
  virtual void ShowPicWV(bool visible) = 0;
  virtual void PicWVToBack() = 0;
  virtual bool PicwmpVisible() const = 0;
  // The page above the layers, which runs notices where the page on show cannot; null while there is none. One that is asked
  // for by `cria` is for a notice that the caller gives it at once; it goes by itself when no notice runs on it any more.
  virtual PageObject *WVAviso(bool cria) = 0;
  virtual void ShowWmp(bool visible) = 0; // the player inside Picwmp
  virtual void ShowTelaPreta(bool visible) = 0;
  virtual bool TelaPretaVisible() const = 0;
  virtual void TelaPretaToFront() = 0;
  // Takes the picture into ImagePadrao; false, and the old picture stays, when it cannot be read.
  virtual bool LoadImagePadrao(const QString &storedPath) = 0;
  virtual void ShowImagePadrao(bool visible) = 0;
  virtual void ImagePadraoToFront() = 0;
  virtual void PicMoveToFront() = 0;
  virtual void StopGripTimer() = 0; // TimerRemoveBarraTitulo
  virtual void FitMedia() = 0;      // Picwmp and wmp to (0, 0) with the window's size
  virtual void SetWindowVisible(bool visible) = 0;
  virtual void SetTopmost(bool topmost) = 0;
  virtual void Unload() = 0;
  virtual QSize SizePx() const = 0;
};

// The console's mirror of the black screen and the default picture, laid over its preview.
class PreviewMirror {
public:
  virtual ~PreviewMirror() = default;
  virtual void FitMirror() = 0;
  virtual void ShowMirrorBlack(bool visible) = 0;
  virtual bool LoadMirrorPicture(const QString &storedPath) = 0;
  virtual void ShowMirrorPicture(bool visible) = 0;
};

// The projection as the rest of the program sees it. Every call is synchronous.
class Display {
public:
  virtual ~Display() = default;
  virtual void ProcessaComando(const QString &comando) = 0;
  virtual PageObject *WV() = 0;
  virtual MediaPlayer *wmp() = 0;
  // The player's area becomes invisible and takes no room; the sound goes on. The last picture of a video that stood
  // there stays until the next page has drawn itself, or for a moment when none comes.
  virtual void EscondeMidia() = 0;
  virtual void PreparaVideo() = 0; // the media reset: the player's area takes the whole window, volume 50
  // The area covers the page from the first picture of the media on. Until then what stood before the present page is
  // seen, for a few seconds at most, and media that turn out to have no picture wait at their start.
  virtual void MostraMidia() = 0;
  virtual void ParaRampa() = 0; // a fade of the sound that has begun ends where it is
  virtual QSize SizePx() const = 0; // of the projection window, in pixels
  virtual bool DisplayVisivel() const = 0;
  virtual void DefineTelaPreta(bool ligado) = 0;
  virtual void DefineFundoPadrao(const QString &caminho) = 0;
};

// Hears everything that goes to the screen: the control interface and the logs use it.
class DisplayObserver {
public:
  virtual ~DisplayObserver() = default;
  virtual void OnCommand(const QString &comando) = 0;
  virtual void OnScript(const QString &page, const QString &script) = 0;
  virtual void OnNavigate(const QString &page, const QString &url) = 0;
  virtual void OnMedia(const QString &call) = 0;
};

} // namespace tolmira
