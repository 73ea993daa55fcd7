#include "songs/lyrics_results.h"

#include "web/cut_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolmira {

namespace {

constexpr qsizetype MaisResultados = 500;
constexpr int MaisMarcas = 5000; // that are looked at for them; a page made of marks ends there
constexpr qsizetype MaiorTitulo = 300;
constexpr qsizetype MaiorLink = 2000;

// Finds one text from positions that only grow. It looks at no part of the page twice, however often it is asked.
class Procura {
public:
  Procura(QStringView page, QStringView texto) : m_page(page), m_texto(texto) {}

  qsizetype De(qsizetype posicao) {
    if (!m_acabou && m_achado < posicao) {
      m_achado = m_page.indexOf(m_texto, posicao);
      m_acabou = m_achado < 0;
    }
    return m_acabou ? -1 : m_achado;
  }
  qsizetype AtrasDe(qsizetype posicao) {
    const qsizetype achado = De(posicao);
    return achado < 0 ? -1 : achado + m_texto.size();
  }

private:
  QStringView m_page;
  QStringView m_texto;
  qsizetype m_achado = -1;
  bool m_acabou = false;
};

// What stands from `inicio` up to the next `fim`; empty where that is further away than any link reaches.
QString Link(QStringView page, qsizetype inicio, QChar fim) {
  if (inicio < 0 || inicio >= page.size())
    return {};
  const QStringView pedaco = page.sliced(inicio, std::min(MaiorLink, page.size() - inicio));
  const qsizetype ate = pedaco.indexOf(fim);
  return ate < 0 ? QString() : pedaco.first(ate).trimmed().toString();
}

// What stands between two places; empty where it is longer than any title.
QString Titulo(QStringView page, qsizetype inicio, qsizetype fim) {
  const bool cabe = inicio >= 0 && fim >= inicio && fim - inicio <= MaiorTitulo;
  return cabe ? page.sliced(inicio, fim - inicio).trimmed().toString() : QString();
}

QString TituloLimpo(QString titulo) {
  // In this order: blanks that stand at a mark go with it, others take its place.
  static const std::array<std::pair<QString, QString>, 12> Trocas = {{
      {QStringLiteral("&amp;"), QStringLiteral("&")},
      // An en dash whose UTF-8 was read as windows-1252.
      {QStringLiteral("\u00e2\u20ac\u201c"), QStringLiteral("-")},
      {QStringLiteral("&#8211;"), QStringLiteral("-")},
      {QStringLiteral(" (letra e vídeo)"), QString()},
      {QStringLiteral(" <em>"), QString()},
      {QStringLiteral(" </em>"), QString()},
      {QStringLiteral("<em> "), QString()},
      {QStringLiteral("</em> "), QString()},
      {QStringLiteral("<em>"), QStringLiteral(" ")},
      {QStringLiteral("</em>"), QStringLiteral(" ")},
      {QStringLiteral("<b>"), QString()},
      {QStringLiteral("</b>"), QString()},
  }};
  for (const auto &[de, para] : Trocas)
    titulo.replace(de, para);
  return LinhaLimpa(titulo.remove(QStringLiteral(" Lyrics")));
}

bool NaoEhMusica(const QString &titulo) {
  static const QStringList Outros = {QStringLiteral("Biografia de"), QStringLiteral("- Discografia de"),
                                     QStringLiteral("Curiosidades"), QStringLiteral("Fã-Clube"),
                                     QStringLiteral("fotos)")};
  return std::any_of(Outros.begin(), Outros.end(), [&](const QString &outro) { return titulo.contains(outro); });
}

QString TituloReparado(QString titulo) {
  // Some of the misread letters hold control characters, so they are mended first.
  return LinhaLimpa(FixMojibake(std::move(titulo))).trimmed();
}

QString TituloDaLista(QString titulo) {
  return TituloReparado(titulo.remove(u'\n'));
}

ResultadosDeLetras ListaDeLetras(QStringView page) {
  ResultadosDeLetras lista;
  Procura nome(page, u"data-name=");
  Procura artista(page, u"artist");
  Procura endereco(page, u"data-shareurl=");
  qsizetype em = 0;
  for (int marcas = 0; marcas < MaisMarcas && lista.NumResultados() < MaisResultados; ++marcas) {
    const qsizetype inicio = nome.AtrasDe(em);
    const qsizetype doArtista = inicio < 0 ? -1 : artista.AtrasDe(inicio);
    const qsizetype link = doArtista < 0 ? -1 : endereco.AtrasDe(doArtista);
    if (link < 0)
      break;
    const QString titulo = Link(page, inicio + 1, u'"'); // behind the opening quote; as far away as a link at most
    const QString achado = Link(page, link + 1, u'"');
    if (!titulo.isEmpty() && titulo.size() <= MaiorTitulo && !achado.isEmpty())
      lista.Junta(achado, TituloDaLista(titulo));
    em = link;
  }
  return lista;
}

ResultadosDeLetras ListaDosOutros(QStringView page) {
  ResultadosDeLetras lista;
  Procura comeco(page, u"item-quick-menu\">");
  Procura item(page, u"<div class=\"quick-menu-wrap\">");
  Procura classe(page, u" class=");
  Procura peso(page, u"title-default weight-normal\">");
  Procura fimDoTitulo(page, u"</span>");
  qsizetype em = comeco.AtrasDe(0);
  for (int marcas = 0; em >= 0 && marcas < MaisMarcas && lista.NumResultados() < MaisResultados; ++marcas) {
    const qsizetype inicio = item.AtrasDe(em);
    const qsizetype fimDoLink = inicio < 0 ? -1 : classe.De(inicio);
    const qsizetype titulo = fimDoLink < 0 ? -1 : peso.AtrasDe(fimDoLink);
    const qsizetype fim = titulo < 0 ? -1 : fimDoTitulo.De(titulo);
    if (fim < 0)
      break;
    // The link is what the item opens with; it stands in front of its class.
    const QString abertura = Titulo(page, inicio, std::min(fimDoLink, inicio + MaiorTitulo));
    const QStringView texto = page.sliced(titulo, fim - titulo);
    if (texto.size() <= MaiorTitulo && !texto.trimmed().isEmpty())
      lista.Junta(CutBetween(QString(abertura + u'"'), u"href=\"", u"\""), TituloDaLista(texto.toString()));
    em = fim;
  }
  return lista;
}

} // namespace

