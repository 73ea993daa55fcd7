#include "media/video_files.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "foundation/video_folder.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace tolmira {

namespace {

const QString Config = QStringLiteral("Config");
const QString Titulo = QStringLiteral("Tolmira");
const QString Filtro =
    FiltroDeVideos + QStringLiteral(";;Sound (*.mp3 *.m4a *.ogg *.opus *.flac *.wav *.wma *.aac);;All files (*)");

} // namespace

QStringList EscolheVideos(const IniStore &store, UserPrompt &prompt) {
  const QString pasta = store.ReadConfig(Config, PastaVideosOld, store.App().At(u"\\Videos"));
  QStringList escolhidos = prompt.OpenFiles(Titulo, MapStoredPath(pasta).text(), Filtro);
  escolhidos.removeIf([](const QString &path) { return !FileExists(path); });
  if (!escolhidos.isEmpty())
    store.WriteConfig(Config, PastaVideosOld, QFileInfo(escolhidos.first()).path());
  return escolhidos;
}

QString EscolheOutroVideo(const IniStore &store, UserPrompt &prompt, const QString &atual) {
  const QString path = prompt.OpenFile(Titulo, QFileInfo(MapStoredPath(atual).text()).path(), Filtro);
  if (path.isEmpty() || !FileExists(path))
    return {};
  store.WriteConfig(Config, PastaVideosOld, QFileInfo(path).path());
  return path;
}

QString NomeDoVideo(const QString &path) {
  return FileNameWithoutExtension(path, QStringLiteral("."));
}

bool EhSoAudio(const QString &path) {
  // By the name where that says it: files of some kinds hold either, and their beginnings do not tell.
  return QMimeDatabase().mimeTypeForFile(MapStoredPath(path).text()).name().startsWith(u"audio/");
}

} // namespace tolmira
