#include "display/ui/mpv_player.h"

#include "display/ui/mpv_library.h"
#include "display/ui/mpv_nodes.h"
#include "display/ui/video_surface.h"
#include "foundation/real_path.h"

#include <QObject>
#include <QRect>
#include <QWidget>
#include <algorithm>
#include <optional>
#include <utility>

namespace tolmira {

namespace {

// The real file behind the stored path. Empty for an address, which may come from a document of somebody else's.
QByteArray MediaTarget(const QString &stored) {
  const bool url = stored.startsWith(u"file:///", Qt::CaseInsensitive);
  const QString path = MapStoredPath(url ? stored.mid(8) : stored).text();
  return path.startsWith(u'/') ? path.toUtf8() : QByteArray();
}

QLatin1String Word(bool value) {
  return value ? QLatin1String("true") : QLatin1String("false");
}

// Stretched or not, a picture keeps its aspect; a small one is enlarged only when it is to fit.
const char *UnscaledMode(bool stretch) {
  return stretch ? "no" : "downscale-big";
}

} // namespace

struct MpvPlayer::Impl : public QObject {
  Impl(MpvPlayer &player, QWidget *host, VideoDrawing kind, DisplayObserver *hears)
      : owner(player), picwmp(host), drawing(kind), observer(hears) {
    // The first GL widget that comes to a window on show has that window made anew, so this one is there from the
    // start.
    if (drawing == VideoDrawing::Gl)
      surface = NewGlVideoSurface(picwmp);
  }
  // The surface draws what the library gives, so it goes first.
  ~Impl() override { surface.reset(); }

  bool Ensure();
  void ApplyPause();
  void Seek(double seconds);
  void Load(double from = 0);
  void SendLoad();
  void OnDrawing(bool can);
  void Forget();
  void OnBroken(bool wasLoaded);
  void Fail();
  void OnEvent(const mpv_event &event);
  void OnTracks(const mpv_node &list);
  bool WithoutPicture() const { return fileLoaded && tracksKnown && !tracks.videoSelected; }
  void ShowPicture();
  void OnProperty(const mpv_event_property &property, uint64_t watched);
  void Say(const QString &call) const {
    if (observer)
      observer->OnMedia(call);
  }
  void Place() {
    if (!surface)
      return;
    surface->Widget()->setGeometry(geometry.value_or(picwmp->rect()));
    surface->Widget()->setVisible(visible);
  }

  MpvPlayer &owner;
  QWidget *picwmp;
  VideoDrawing drawing;
  DisplayObserver *observer;
  MpvLibrary library;
  std::unique_ptr<VideoSurface> surface;