ResultadosDeLetras SearchViaEngine(const QString &page, const SiteEmUso &em) {
  ResultadosDeLetras resultados;
  const QString marca = MarcaDepoisDoTitulo(em);
  const QStringView toda(page);
  if (marca.isEmpty() || !toda.contains(u"/url?q="))
    return resultados;
  Procura href(toda, u"href=");
  qsizetype ultimoHref = -1;
  qsizetype posicao = 0;
  for (int marcas = 0; marcas < MaisMarcas && resultados.NumResultados() < MaisResultados; ++marcas) {
    const qsizetype fim = toda.indexOf(marca, posicao);
    if (fim < 0)
      break;
    const qsizetype inicio = toda.first(fim).lastIndexOf(u'>') + 1;
    for (qsizetype h = href.De(ultimoHref + 1); h >= 0 && h < inicio; h = href.De(h + 1))
      ultimoHref = h;
    posicao = fim + marca.size();
    const QString titulo = TituloLimpo(Titulo(toda, inicio, fim));
    if (titulo.isEmpty() || ultimoHref < 0 || NaoEhMusica(titulo))
      continue;
    const QString link = Link(toda, ultimoHref + 6, u'&')
                             .replace(QStringLiteral("/https:"), QStringLiteral("https:"))
                             .remove(QStringLiteral("/url?q="));
    if (!link.isEmpty())
      resultados.Junta(link, titulo);
  }
  return resultados;
}

ResultadosDeLetras SearchGenius(const QString &page) {
  constexpr qsizetype AteOLink = 33; // from the beginning of the mark
  ResultadosDeLetras resultados;
  const QStringView toda(page);
  Procura marca(toda, u"ctrl.hit.highlights");
  Procura abertura(toda, u"<div class=\"mini_card-title\">");
  Procura fecho(toda, u"</div>");
  for (qsizetype em = marca.De(0); em >= 0 && resultados.NumResultados() < MaisResultados; em = marca.De(em + 1)) {
    const qsizetype inicio = abertura.AtrasDe(em);
    const qsizetype fim = inicio < 0 ? -1 : fecho.De(inicio);
    const QString titulo = TituloReparado(Titulo(toda, inicio, fim));
    if (titulo.isEmpty())
      break;
    resultados.Junta(Link(toda, em + AteOLink, u'"'), titulo);
  }
  return resultados;
}

ResultadosDeLetras ArtistPage(const QString &page, SiteDeLetras site) {
  return site == SiteDeLetras::Letras ? ListaDeLetras(page) : ListaDosOutros(page);
}

} // namespace tolmira
