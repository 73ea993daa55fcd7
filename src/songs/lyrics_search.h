#pragma once

#include "console/presentation.h"
#include "foundation/seams.h"
#include "songs/lyrics_results.h"
#include "songs/lyrics_text.h"
#include "songs/song_editor.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"

#include <QString>
#include <functional>
#include <memory>

namespace tolmira {

// What fetching lyrics works with. All of it outlives the search.
struct LyricsSearchDoors {
  const AppFolder &app;
  const Endpoints &endpoints;
  PageFetcher &fetcher;
  UserPrompt &prompt;
  Presentation &console;
  std::function<bool(const QString &path)> editorAberto; // whether an editor stands open on that song; may be empty
  std::function<void(const QString &name)> salvo; // a song was saved under this name, without ".txt"; may be empty
};

// Lyrics from the web without their window: searching a site, opening what it found, saving it among the songs. One
// thing is under way at a time, and a new one ends it. Dropping the object ends it too.
class LyricsSearch {
public:
  explicit LyricsSearch(LyricsSearchDoors doors);

  std::function<void()> AoListar;    // the rows are others
  std::function<void()> AoAbrir;     // Letra() is another, or empty: the boxes show it
  std::function<void()> AoTrabalhar; // something began, went on or ended

  SiteDeLetras Site() const { return m_site; }
  void EscolheSite(SiteDeLetras site) { m_site = site; } // for the next search; the rows keep theirs
  QString SiteBusca() const;

  enum class Trabalho { Nenhum, Busca, ListaDoArtista, Letra };
  Trabalho EmCurso() const { return m_trabalho; }
  const QString &Andamento() const { return m_andamento; } // of what is under way, in words

  void Command1(const QString &palavras); // search
  const QStringList &List1() const { return m_resultados.Titulos; }
  // Rows count from 0.
  void AbreLinha(qsizetype linha);
  void ListaDoArtista(qsizetype linha); // the songs of that row's artist take the place of the rows
  void Para();                          // the operator has seen enough

  const SongContent &Letra() const { return m_letra; } // of the row that was opened

  // Whether a song of that name is there, which a save would write over.
  bool JaExiste(const SongName &name) const;
  // `sobrescreve`: the operator was told that it would; otherwise another song of that name stays, and this one gets a
  // free name. Under which name, without ".txt", it was saved; empty when it was not.
  QString CmdSalvar(const SongContent &content, bool sobrescreve);
  // Puts the song into the agenda, saved before where it is not in the collection as it stands here; what came of that,
  // empty when nothing did.
  QString CmdAddLista(const SongContent &content);

private:
  void Comeca(Trabalho trabalho, const QString &andamento);
  void Termina();
  PageFetcher::Rodada ContaRodadas(const QString &andamento);
  bool Configurado(Endpoint endpoint, const QUrl &address);
  void MostraLetra(const SongContent &letra);
  void Lista(ResultadosDeLetras resultados);
  void BuscaTerminou();
  void LetraVeio(const QString &page, const QString &titulo);
  void Diz(MessageKind kind, const QString &text);
  // The file of that name; empty where none can have it.
  static QString ArquivoDe(const SongName &name);
  QString CaminhoDe(const QString &arquivo) const;
  QString ArquivoASalvar(const SongContent &content); // empty once the operator has heard why it cannot be saved
  NomeDeFora LugarDe(const QString &arquivo, const QString &texto) const;
  bool Grava(const QString &pedido, const QString &arquivo, const QString &texto);

  LyricsSearchDoors m_doors;
  SiteDeLetras m_site = SitePadrao;
  SiteEmUso m_siteDasLinhas;
  QString m_artista; // whose list the rows are; empty for those of a search
  ResultadosDeLetras m_resultados;
  ResultadosDeLetras m_achados; // of the page that was looked at last
  SongContent m_letra;
  // Where the text in the boxes stands already. The next save under the same name goes there again.
  struct {
    QString pedido; // the file's name by the boxes
    QString arquivo;
    QString texto;
  } m_gravada;
  Trabalho m_trabalho = Trabalho::Nenhum;
  QString m_andamento;
  qsizetype m_linha = -1; // that is being opened
  std::unique_ptr<WebTask> m_task;
};

} // namespace tolmira
