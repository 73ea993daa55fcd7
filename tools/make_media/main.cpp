// Makes the pictures and the video of the starter service: make_media FOLDER writes FOLDER/Images and FOLDER/Videos.

#include "scenes.h"

#include <QCoreApplication>
#include <QDir>
#include <QImageWriter>
#include <QProcess>
#include <QTextStream>

using namespace tolmira::media;

namespace {

constexpr QSize PictureSize(1920, 1080);
constexpr QSize VideoSize(1280, 720);
constexpr int FramesPerSecond = 30;
constexpr int Seconds = 8;

bool WritePicture(const QString &path, const QImage &picture) {
  QImageWriter writer(path, "jpg");
  writer.setQuality(90);
  return writer.write(picture);
}

// Hands the frames of one loop to the encoder. The index stands in front, so that a player starts at once.
bool WriteVideo(const QString &path, QString &error) {
  QProcess encoder;
  encoder.setProcessChannelMode(QProcess::MergedChannels);
  encoder.start(QStringLiteral("ffmpeg"),
                {QStringLiteral("-y"),
                 QStringLiteral("-loglevel"),
                 QStringLiteral("error"),
                 QStringLiteral("-f"),
                 QStringLiteral("rawvideo"),
                 QStringLiteral("-pix_fmt"),
                 QStringLiteral("bgr0"),
                 QStringLiteral("-s"),
                 QString::number(VideoSize.width()) + u'x' + QString::number(VideoSize.height()),
                 QStringLiteral("-r"),
                 QString::number(FramesPerSecond),
                 QStringLiteral("-i"),
                 QStringLiteral("-"),
                 QStringLiteral("-an"),
                 QStringLiteral("-c:v"),
                 QStringLiteral("libx264"),
                 QStringLiteral("-preset"),
                 QStringLiteral("medium"),
                 QStringLiteral("-crf"),
                 QStringLiteral("20"),
                 QStringLiteral("-pix_fmt"),
                 QStringLiteral("yuv420p"),
                 QStringLiteral("-movflags"),
                 QStringLiteral("+faststart"),
                 path});
  if (!encoder.waitForStarted()) {
    error = QStringLiteral("ffmpeg cannot be started: ") + encoder.errorString();
    return false;
  }
  constexpr int Frames = FramesPerSecond * Seconds;
  for (int i = 0; i < Frames; ++i) {
    const QImage frame = LoopFrame(VideoSize, static_cast<double>(i) / Frames);
    encoder.write(reinterpret_cast<const char *>(frame.constBits()), frame.sizeInBytes());
    while (encoder.bytesToWrite() > 0 && encoder.waitForBytesWritten(-1)) {
    }
    if (encoder.state() != QProcess::Running)
      break;
  }
  encoder.closeWriteChannel();
  encoder.waitForFinished(-1);
  error = QString::fromLocal8Bit(encoder.readAll());
  return encoder.exitStatus() == QProcess::NormalExit && encoder.exitCode() == 0;
}

} // namespace

int main(int argc, char **argv) {
  const QCoreApplication app(argc, argv);
  QTextStream err(stderr);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    err << "usage: make_media FOLDER\n";
    return 2;
  }
  const QDir folder(arguments.at(1));
  if (!folder.mkpath(QStringLiteral("Images")) || !folder.mkpath(QStringLiteral("Videos"))) {
    err << "cannot make folders in " << folder.path() << '\n';
    return 1;
  }
  for (const Scene &scene : Scenes()) {
    const QString path = folder.filePath(u"Images/" + scene.file);
    if (!WritePicture(path, scene.paint(PictureSize))) {
      err << "cannot write " << path << '\n';
      return 1;
    }
  }
  QString error;
  const QString video = folder.filePath(QStringLiteral("Videos/luzes.mp4"));
  if (!WriteVideo(video, error)) {
    err << "cannot write " << video << ": " << error << '\n';
    return 1;
  }
  return 0;
}