  QString url;
  PlayState state = PlayState::Undefined;
  double position = 0;
  double duration = 0;
  int volume = 50;
  bool loop = false;
  bool stretch = false;
  uint64_t loads = 0; // counts the files, so that no answer about one is taken for another's
  bool sent = false;  // the library has been told of the present file
  int64_t entry = 0;  // the library's number of the present file; 0 until it has told
  bool begun = false; // the library is at the present file
  bool fileLoaded = false;
  bool started = false; // its first picture and sound are there
  bool frame = false;   // a picture has come since it was open
  bool picture = false; // both
  bool broken = false;
  bool tracksKnown = false;
  MpvTracks tracks;
  bool waitsForPicture = false; // SetEsperaImagem
  bool soundAlone = false;      // the picture of the present file is left out, for it cannot be decoded
  bool drawingLost = false;
  int wantedSound = 0;
  double wantedPosition = 0; // seconds, asked for before the file was open
  double firstPosition = 0;  // where the library begins by itself
  bool visible = true;
  std::optional<QRect> geometry;
};

bool MpvPlayer::Impl::Ensure() {
  if (library.Handle())
    return true;
  if (!surface)
    surface = NewSoftwareVideoSurface(picwmp);
  if (!library.Start(surface->CanDraw(), drawing == VideoDrawing::Gl))
    return false;
  library.OnEvent = [this](const mpv_event &event) { OnEvent(event); };
  surface->OnFrame = [this] {
    frame = fileLoaded;
    ShowPicture();
  };
  surface->OnDrawing = [this](bool can) { OnDrawing(can); };
  surface->Attach(library.Handle());
  Place();
  library.Text("volume", QByteArray::number(volume).constData());
  library.Text("loop-file", loop ? "inf" : "no");
  library.Text("video-unscaled", UnscaledMode(stretch));
  return true;
}

void MpvPlayer::Impl::ApplyPause() {
  const bool waits = waitsForPicture && !(fileLoaded && tracksKnown && tracks.videoSelected);
  if (sent)
    library.Flag("pause", state != PlayState::Playing || waits);
}

void MpvPlayer::Impl::Seek(double seconds) {
  position = seconds;
  if (fileLoaded)
    library.Command({"seek", QByteArray::number(seconds, 'f', 3).constData(), "absolute+exact"});
  else
    wantedPosition = seconds;
}

// What is asked for in the same turn of the loop goes along with the file: one that shall begin in its middle, or wait,
// is not heard from its start before.
void MpvPlayer::Impl::Load(double from) {
  Forget();
  state = PlayState::Playing;
  position = wantedPosition = from;
  ++loads;
  QMetaObject::invokeMethod(
      this,
      [this, load = loads] {
        if (load == loads && !url.isEmpty())
          SendLoad();
      },
      Qt::QueuedConnection);
}

void MpvPlayer::Impl::SendLoad() {
  const QByteArray target = MediaTarget(url);
  if (target.isEmpty()) {
    library.Command({"stop"}); // the file before
    Fail();
    return;
  }
  firstPosition = wantedPosition;
  MpvArguments options;
  options.Set("aid", wantedSound > 0 ? QByteArray::number(wantedSound) : QByteArray("auto"));
  options.Set("vid", soundAlone ? "no" : "auto");
  if (firstPosition > 0)
    options.Set("start", QByteArray::number(firstPosition, 'f', 3));
  MpvArguments arguments;
  arguments.Set("name", "loadfile");
  arguments.Set("url", target);
  arguments.Set("flags", "replace");
  mpv_node command = arguments.Node(&options);
  mpv_command_node_async(library.Handle(), loads, &command);
  sent = true;
  ApplyPause();
}

// A renderer that goes takes the file's picture with it, or the whole file where that is all it has. With the next one
// the file is opened anew where it was.
void MpvPlayer::Impl::OnDrawing(bool can) {
  library.Text("vo", can ? "libmpv" : "null");
  if (!can) {
    drawingLost = true;
    frame = false;
    ShowPicture();
  } else if (std::exchange(drawingLost, false) && !url.isEmpty() && !broken) {
    const PlayState before = state;
    Load(before == PlayState::Ended ? 0 : position);
    state = before == PlayState::Ended ? PlayState::Stopped : before;
  }
}

void MpvPlayer::Impl::Forget() {
  position = 0;
  duration = 0;
  entry = 0;
  sent = begun = fileLoaded = started = frame = broken = false;
  tracksKnown = soundAlone = false;
  tracks = {};
  wantedSound = 0; // a choice was for the file before
  wantedPosition = firstPosition = 0;
  ShowPicture();
}

// The library gives a whole file up whose picture cannot be decoded. Its sound may be good.
void MpvPlayer::Impl::OnBroken(bool wasLoaded) {
  if (!wasLoaded || started || soundAlone) {
    Fail();
    return;
  }
  const PlayState before = state;
  Load(position);
  state = before;
  soundAlone = true;
}

void MpvPlayer::Impl::Fail() {
  state = PlayState::Stopped;
  broken = true;
  fileLoaded = started = frame = false;
  ShowPicture();
  if (owner.OnFalha)
    owner.OnFalha();
}

// The surface keeps its last picture, which may be one of the file before: it is uncovered when one of this file is
// there.
void MpvPlayer::Impl::ShowPicture() {
  const bool before = std::exchange(picture, started && frame);
  if (surface)
    surface->SetBlank(!picture || state == PlayState::Stopped);
  if (before != picture && owner.OnImagem)
    owner.OnImagem();
}

void MpvPlayer::Impl::OnEvent(const mpv_event &event) {
  switch (event.event_id) {
  case MPV_EVENT_COMMAND_REPLY:
    if (event.reply_userdata != loads || url.isEmpty())
      break;
    entry = PlaylistEntryOf(event);
    if (entry == 0)
      Fail();
    break;
  case MPV_EVENT_START_FILE:
    begun = entry != 0 && static_cast<mpv_event_start_file *>(event.data)->playlist_entry_id == entry;
    break;
  case MPV_EVENT_FILE_LOADED:
    if (!begun)
      break;
    fileLoaded = true;
    mpv_get_property_async(library.Handle(), loads, "track-list", MPV_FORMAT_NODE); // as they are chosen now
    if (firstPosition > 0)
      library.Text("start", "none"); // a loop goes back to the very start
    if (wantedPosition != firstPosition)
      Seek(wantedPosition);
    break;
  case MPV_EVENT_GET_PROPERTY_REPLY:
    if (event.reply_userdata != loads || event.error < 0 || !fileLoaded)
      break;
    tracksKnown = true;
    OnTracks(*static_cast<mpv_node *>(static_cast<mpv_event_property *>(event.data)->data));
    if (waitsForPicture)
      ApplyPause();
    break;
  case MPV_EVENT_PLAYBACK_RESTART:
    started = fileLoaded;
    ShowPicture();
    break;
  case MPV_EVENT_END_FILE: {
    // A file that gives way to the next one ends too; only one that could not be played stops the player. One that
    // turns out to be a list of others is none that can be played.
    const auto *end = static_cast<mpv_event_end_file *>(event.data);
    if (entry == 0 || end->playlist_entry_id != entry)
      break;
    begun = false;
    const bool wasLoaded = std::exchange(fileLoaded, false);
    if (end->reason == MPV_END_FILE_REASON_REDIRECT)
      library.Command({"stop"});
    if (end->reason == MPV_END_FILE_REASON_ERROR && !drawingLost)
      OnBroken(wasLoaded);
    else if (end->reason == MPV_END_FILE_REASON_REDIRECT)
      Fail();
    break;
  }
  case MPV_EVENT_PROPERTY_CHANGE:
    OnProperty(*static_cast<mpv_event_property *>(event.data), event.reply_userdata);
    break;
  default:
    break;
  }
}

void MpvPlayer::Impl::OnTracks(const mpv_node &list) {
  if (!tracksKnown || list.format != MPV_FORMAT_NODE_ARRAY)
    return;
  const bool selected = tracks.videoSelected;
  tracks = TracksOf(list);
  if (drawingLost) // which takes the choice away, for a while
    tracks.videoSelected = selected;
}

void MpvPlayer::Impl::OnProperty(const mpv_event_property &property, uint64_t watched) {
  if (!begun || !property.data)
    return;
  switch (watched) {
  case MpvLibrary::WatchTime:
    if (fileLoaded && state != PlayState::Stopped)
      position = std::max(0.0, *static_cast<double *>(property.data)); // a sound may begin before the picture's zero
    break;
  case MpvLibrary::WatchDuration:
    duration = *static_cast<double *>(property.data);
    break;
  case MpvLibrary::WatchTracks:
    OnTracks(*static_cast<mpv_node *>(property.data));
    break;
  case MpvLibrary::WatchEof:
    if (*static_cast<int *>(property.data) && fileLoaded && state == PlayState::Playing && !loop)
      state = PlayState::Ended;
    break;
  default:
    break;
  }
}

MpvPlayer::MpvPlayer(QWidget *picwmp, VideoDrawing drawing, DisplayObserver *observer)
    : m_impl(std::make_unique<Impl>(*this, picwmp, drawing, observer)) {}

MpvPlayer::~MpvPlayer() = default;

void MpvPlayer::SetUrl(const QString &storedPathOrAddress) {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("URL=") + storedPathOrAddress);
  if (storedPathOrAddress.isEmpty()) {
    Close();
    return;
  }
  d.url = storedPathOrAddress;
  if (d.Ensure())
    d.Load();
  else
    d.Fail();
}

