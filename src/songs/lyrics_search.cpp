#include "songs/lyrics_search.h"

#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "songs/song_text.h"
#include "web/cut_text.h"

#include <QObject>
#include <utility>

namespace tolmira {

namespace {

const QString TituloDaCaixa = QStringLiteral("Tolmira");
const QString Extensao = QStringLiteral(".txt");

} // namespace

LyricsSearch::LyricsSearch(LyricsSearchDoors doors) : m_doors(std::move(doors)) {}

QString LyricsSearch::SiteBusca() const {
  return m_doors.endpoints.Host(PaginaDe(m_site).endpoint);
}

void LyricsSearch::Diz(MessageKind kind, const QString &text) {
  m_doors.prompt.Message(kind, TituloDaCaixa, text);
}

void LyricsSearch::Comeca(Trabalho trabalho, const QString &andamento) {
  m_task.reset();
  m_trabalho = trabalho;
  m_andamento = andamento;
  if (AoTrabalhar)
    AoTrabalhar();
}

void LyricsSearch::Termina() {
  m_task.reset();
  m_trabalho = Trabalho::Nenhum;
  m_andamento.clear();
  if (AoTrabalhar)
    AoTrabalhar();
}

void LyricsSearch::Para() {
  if (m_trabalho != Trabalho::Nenhum)
    Termina();
}

PageFetcher::Rodada LyricsSearch::ContaRodadas(const QString &andamento) {
  return [this, andamento](int round) {
    m_andamento =
        round == 1 ? andamento : andamento + QObject::tr(" Try %1 of %2").arg(round).arg(PageFetcher::Rodadas);
    if (AoTrabalhar)
      AoTrabalhar();
  };
}

bool LyricsSearch::Configurado(Endpoint endpoint, const QUrl &address) {
  if (address.isValid())
    return true;
  Diz(MessageKind::Information, m_doors.endpoints.PorQueNao(endpoint));
  return false;
}

void LyricsSearch::MostraLetra(const SongContent &letra) {
  m_letra = letra;
  m_gravada = {};
  if (AoAbrir)
    AoAbrir();
}

void LyricsSearch::Lista(ResultadosDeLetras resultados) {
  m_resultados = std::move(resultados);
  if (AoListar)
    AoListar();
}

void LyricsSearch::Command1(const QString &palavras) {
  if (palavras.size() < 4 || palavras.trimmed().isEmpty()) {
    Diz(MessageKind::Information, QStringLiteral("Enter a word with at least 3 characters for search."));
    return;
  }
  const PaginaDeLetra &pagina = PaginaDe(m_site);
  const SiteEmUso em{m_site, SiteBusca()};
  if (!Configurado(pagina.endpoint, m_doors.endpoints.Endereco(pagina.endpoint, QStringLiteral("/"))))
    return;
  const QUrl address = EnderecoDaBusca(m_doors.endpoints, em, palavras);
  if (!Configurado(EndpointDaBusca(m_site), address))
    return;

  m_siteDasLinhas = em;
  m_artista.clear();
  const QString andamento = QObject::tr("Searching %1…").arg(pagina.nome);
  Comeca(Trabalho::Busca, andamento);
  Lista({});
  const auto aceita = [this, em](const QString &page) {
    m_achados = em.site == SiteDeLetras::Genius ? SearchGenius(page) : SearchViaEngine(page, em);
    return m_achados.NumResultados() > 0;
  };
  m_achados = {};
  m_task = m_doors.fetcher.Tenta(
      QStringLiteral("qualbusca"), address, aceita, [this](const QString &) { BuscaTerminou(); },
      ContaRodadas(andamento));
}

void LyricsSearch::BuscaTerminou() {
  const ResultadosDeLetras achados = std::exchange(m_achados, {});
  Termina();
  if (achados.NumResultados() == 0) {
    Diz(MessageKind::Information, QStringLiteral("Occurrence not found."));
    return;
  }
  MostraLetra({});
  ResultadosDeLetras linhas;
  for (qsizetype i = 0; i < achados.NumResultados(); ++i) {
    if (!achados.Titulos[i].contains(u"Discografia"))
      linhas.Junta(achados.Links[i], achados.Titulos[i]);
  }
  Lista(linhas);
}

void LyricsSearch::ListaDoArtista(qsizetype linha) {
  if (linha < 0 || linha >= m_resultados.NumResultados())
    return;
  const QString semLista = QStringLiteral("Não foi possível fazer o download da lista");
  const QUrl address = EnderecoDoArtista(LinkDoSite(m_siteDasLinhas, m_resultados.Links[linha]));
  if (!address.isValid()) {
    Diz(MessageKind::Information, semLista);
    return;
  }
  // The rows of such a list begin with the artist, those of a search end with him.
  const QString artista = m_artista.isEmpty() ? NomeDaLinha(m_resultados.Titulos[linha]).author : m_artista;
  const QString andamento = QObject::tr("Reading the artist's list…");
  Comeca(Trabalho::ListaDoArtista, andamento);
  m_task = m_doors.fetcher.FetchPage(
      QStringLiteral("busca_Artista"), address, QStringLiteral("title-default weight-normal"),
      [this, artista, semLista](const QString &page) {
        ResultadosDeLetras lista = ArtistPage(page, m_siteDasLinhas.site);
        Termina();
        if (lista.NumResultados() == 0) {
          Diz(MessageKind::Information, semLista);
          return;
        }
        if (!artista.isEmpty()) {
          for (QString &titulo : lista.Titulos)
            titulo.prepend(QString(artista + u" - "));
        }
        m_artista = artista;
        MostraLetra({});
        Lista(std::move(lista));
      },
      ContaRodadas(andamento));
}

void LyricsSearch::AbreLinha(qsizetype linha) {
  if (linha < 0 || linha >= m_resultados.NumResultados())
    return;
  if (m_trabalho == Trabalho::Letra && m_linha == linha)
    return; // the second half of a double click
  Para();
  MostraLetra({});
  m_linha = linha;
  const QString titulo = m_resultados.Titulos[linha];
  const QUrl address = LinkDoSite(m_siteDasLinhas, m_resultados.Links[linha]);
  if (!address.isValid()) {
    LetraVeio(QString(), titulo);
    return;
  }
  const QString andamento = QObject::tr("Fetching “%1”…").arg(titulo);
  Comeca(Trabalho::Letra, andamento);
  m_task = m_doors.fetcher.FetchPage(
      QStringLiteral("pegaLetra"), address, PaginaDe(m_siteDasLinhas.site).inicio,
      [this, titulo](const QString &page) {
        Termina();
        LetraVeio(page, titulo);
      },
      ContaRodadas(andamento));
}

void LyricsSearch::LetraVeio(const QString &page, const QString &titulo) {
  const SiteDeLetras site = m_siteDasLinhas.site;
  const QString letra = LimpaLetra(CortaLetra(page, site));
  if (letra.isEmpty()) {
    MostraLetra({});
    Diz(MessageKind::Information, QStringLiteral("Unable to download content"));
    return;
  }
  MostraLetra({NomeDaLetra(page, site, titulo), letra});
}

QString LyricsSearch::ArquivoDe(const SongName &name) {
  const QString arquivo = NomeSeguro(QString(TitleOfFile(TidyName(name)) + Extensao));
  return arquivo == Extensao ? QString() : arquivo;
}

QString LyricsSearch::CaminhoDe(const QString &arquivo) const {
  return m_doors.app.At(u"\\Lyrics\\") + arquivo;
}

bool LyricsSearch::JaExiste(const SongName &name) const {
  const SongName tidy = TidyName(name);
  const QString arquivo = ArquivoDe(tidy);
  return !tidy.title.isEmpty() && !arquivo.isEmpty() && ProblemOf(tidy).isEmpty() && FileExists(CaminhoDe(arquivo));
}

QString LyricsSearch::ArquivoASalvar(const SongContent &content) {
  const SongName name = TidyName(content.name);
  if (TrimAll(content.text).isEmpty()) {
    Diz(MessageKind::Information, QStringLiteral("There is no lyrics to save."));
    return {};
  }
  if (name.title.isEmpty()) {
    Diz(MessageKind::Information, QStringLiteral("Please enter the file name"));
    return {};
  }
  const QString arquivo = ArquivoDe(name);
  if (const QString problem = ProblemOf(name); !problem.isEmpty() || arquivo.isEmpty()) {
    Diz(MessageKind::Information, problem.isEmpty() ? QObject::tr("No file can have this name.") : problem);
    return {};
  }
  return arquivo;
}

NomeDeFora LyricsSearch::LugarDe(const QString &arquivo, const QString &texto) const {
  if (m_gravada.pedido == arquivo && FileExists(CaminhoDe(m_gravada.arquivo)))
    return {m_gravada.arquivo, true};
  return NomeParaMusicaDeFora(m_doors.app, arquivo, texto);
}

bool LyricsSearch::Grava(const QString &pedido, const QString &arquivo, const QString &texto) {
  const QString path = CaminhoDe(arquivo);
  if (m_doors.editorAberto && m_doors.editorAberto(path)) {
    Diz(MessageKind::Information, QStringLiteral("The editing screen for this lyrics is already open."));
    return false;
  }
  const bool existia = FileExists(path);
  TextEncoding encoding = existia ? DecodeText(ReadFileContent(path).bytes).encoding : TextEncoding::Windows1252;
  // A line that begins with a small letter would be read as the rest of the line before it.
  if (!WriteSongFile(path, CapitalLines(TrimAll(texto)), encoding)) {
    Diz(MessageKind::Critical, QStringLiteral("Could not save the file."));
    return false;
  }
  m_gravada = {pedido, arquivo, texto};
  Diz(MessageKind::Information, QStringLiteral("Lyrics successfully added to the list."));
  if (existia)
    m_doors.console.ProcessaEditar(arquivo, arquivo); // the song on show may be the one that was written over
  if (m_doors.salvo)
    m_doors.salvo(arquivo.chopped(Extensao.size()));
  return true;
}

QString LyricsSearch::CmdSalvar(const SongContent &content, bool sobrescreve) {
  const QString pedido = ArquivoASalvar(content);
  if (pedido.isEmpty())
    return {};
  // What the button says of a song of that name does not hold for another one when this one stands elsewhere already.
  const bool dele = sobrescreve && m_gravada.pedido != pedido;
  const QString arquivo = dele ? pedido : LugarDe(pedido, content.text).arquivo;
  return Grava(pedido, arquivo, content.text) ? arquivo.chopped(Extensao.size()) : QString();
}

QString LyricsSearch::CmdAddLista(const SongContent &content) {
  const QString pedido = ArquivoASalvar(content);
  if (pedido.isEmpty())
    return {};
  const NomeDeFora lugar = LugarDe(pedido, content.text);
  const bool mudou = content.text != (m_gravada.pedido == pedido ? m_gravada.texto : m_letra.text);
  if ((!lugar.jaExiste || mudou) && !Grava(pedido, lugar.arquivo, content.text))
    return {};
  if (!FileExists(CaminhoDe(lugar.arquivo))) {
    Diz(MessageKind::Information, QStringLiteral("File not found"));
    return {};
  }
  const QString row = lugar.arquivo.chopped(Extensao.size());
  QString message;
  constexpr int Louvor = 2;
  m_doors.console.PorNaLista(row, Louvor, row, message);
  return message;
}

} // namespace tolmira
