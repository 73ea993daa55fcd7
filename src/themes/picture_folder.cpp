#include "themes/picture_folder.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "themes/picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <functional>

namespace tolmira {

namespace {

constexpr int NomesDemais = 1000;       // pictures of one name
constexpr int QualidadeConvertida = 90; // of a picture that becomes a JPEG

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
  if (limpo.startsWith(u'.')) // it would be hidden
    limpo = u'_' + limpo;
  return limpo.isEmpty() ? QStringLiteral("picture") : limpo;
}

bool FicaComoEsta(const QByteArray &format) {
  return format == "jpeg" || format == "png" || format == "bmp";
}

// The extensions of the gallery's pattern; what a page makes of a picture goes by its content.
bool TemExtensaoListada(const QString &nome) {
  const QString extensao = QFileInfo(nome).suffix().toLower();
  return extensao == u"jpg" || extensao == u"png" || extensao == u"bmp";
}

QString NomePara(const QString &nome, const QByteArray &format) {
  const QString seguro = NomeSeguro(nome);
  const bool jpeg = !FicaComoEsta(format);
  if (jpeg ? QFileInfo(seguro).suffix().toLower() == u"jpg" : TemExtensaoListada(seguro))
    return seguro;
  const QString base = QFileInfo(seguro).completeBaseName();
  return (base.isEmpty() ? seguro : base) + u'.' +
         (jpeg || format == "jpeg" ? QStringLiteral("jpg") : QString::fromLatin1(format));
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

bool CopiaInteiro(const QString &from, const QString &to) {
  QFile source(from);
  QSaveFile target(to);
  if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
    return false;
  while (!source.atEnd()) {
    const QByteArray piece = source.read(1 << 20);
    if (piece.isEmpty() || target.write(piece) != piece.size()) {
      target.cancelWriting();
      break;
    }
  }
  return CommitWhole(target);
}

// Brings a picture in under the first of the names that `candidato` gives for 1, 2, ... that is free or holds it
// already.
QString Traz(const AppFolder &app, const QString &path, const std::function<QString(const QString &, int)> &candidato) {
  const QString nome = NomeEmImagens(path).nome;
  if (nome.isEmpty())
    return {};
  const QString pasta = app.At(u"\\Images\\");
  const QFileInfo file(path);
  const bool dentro = file.canonicalPath() == QFileInfo(MapStoredPath(pasta).text()).canonicalFilePath();
  // A page goes by what a picture holds; only the name has to be one that lists can keep.
  const QString agora = file.fileName();
  if (dentro && agora == NomeSeguro(agora) && TemExtensaoListada(agora))
    return agora;
  for (int n = 1; n < NomesDemais; ++n) {
    const QString tentado = candidato(nome, n);
    if (!FileExists(pasta + tentado))
      return CopiaParaImagens(app, path, tentado) == Copia::Feita ? tentado : QString();
    const QString destino = MapStoredPath(pasta + tentado).text();
    if (MesmoConteudo(path, destino))
      return QFileInfo(destino).fileName();
  }
  return {};
}

} // namespace

QString FiltroDeImagens() {
  return QStringLiteral("Pictures (*.jpg *.jpeg *.jfif *.png *.bmp *.gif *.webp *.tif *.tiff);;All files (*)");
}

bool EstaEmImagens(const AppFolder &app, const QString &path) {
  const QString pasta = QFileInfo(MapStoredPath(app.At(u"\\Images")).text()).canonicalFilePath();
  const QString onde = QFileInfo(path).canonicalPath();
  return !pasta.isEmpty() && (onde == pasta || onde.startsWith(pasta + u'/'));
}

NomeDeImagem NomeEmImagens(const QString &path) {
  return NomeEmImagens(path, QFileInfo(path).fileName());
}

NomeDeImagem NomeEmImagens(const QString &path, const QString &nome) {
  const PictureFacts facts = ExaminePicture(path);
  if (facts.problem != PictureProblem::None)
    return {{}, false, facts.problem == PictureProblem::Missing};
  return {NomePara(nome, facts.format), !FicaComoEsta(facts.format), false};
}

QString NomeLivreEmImagens(const AppFolder &app, const QString &nome) {
  const auto livre = [&app](const QString &tentado) { return !FileExists(app.At(u"\\Images\\") + tentado); };
  QString tentado = nome;
  for (int n = 1; n < NomesDemais; ++n) {
    const QString seguinte = NextFreeName(tentado);
    if (seguinte == tentado) // a name with two pairs of parentheses, whose series does not go on
      break;
    tentado = seguinte;
    if (livre(tentado))
      return tentado;
  }
  const QFileInfo partes(nome);
  for (int n = 2;; ++n)
    if (tentado = partes.completeBaseName() + u'-' + QString::number(n) + u'.' + partes.suffix(); livre(tentado))
      return tentado;
}

Copia CopiaParaImagens(const AppFolder &app, const QString &path, const QString &nome) {
  const QString destino = app.At(u"\\Images\\") + nome;
  const PictureFacts facts = ExaminePicture(path);
  if (facts.problem != PictureProblem::None)
    return facts.problem == PictureProblem::Missing ? Copia::SemLugar : Copia::SemImagem;
  if (FicaComoEsta(facts.format)) {
    if (!CopiaInteiro(path, MapStoredPath(destino).text()))
      return Copia::SemLugar;
  } else {
    const QImage imagem = ReadPicture(path, [](const QSize &size) { return size; }).image;
    if (imagem.isNull())
      return Copia::SemImagem;
    if (!SalvaJpeg(imagem, destino, QualidadeConvertida))
      return Copia::SemLugar;
  }
  QFile::remove(MapStoredPath(app.At(u"\\Images\\Mini\\") + nome).text());
  return Copia::Feita;
}

QString TrazParaImagens(const AppFolder &app, const QString &path) {
  return Traz(app, path, [](const QString &nome, int n) -> QString {
    if (n == 1)
      return nome;
    const QFileInfo parts(nome);
    return parts.completeBaseName() + QStringLiteral(" (%1).").arg(n) + parts.suffix();
  });
}

QString TrazParaTema(const AppFolder &app, const QString &path, int n) {
  const QString frente = QString::number(n) + u'-';
  return Traz(app, path, [frente](const QString &nome, int vez) -> QString { return frente.repeated(vez - 1) + nome; });
}

} // namespace tolmira