QString MpvPlayer::Url() const {
  return m_impl->url;
}

void MpvPlayer::Close() {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("close"));
  d.library.Command({"stop"});
  d.url.clear();
  ++d.loads;
  d.state = PlayState::Undefined;
  d.Forget();
}

void MpvPlayer::ControlsPlay() {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("controls.play"));
  if (d.url.isEmpty() || !d.library.Handle())
    return;
  if (d.broken) // perhaps the disk is back
    return d.Load();
  if (d.state == PlayState::Ended)
    d.Seek(0);
  d.state = PlayState::Playing;
  d.ApplyPause();
  d.ShowPicture();
}

void MpvPlayer::ControlsPause() {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("controls.pause"));
  if (d.state != PlayState::Playing)
    return;
  d.state = PlayState::Paused;
  d.ApplyPause();
}

void MpvPlayer::ControlsStop() {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("controls.stop"));
  if (d.url.isEmpty())
    return;
  // Kept open at its start, so that the play that often follows at once begins without a gap.
  d.state = PlayState::Stopped;
  d.ApplyPause();
  d.Seek(0);
  d.ShowPicture();
}

double MpvPlayer::CurrentPosition() const {
  return m_impl->position;
}

void MpvPlayer::SetCurrentPosition(double seconds) {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("controls.currentPosition=") + QString::number(seconds));
  if (d.url.isEmpty() || d.broken)
    return;
  if (d.state == PlayState::Ended)
    d.state = PlayState::Paused;
  d.Seek(std::max(0.0, seconds));
}

