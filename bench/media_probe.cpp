// Starts the program on the desktop of DISPLAY and looks at its projection, which stands at 1280,0 and is 1280x720: how
// long it takes from the press that shows a video to its first picture, how many pictures of a minute at 30 a second
// are seen while keys are pressed on the console, and how evenly a notice crawls over a page on which verses change.
// Prints lines "name value unit".

#include "program_control.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

// clang-format off
#include "x_probe.h" // behind Qt's headers, whose names it takes
// clang-format on

using namespace tolmira::bench;

namespace {

constexpr int ProjectionLeft = 1280;
constexpr int Width = 1280;
constexpr int Height = 720;
constexpr int Starts = 15;
constexpr int VideoSeconds = 60;
constexpr int PicturesPerSecond = 30;
constexpr int CrawlSeconds = 30;
constexpr double KeyEveryMs = 500;

// Its colours turn, so that every picture differs from the one before it in each of its rows.
bool MakeVideo(const QString &path, int seconds) {
  QProcess ffmpeg;
  ffmpeg.start(
      QStringLiteral("ffmpeg"),
      {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
       QStringLiteral("-i"),
       QStringLiteral("testsrc2=size=1280x720:rate=%1:duration=%2,hue=H=2*t").arg(PicturesPerSecond).arg(seconds),
       QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p"), QStringLiteral("-c:v"), QStringLiteral("libx264"),
       QStringLiteral("-preset"), QStringLiteral("veryfast"), path});
  return ffmpeg.waitForFinished(-1) && ffmpeg.exitCode() == 0;
}

QJsonObject Video(const QString &path) {
  QJsonObject request = Show(path, 4);
  request[QStringLiteral("label")] = QStringLiteral("Video");
  return request;
}

bool IsBlack(uint32_t colour) {
  return (colour & 0xf0f0f0) == 0;
}

// The times at which the rectangle changed, for as long as that; a key is pressed on the console from time to time.
std::vector<double> Changes(Control &control, ScreenProbe &probe, int seconds) {
  std::vector<double> times;
  probe.Read();
  probe.Keep();
  const double end = NowMs() + seconds * 1000.0;
  double key = NowMs();
  int steps = 0;
  while (NowMs() < end) {
    if (NowMs() > key) {
      QJsonObject press = Key(++steps % 8 < 4 ? "Down" : "Up");
      press[QStringLiteral("id")] = 0; // nobody waits for the answer
      control.Send(press);
      key += KeyEveryMs;
    }
    probe.Read();
    if (probe.Differs()) {
      probe.Keep();
      times.push_back(NowMs());
    }
    SleepMs(0.5);
  }
  return times;
}

void PrintGaps(const char *name, const std::vector<double> &times) {
  std::vector<double> gaps;
  for (size_t i = 1; i < times.size(); ++i)
    gaps.push_back(times[i] - times[i - 1]);
  PrintSpread(name, gaps, "ms");
  if (!gaps.empty())
    Print((std::string(name) + " longest").c_str(), *std::max_element(gaps.begin(), gaps.end()), "ms");
}

} // namespace

int main(int argc, char **argv) {
  QCoreApplication application(argc, argv);
  const QString program = QCoreApplication::arguments().value(1);
  const Connection connection(XOpenDisplay(nullptr));
  QTemporaryDir scratch;
  const QString video = scratch.filePath(QStringLiteral("minute.mp4"));
  if (!connection || !MakeVideo(video, VideoSeconds + 5))
    return 1;
  const QString socket = scratch.filePath(QStringLiteral("control"));
  QProcess process;
  process.start(
      program, {QStringLiteral("--app"), scratch.filePath(QStringLiteral("app")), QStringLiteral("--control"), socket});
  Control control;
  if (!control.Connect(socket, Patience))
    return 1;
  while (!control.Do("state")[QStringLiteral("state")][QStringLiteral("TelaPronta")].toBool())
    QThread::msleep(50);
  const QString song = QDir(scratch.filePath(QStringLiteral("app/Lyrics")))
                           .entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name)
                           .value(0)
                           .chopped(4);
  QThread::sleep(2);

  // The song is shown without a verse, so that its page stands still.
  ScreenProbe middle(connection.get(), ProjectionLeft, Height / 2, Width, 8);
  std::vector<double> first;
  int black = 0;
  for (int i = 0; i < Starts; ++i) {
    control.Do(Show(song));
    QThread::msleep(1500);
    middle.Read();
    middle.Keep();
    const double pressed = NowMs();
    QJsonObject show = Video(video);
    show[QStringLiteral("id")] = 0;
    control.Send(show);
    while (NowMs() - pressed < Patience) {
      middle.Read();
      if (middle.Differs()) {
        first.push_back(NowMs() - pressed);
        black += IsBlack(middle.MeanColour()) ? 1 : 0;
        break;
      }
      SleepMs(0.5);
    }
    control.Do("state"); // takes the answers off the line
  }
  PrintSpread("press to a video's first picture", first, "ms");
  Print("starts whose first picture was black", black, "");

  control.Do(Show(song));
  QThread::sleep(1);
  control.Do(Video(video));
  QThread::sleep(2);
  const std::vector<double> pictures = Changes(control, middle, VideoSeconds);
  control.Do("state");
  Print("pictures of a minute", VideoSeconds * PicturesPerSecond, "");
  Print("of these not seen", VideoSeconds * PicturesPerSecond - static_cast<double>(pictures.size()), "");
  PrintGaps("from picture to picture", pictures);

  control.Do(Show(song));
  QThread::sleep(1);
  control.Do(
      QJsonObject{{QStringLiteral("do"), QStringLiteral("send")},
                  {QStringLiteral("comando"), QString(QStringLiteral("AVISO:|#") + QString(400, u'm') +
                                                      QStringLiteral("|#bottom|#20|#8|#11|##C00000|##FFFFFF|#"))}});
  QThread::sleep(10); // until the text has come in
  ScreenProbe band(connection.get(), ProjectionLeft, Height - 40, Width, 24);
  PrintGaps("notice, from step to step", Changes(control, band, CrawlSeconds));
  control.Do("state");

  control.Do("quit");
  process.waitForFinished(Patience);
  return 0;
}
