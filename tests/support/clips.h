#pragma once

#include <QColor>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace tolmira::testing {

// Makes a media file with ffmpeg, which the set-up installs. Empty when that fails.
inline QString MakeMedia(const QString &path, const char *arguments) {
  QProcess maker;
  maker.start(QStringLiteral("ffmpeg"),
              QStringList{QStringLiteral("-y"), QStringLiteral("-v"), QStringLiteral("error")} +
                  QString::fromLatin1(arguments).split(u' ') + QStringList{path});
  return maker.waitForFinished(30000) && maker.exitCode() == 0 ? path : QString();
}

// Red pictures of 4:3 with a tone, two seconds long.
inline QString MakeRedClip(const QString &path) {
  return MakeMedia(path, "-f lavfi -i color=red:size=160x120:rate=25:duration=2 -f lavfi -i sine=duration=2 "
                         "-c:v mpeg4 -c:a aac");
}

inline bool IsReddish(const QColor &colour) {
  return colour.red() > 180 && colour.green() < 60 && colour.blue() < 60;
}

} // namespace tolmira::testing