double MpvPlayer::MediaDuration() const {
  return m_impl->duration;
}

int MpvPlayer::Volume() const {
  return m_impl->volume;
}

void MpvPlayer::SetVolume(int volume) {
  Impl &d = *m_impl;
  d.volume = std::clamp(volume, 0, 100);
  d.Say(QStringLiteral("settings.volume=") + QString::number(d.volume));
  d.library.Text("volume", QByteArray::number(d.volume).constData());
}

void MpvPlayer::SetLoop(bool loop) {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("settings.setMode(loop,%1)").arg(Word(loop)));
  d.loop = loop;
  d.library.Text("loop-file", loop ? "inf" : "no");
}

bool MpvPlayer::Loop() const {
  return m_impl->loop;
}

bool MpvPlayer::Falhou() const {
  return m_impl->broken;
}

bool MpvPlayer::SemImagem() const {
  return m_impl->WithoutPicture();
}

bool MpvPlayer::ImagemIlegivel() const {
  return m_impl->WithoutPicture() && m_impl->tracks.hasVideo;
}

QList<FaixaDeAudio> MpvPlayer::FaixasDeAudio() const {
  return m_impl->tracks.sounds;
}

int MpvPlayer::FaixaDeAudioAtual() const {
  return m_impl->tracks.sound;
}

void MpvPlayer::DefineFaixaDeAudio(int id) {
  m_impl->Say(QStringLiteral("currentAudioTrack=%1").arg(id));
  m_impl->wantedSound = id;
  if (m_impl->sent)
    m_impl->library.Text("aid", QByteArray::number(id).constData());
}

bool MpvPlayer::TemImagem() const {
  return m_impl->picture;
}

PlayState MpvPlayer::State() const {
  return m_impl->state;
}

void MpvPlayer::SetStretchToFit(bool stretch) {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("stretchToFit=%1").arg(Word(stretch)));
  d.stretch = stretch;
  d.library.Text("video-unscaled", UnscaledMode(stretch));
}

void MpvPlayer::SetFullScreen(bool full) {
  m_impl->Say(QStringLiteral("fullScreen=%1").arg(Word(full)));
}

void MpvPlayer::SetUiMode(const QString &mode) {
  m_impl->Say(QStringLiteral("uiMode=") + mode);
}

void MpvPlayer::SetEsperaImagem(bool espera) {
  m_impl->waitsForPicture = espera;
  m_impl->ApplyPause();
}

void MpvPlayer::SetVisible(bool visible) {
  m_impl->visible = visible;
  m_impl->Place();
}

void MpvPlayer::SetGeometry(const QRect &rect) {
  m_impl->geometry = rect;
  m_impl->Place();
}

} // namespace tolmira
