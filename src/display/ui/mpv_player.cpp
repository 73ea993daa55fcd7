#include "display/ui/mpv_player.h"

#include "display/ui/video_surface.h"
#include "foundation/real_path.h"

#include <QObject>
#include <QRect>
#include <QWidget>
#include <algorithm>
#include <clocale>
#include <mpv/client.h>
#include <optional>
#include <utility>
#include <vector>

namespace tolmira {

namespace {

enum Watched : uint64_t { WatchTime = 1, WatchDuration, WatchEof, WatchTracks };

// The real file behind the stored path. Empty for an address, which may come from a document of somebody else's.
QByteArray MediaTarget(const QString &stored) {
  const bool url = stored.startsWith(u"file:///", Qt::CaseInsensitive);
  const QString path = MapStoredPath(url ? stored.mid(8) : stored).text();
  return path.startsWith(u'/') ? path.toUtf8() : QByteArray();
}

// Arguments of a command by their names, whose order differs between versions of the library.
class NamedArguments {
public:
  void Set(const char *name, QByteArray value) {
    m_names.push_back(name);
    m_values.push_back(std::move(value));
  }
  // Points into this object.
  mpv_node Node(NamedArguments *options = nullptr) {
    m_nodes.clear();
    for (QByteArray &value : m_values)
      m_nodes.push_back(mpv_node{.u = {.string = value.data()}, .format = MPV_FORMAT_STRING});
    std::vector<const char *> &names = m_listed = m_names;
    if (options) {
      names.push_back("options");
      m_nodes.push_back(options->Node());
    }
    m_list = {static_cast<int>(m_nodes.size()), m_nodes.data(), const_cast<char **>(names.data())};
    return mpv_node{.u = {.list = &m_list}, .format = MPV_FORMAT_NODE_MAP};
  }

private:
  std::vector<const char *> m_names;
  std::vector<const char *> m_listed;
  std::vector<QByteArray> m_values;
  std::vector<mpv_node> m_nodes;
  mpv_node_list m_list{};
};

// A member of a node that is a map; null where there is none.
const mpv_node *Member(const mpv_node &map, const char *name) {
  if (map.format != MPV_FORMAT_NODE_MAP)
    return nullptr;
  for (int i = 0; i < map.u.list->num; ++i)
    if (qstrcmp(map.u.list->keys[i], name) == 0)
      return &map.u.list->values[i];
  return nullptr;
}

QString TextOf(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_STRING ? QString::fromUtf8(node->u.string) : QString();
}

bool IsSet(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_FLAG && node->u.flag;
}

int64_t NumberOf(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_INT64 ? node->u.int64 : 0;
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
  ~Impl() override {
    surface.reset();
    if (mpv) {
      mpv_set_wakeup_callback(mpv, nullptr, nullptr);
      mpv_terminate_destroy(mpv);
    }
  }

  bool Ensure();
  void Option(const char *name, const char *value) { mpv_set_option_string(mpv, name, value); }
  void Command(std::initializer_list<const char *> words);
  void Flag(const char *name, bool on);
  void Text(const char *name, const char *value);
  void ApplyPause();
  void Seek(double seconds);
  void Load(double from = 0);
  void SendLoad();
  void OnDrawing(bool can);
  void Forget();
  void OnBroken(bool wasLoaded);
  void Fail();
  void ReadEvents();
  void OnEvent(const mpv_event &event);
  void OnTracks(const mpv_node &list);
  bool WithoutPicture() const { return fileLoaded && tracksKnown && !videoSelected; }
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
  mpv_handle *mpv = nullptr;
  std::unique_ptr<VideoSurface> surface;
  bool failed = false;

  QString url;
  PlayState state = PlayState::Undefined;
  double position = 0;
  double duration = 0;
  int volume = 50;
  bool loop = false;
  bool stretch = false;
  uint64_t loads = 0;   // counts the files, so that no answer about one is taken for another's
  bool sent = false;    // the library has been told of the present file
  int64_t entry = 0;    // the library's number of the present file; 0 until it has told
  bool begun = false;   // the library is at the present file
  bool fileLoaded = false;
  bool started = false; // its first picture and sound are there
  bool frame = false;   // a picture has come since it was open
  bool picture = false; // both
  bool broken = false;
  bool tracksKnown = false;
  bool hasVideo = false;
  bool videoSelected = false;   // and can be decoded
  bool waitsForPicture = false; // SetEsperaImagem
  bool soundAlone = false;      // the picture of the present file is left out, for it cannot be decoded
  bool drawingLost = false;
  QList<FaixaDeAudio> sounds;
  int sound = 0;
  int wantedSound = 0;
  double wantedPosition = 0; // seconds, asked for before the file was open
  double firstPosition = 0;  // where the library begins by itself
  bool visible = true;
  std::optional<QRect> geometry;
};

bool MpvPlayer::Impl::Ensure() {
  if (mpv || failed)
    return mpv != nullptr;
  std::setlocale(LC_NUMERIC, "C"); // the library refuses to start under another decimal sign
  mpv = mpv_create();
  if (!mpv) {
    failed = true;
    return false;
  }
  Option("config", "no");
  Option("terminal", "no");
  Option("osc", "no");
  Option("input-default-bindings", "no");
  Option("input-vo-keyboard", "no");
  Option("load-scripts", "no");
  Option("ytdl", "no");
  // Without a place to draw on the library would give the picture up, so it plays on without one until there is.
  if (!surface)
    surface = NewSoftwareVideoSurface(picwmp);
  Option("vo", surface->CanDraw() ? "libmpv" : "null");
  Option("hwdec", drawing == VideoDrawing::Gl ? "auto-safe" : "no");
  Option("idle", "yes");
  Option("keep-open", "yes"); // the last picture stands at the end, instead of a sudden black
  Option("hr-seek", "yes");
  Option("audio-display", "no");
  Option("sub-auto", "no");
  Option("sid", "no");
  // A file is what it is: none of them leads the player to others, here or in a network.
  Option("access-references", "no");
  Option("ordered-chapters", "no");
  Option("demuxer-lavf-o", "protocol_whitelist=[file,crypto,data]");
  Option("audio-client-name", "Tolmira");
  if (const QByteArray device = qgetenv("TOLMIRA_AO"); !device.isEmpty())
    Option("ao", device.constData());
  if (mpv_initialize(mpv) < 0) {
    mpv_terminate_destroy(mpv);
    mpv = nullptr;
    failed = true;
    return false;
  }
  mpv_observe_property(mpv, WatchTime, "time-pos", MPV_FORMAT_DOUBLE);
  mpv_observe_property(mpv, WatchDuration, "duration", MPV_FORMAT_DOUBLE);
  mpv_observe_property(mpv, WatchEof, "eof-reached", MPV_FORMAT_FLAG);
  mpv_observe_property(mpv, WatchTracks, "track-list", MPV_FORMAT_NODE);
  mpv_set_wakeup_callback(
      mpv,
      [](void *self) {
        auto *impl = static_cast<Impl *>(self);
        QMetaObject::invokeMethod(
            impl, [impl] { impl->ReadEvents(); }, Qt::QueuedConnection);
      },
      this);

  surface->OnFrame = [this] {
    frame = fileLoaded;
    ShowPicture();
  };
  surface->OnDrawing = [this](bool can) { OnDrawing(can); };
  surface->Attach(mpv);
  Place();
  Text("volume", QByteArray::number(volume).constData());
  Text("loop-file", loop ? "inf" : "no");
  Text("video-unscaled", UnscaledMode(stretch));
  return true;
}

void MpvPlayer::Impl::Command(std::initializer_list<const char *> words) {
  if (!mpv)
    return;
  std::vector<const char *> arguments(words);
  arguments.push_back(nullptr);
  mpv_command_async(mpv, 0, arguments.data());
}

void MpvPlayer::Impl::Flag(const char *name, bool on) {
  int value = on ? 1 : 0;
  if (mpv)
    mpv_set_property_async(mpv, 0, name, MPV_FORMAT_FLAG, &value);
}

void MpvPlayer::Impl::Text(const char *name, const char *value) {
  if (mpv)
    mpv_set_property_async(mpv, 0, name, MPV_FORMAT_STRING, &value);
}

void MpvPlayer::Impl::ApplyPause() {
  const bool waits = waitsForPicture && !(fileLoaded && tracksKnown && videoSelected);
  if (sent)
    Flag("pause", state != PlayState::Playing || waits);
}

void MpvPlayer::Impl::Seek(double seconds) {
  position = seconds;
  if (fileLoaded)
    Command({"seek", QByteArray::number(seconds, 'f', 3).constData(), "absolute+exact"});
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
    Command({"stop"}); // the file before
    Fail();
    return;
  }
  firstPosition = wantedPosition;
  NamedArguments options;
  options.Set("aid", wantedSound > 0 ? QByteArray::number(wantedSound) : QByteArray("auto"));
  options.Set("vid", soundAlone ? "no" : "auto");
  if (firstPosition > 0)
    options.Set("start", QByteArray::number(firstPosition, 'f', 3));
  NamedArguments arguments;
  arguments.Set("name", "loadfile");
  arguments.Set("url", target);
  arguments.Set("flags", "replace");
  mpv_node command = arguments.Node(&options);
  mpv_command_node_async(mpv, loads, &command);
  sent = true;
  ApplyPause();
}

// A renderer that goes takes the file's picture with it, or the whole file where that is all it has. With the next one
// the file is opened anew where it was.
void MpvPlayer::Impl::OnDrawing(bool can) {
  Text("vo", can ? "libmpv" : "null");
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
  tracksKnown = hasVideo = videoSelected = soundAlone = false;
  sounds.clear();
  sound = wantedSound = 0; // a choice was for the file before
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

// The surface keeps its last picture, which may be one of the file before: it is uncovered when one of this file is there.
void MpvPlayer::Impl::ShowPicture() {
  const bool before = std::exchange(picture, started && frame);
  if (surface)
    surface->SetBlank(!picture || state == PlayState::Stopped);
  if (before != picture && owner.OnImagem)
    owner.OnImagem();
}

void MpvPlayer::Impl::ReadEvents() {
  while (mpv) {
    const mpv_event *event = mpv_wait_event(mpv, 0);
    if (event->event_id == MPV_EVENT_NONE)
      return;
    OnEvent(*event);
  }
}

void MpvPlayer::Impl::OnEvent(const mpv_event &event) {
  switch (event.event_id) {
  case MPV_EVENT_COMMAND_REPLY:
    if (event.reply_userdata != loads || url.isEmpty())
      break;
    entry = event.error < 0
                ? 0
                : NumberOf(Member(static_cast<mpv_event_command *>(event.data)->result, "playlist_entry_id"));
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
    mpv_get_property_async(mpv, loads, "track-list", MPV_FORMAT_NODE); // as they are chosen now
    if (firstPosition > 0)
      Text("start", "none"); // a loop goes back to the very start
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
      Command({"stop"});
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
  if (list.format != MPV_FORMAT_NODE_ARRAY || !tracksKnown)
    return;
  hasVideo = false;
  bool selected = false;
  sounds.clear();
  sound = 0;
  for (int i = 0; i < list.u.list->num; ++i) {
    const mpv_node &track = list.u.list->values[i];
    const QString type = TextOf(Member(track, "type"));
    if (type == u"video" && !IsSet(Member(track, "albumart"))) {
      hasVideo = true;
      selected = selected || IsSet(Member(track, "selected"));
    }
    if (type != u"audio")
      continue;
    const int id = static_cast<int>(NumberOf(Member(track, "id")));
    QStringList words{TextOf(Member(track, "title")), TextOf(Member(track, "lang"))};
    words.removeAll(QString());
    sounds.append({id, words.join(QStringLiteral(", "))});
    if (IsSet(Member(track, "selected")))
      sound = id;
  }
  if (!drawingLost)
    videoSelected = selected;
}

void MpvPlayer::Impl::OnProperty(const mpv_event_property &property, uint64_t watched) {
  if (!begun || !property.data)
    return;
  switch (watched) {
  case WatchTime:
    if (fileLoaded && state != PlayState::Stopped)
      position = *static_cast<double *>(property.data);
    break;
  case WatchDuration:
    duration = *static_cast<double *>(property.data);
    break;
  case WatchTracks:
    OnTracks(*static_cast<mpv_node *>(property.data));
    break;
  case WatchEof:
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
  d.Command({"stop"});
  d.url.clear();
  ++d.loads;
  d.state = PlayState::Undefined;
  d.Forget();
}

void MpvPlayer::ControlsPlay() {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("controls.play"));
  if (d.url.isEmpty() || !d.mpv)
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
  d.Text("volume", QByteArray::number(d.volume).constData());
}

void MpvPlayer::SetLoop(bool loop) {
  Impl &d = *m_impl;
  d.Say(QStringLiteral("settings.setMode(loop,%1)").arg(Word(loop)));
  d.loop = loop;
  d.Text("loop-file", loop ? "inf" : "no");
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
  return m_impl->WithoutPicture() && m_impl->hasVideo;
}

QList<FaixaDeAudio> MpvPlayer::FaixasDeAudio() const {
  return m_impl->sounds;
}

int MpvPlayer::FaixaDeAudioAtual() const {
  return m_impl->sound;
}

void MpvPlayer::DefineFaixaDeAudio(int id) {
  m_impl->Say(QStringLiteral("currentAudioTrack=%1").arg(id));
  m_impl->wantedSound = id;
  if (m_impl->sent)
    m_impl->Text("aid", QByteArray::number(id).constData());
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
  d.Text("video-unscaled", UnscaledMode(stretch));
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
