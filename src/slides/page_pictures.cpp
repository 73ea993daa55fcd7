#include "slides/page_pictures.h"

#include "foundation/file_name.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "themes/picture_file.h"
#include "themes/picture_folder.h"
#include "themes/small_copy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tolmira {

namespace {

constexpr int MaiorTitulo = 150; // bytes: a file's name may have 255, and number and extension come behind
constexpr int MenosAlgarismos = 3;

const QString Pagina = QStringLiteral(" - page ");

void Retira(const AppFolder &app, const QString &nome) {
  for (const QStringView pasta : {u"\\Images\\", u"\\Images\\Mini\\"})
    QFile::remove(MapStoredPath(app.At(pasta)).text() + nome); // not one that is spelt otherwise
}

// The first bytes are looked at here, so that what somebody else drew meets no decoder but the two that a page is for.
bool EhPagina(const QString &arquivo, const QSize &tela) {
  const bool png = QFileInfo(arquivo).suffix() == u"png";
  const QByteArray inicio = png ? QByteArrayLiteral("\x89PNG\r\n\x1a\n") : QByteArrayLiteral("\xff\xd8\xff");
  QFile file(arquivo);
  if (!file.open(QIODevice::ReadOnly) || file.read(inicio.size()) != inicio)
    return false;
  file.close();
  const PictureFacts facts = ExaminePicture(arquivo);
  return facts.problem == PictureProblem::None && facts.format == (png ? "png" : "jpeg") && facts.size == tela;
}

} // namespace

QString TituloDoDocumento(const QString &path) {
  QString titulo = TidyFileName(QFileInfo(path).completeBaseName());
  for (const QString &proibido : ForbiddenInFileName(titulo))
    titulo.replace(proibido, QStringLiteral("_"));
  if (titulo.startsWith(u'.')) // it would be hidden
    titulo[0] = u'_';
  while (titulo.toUtf8().size() > MaiorTitulo)
    titulo.chop(titulo.back().isLowSurrogate() ? 2 : 1);
  return titulo.isEmpty() ? QStringLiteral("Document") : titulo.trimmed();
}

QString NomeDaSerie(const AppFolder &app, const QString &titulo) {
  const QStringList nomes = QDir(MapStoredPath(app.At(u"\\Images")).text()).entryList(QDir::Files);
  const auto tomado = [&nomes](const QString &serie) {
    return std::any_of(nomes.begin(), nomes.end(),
                       [&](const QString &nome) { return nome.startsWith(serie + Pagina, Qt::CaseInsensitive); });
  };
  QString serie = titulo;
  for (int n = 2; tomado(serie); ++n)
    serie = titulo + QStringLiteral(" (%1)").arg(n);
  return serie;
}

QString NomeDaPagina(const QString &serie, int pagina, int total, const QString &extensao) {
  const int algarismos = std::max(MenosAlgarismos, static_cast<int>(QString::number(total).size()));
  return serie + Pagina + QStringLiteral("%1.").arg(pagina, algarismos, 10, QChar(u'0')) + extensao;
}

Posta PoePagina(const AppFolder &app, const QString &arquivo, const QString &nome, const QSize &tela) {
  if (FileExists(app.At(u"\\Images\\") + nome))
    return Posta::Tomada;
  if (!EhPagina(arquivo, tela))
    return Posta::Estranha;
  const Copia copia = CopiaParaImagens(app, arquivo, nome);
  Posta posta = copia == Copia::SemLugar ? Posta::SemLugar : Posta::Estranha;
  // Whoever drew it can still write into it, but not into the copy.
  const QString copiada = MapStoredPath(app.At(u"\\Images\\") + nome).text();
  if (copia == Copia::Feita && EhPagina(copiada, tela)) {
    if (CriaMiniatura(app, nome, true))
      posta = Posta::Sim;
    else if (!ReadPicture(copiada, [](const QSize &size) { return size; }).image.isNull())
      posta = Posta::SemLugar;
  }
  if (posta != Posta::Sim)
    Retira(app, nome);
  return posta;
}

void RetiraPaginas(const AppFolder &app, const QStringList &nomes) {
  for (const QString &nome : nomes)
    Retira(app, nome);
}

QStringList CaminhosDasPaginas(const AppFolder &app, const QStringList &nomes) {
  QStringList caminhos;
  for (const QString &nome : nomes)
    caminhos.append(app.At(u"\\Images\\") + nome);
  return caminhos;
}

} // namespace tolmira
