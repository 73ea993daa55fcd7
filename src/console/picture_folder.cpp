#include "console/picture_folder.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace tolmira {

namespace {

constexpr int NomesDemais = 1000; // pictures of one name

// "\" would be a folder, "|" a second picture, and quotation marks and blanks at the ends are taken off when a setting
// is read.
QString NomeSeguro(const QString &nome) {
  QString limpo = nome;
  for (QChar &c : limpo)
    if (c == u'\\' || c == u'|' || c == u'"' || c < u' ')
      c = u'_';
  limpo = limpo.trimmed();
  if (limpo.startsWith(u'\'') && limpo.endsWith(u'\''))
    limpo = u'_' + limpo;
  return limpo.isEmpty() ? QStringLiteral("picture") : limpo;
}

bool MesmoConteudo(const QString &a, const QString &b) {
  QFile first(a);
  QFile second(b);
  if (first.size() != second.size() || !first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly))
    return false;
  while (!first.atEnd()) {
    const QByteArray piece = first.read(1 << 16);
    if (piece.isEmpty() || piece != second.read(piece.size()))
      return false;
  }
  return true;
}

} // namespace

QString FiltroDeImagens() {
  return QStringLiteral("Pictures (*.jpg *.jpeg *.png *.bmp *.gif *.webp);;All files (*)");
}

QString TrazParaImagens(const AppFolder &app, const QString &path) {
  const QFileInfo file(path);
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  if (!file.isFile() || !reader.canRead())
    return {};

  const QString pasta = app.At(u"\\Images\\");
  const QString nome = NomeSeguro(file.fileName());
  const bool dentro = file.canonicalPath() == QFileInfo(MapStoredPath(pasta).text()).canonicalFilePath();
  if (dentro && nome == file.fileName())
    return nome;

  for (int n = 1; n < NomesDemais; ++n) {
    const QFileInfo parts(nome);
    const QString candidato = n == 1 ? nome
                                     : QStringLiteral("%1 (%2)%3")
                                           .arg(parts.completeBaseName())
                                           .arg(n)
                                           .arg(parts.suffix().isEmpty() ? QString() : QString(u'.' + parts.suffix()));
    const QString destino = MapStoredPath(pasta + candidato).text();
    if (FileExists(pasta + candidato)) {
      if (MesmoConteudo(path, destino))
        return QFileInfo(destino).fileName();
      continue;
    }
    return QFile::copy(path, destino) ? candidato : QString();
  }
  return {};
}

} // namespace tolmira
