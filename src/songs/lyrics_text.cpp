#include "songs/lyrics_text.h"

#include "foundation/app_folder.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "songs/line_ends.h"
#include "songs/song_text.h"
#include "web/cut_text.h"

#include <QSet>
#include <QStringList>
#include <algorithm>

namespace tolmira {

namespace {

constexpr qsizetype MaiorLetra = 100'000; // characters; no song comes near it
constexpr qsizetype MaiorNome = 300;
const QString Repetida = QStringLiteral("-|-");

// What no song file may hold goes, and lines stand without the blanks that indent them on the page.
QString LinhasLimpas(const QString &texto) {
  QStringList linhas = texto.split(LineEnd);
  for (QString &linha : linhas)
    linha = LinhaLimpa(linha).trimmed();
  return linhas.join(LineEnd);
}

QString TextoDeHtml(QString html) {
  // A paragraph is a stanza: its end makes a line end of its own beside that of the next one's beginning.
  html.replace(QStringLiteral("</p>"), QStringLiteral("<br>"));
  html.replace(QStringLiteral("<br />"), QStringLiteral("<br>"));
  return LinhasLimpas(CleanSongText(RepairEntities(html)));
}

// The lyrics are a value inside a script's attribute, with LF line ends.
QString CortaGenius(QStringView page, const PaginaDeLetra &marcas) {
  constexpr qsizetype AteALetra = 27; // from the beginning of the mark
  constexpr qsizetype Aspas = 3;      // in front of the end
  const qsizetype inicio = page.indexOf(marcas.inicio);
  const qsizetype letra = inicio + AteALetra;
  const qsizetype fim = inicio < 0 ? -1 : page.indexOf(marcas.fim, letra);
  if (fim < 0 || fim - Aspas <= letra || fim - letra > MaiorLetra)
    return {};
  QString texto = FixMojibake(page.sliced(letra, fim - Aspas - letra).toString());
  texto.replace(QStringLiteral(" \n"), QStringLiteral("\n"));
  texto.replace(QStringLiteral("\n\n"), TwoLineEnds);
  // As marks, the line ends outlast the repair that takes those of the page itself away.
  texto.replace(LineEnd, QStringLiteral("<br>")).replace(u'\n', QStringLiteral("<br>"));
  return TextoDeHtml(texto);
}

QString Nome(QStringView pedaco) {
  return LinhaLimpa(pedaco.first(std::min(pedaco.size(), MaiorNome)).toString());
}

QString Valor(const QString &page, QStringView chave, qsizetype desde) {
  return desde < 0 ? QString() : Nome(ViewBetween(page, chave, u"\"", desde));
}

SongName NomeDosDadosEstruturados(const QString &page) {
  const QString vocabulario = QStringLiteral("//schema.org");
  SongName nome;
  const qsizetype comEsquema = page.indexOf(u':' + vocabulario);
  nome.title = Valor(page, u"\"name\": \"", comEsquema);
  nome.author = Valor(page, u"\"lyricist\": \"", comEsquema);
  if (nome.title.isEmpty()) {
    const qsizetype desde = page.indexOf(vocabulario);
    nome.title = Valor(page, u"\"name\":\"", desde);
    const qsizetype marca = desde < 0 ? -1 : page.indexOf(u"\"brand\":{", desde);
    if (const QString artista = Valor(page, u"\"name\":\"", marca); !artista.isEmpty())
      nome.author = artista;
  }
  if (nome.title.isEmpty()) {
    nome.title = Nome(ViewBetween(page, u"<title>", u" - Zion Lyrics"));
    if (!nome.author.isEmpty())
      nome.title.remove(nome.author);
    nome.title.remove(QStringLiteral(" - "));
  }
  return nome;
}

SongName Reparado(const SongName &nome) {
  return TidyName({RepairEntities(nome.title.trimmed()), RepairEntities(nome.author.trimmed())});
}

QString ComecoDe(const QString &texto) {
  QString comeco = texto.left(30);
  for (int vez = 0; vez < 3; ++vez) {
    if (comeco.startsWith(LineEnd))
      comeco.remove(0, LineEnd.size());
  }
  return comeco.trimmed().toLower().left(10);
}

} // namespace

QString CortaLetra(const QString &page, SiteDeLetras site) {
  const PaginaDeLetra &marcas = PaginaDe(site);
  if (site == SiteDeLetras::Genius)
    return CortaGenius(page, marcas);
  const qsizetype inicio = page.indexOf(marcas.inicio);
  if (inicio < 0)
    return {};
  const QStringView html = ViewBetween(page, marcas.inicioInterno, marcas.fim, inicio + marcas.inicio.size());
  return html.size() > MaiorLetra ? QString() : TextoDeHtml(html.toString());
}

QString LimpaLetra(QString letra) {
  letra.remove(QStringLiteral("(Refrão)"));
  letra.remove(QStringLiteral("(Coro)"));
  letra.remove(QStringLiteral("\r\nCoro"));
  return TiraRepetidas(TrimAll(CollapseBlankRuns(letra)));
}

QString TiraRepetidas(const QString &letra) {
  QStringList estrofes = letra.split(TwoLineEnds);
  estrofes.erase(std::unique(estrofes.begin(), estrofes.end()), estrofes.end());
  if (estrofes.size() < 4)
    return estrofes.join(TwoLineEnds);
  QSet<QString> vistas;
  for (QString &estrofe : estrofes) {
    if (vistas.contains(estrofe))
      estrofe = Repetida;
    else
      vistas.insert(estrofe);
  }
  estrofes.removeAll(Repetida);
  return TrimAll(estrofes.join(TwoLineEnds));
}

SongName NomeDaLinha(const QString &titulo) {
  const qsizetype traco = titulo.lastIndexOf(u'-');
  const QString artista = traco < 0 ? QString() : titulo.sliced(traco + 1);
  return Reparado({traco < 0 ? titulo : titulo.first(traco), artista});
}

SongName NomeDaLetra(const QString &page, SiteDeLetras site, const QString &tituloDaLinha) {
  return site == SiteDeLetras::ZionLyrics ? Reparado(NomeDosDadosEstruturados(page)) : NomeDaLinha(tituloDaLinha);
}

bool MesmaMusica(const QString &uma, const QString &outra) {
  return ComecoDe(uma) == ComecoDe(outra);
}

NomeDeFora NomeParaMusicaDeFora(const AppFolder &app, const QString &arquivo, const QString &texto) {
  const auto caminho = [&app](const QString &nome) -> QString { return app.At(u"\\Lyrics\\") + nome; };
  if (arquivo.contains(u"sicas)") || !FileExists(caminho(arquivo)))
    return {arquivo, false};
  if (MesmaMusica(ReadWholeFile(caminho(arquivo)), texto))
    return {arquivo, true};
  const QString extensao = QStringLiteral(".txt");
  const QString base = arquivo.endsWith(extensao, Qt::CaseInsensitive) ? arquivo.chopped(extensao.size()) : arquivo;
  for (int numero = 2;; ++numero) {
    const QString livre = base + QStringLiteral(" (%1)").arg(numero) + extensao;
    if (!FileExists(caminho(livre)))
      return {livre, false};
  }
}

} // namespace tolmira
