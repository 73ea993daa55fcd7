#include "app/asset_places.h"

#include <QDir>
#include <QFileInfo>

namespace tolmira {

namespace {

QString FolderOrNothing(const QString &path) {
  return QFileInfo(path).isDir() ? QDir(path).absolutePath() : QString();
}

AssetPlaces PlacesUnder(const QString &root) {
  const QDir dir(root);
  AssetPlaces places;
  places.html = FolderOrNothing(dir.filePath(QStringLiteral("html")));
  places.sample = FolderOrNothing(dir.filePath(QStringLiteral("sample")));
  places.sampleMedia = FolderOrNothing(dir.filePath(QStringLiteral("sample-media")));
  places.bibles = FolderOrNothing(dir.filePath(QStringLiteral("bibles")));
  places.help = FolderOrNothing(dir.filePath(QStringLiteral("help")));
  return places;
}

} // namespace

AssetPlaces FindAssets(const QString &wish, const QString &executableFolder) {
  if (!wish.isEmpty())
    return PlacesUnder(wish);
  const QString fromEnvironment = qEnvironmentVariable("TOLMIRA_ASSETS");
  if (!fromEnvironment.isEmpty())
    return PlacesUnder(fromEnvironment);
  const AssetPlaces installed = PlacesUnder(QDir::cleanPath(executableFolder + QStringLiteral("/../share/tolmira")));
  if (installed.Found())
    return installed;
  AssetPlaces build;
  build.html = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_HTML));
  build.pageLibs = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_LIB));
  build.sample = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_SAMPLE));
  build.sampleMedia = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_MEDIA));
  build.bibles = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_BIBLES));
  build.help = FolderOrNothing(QStringLiteral(TOLMIRA_BUILD_HELP));
  return build;
}

} // namespace tolmira
