#pragma once

#include "bible/bible_store.h"
#include "bible/installed_bibles.h"
#include "web/endpoints.h"
#include "web/side_threads.h"
#include "web/web_client.h"

#include <QList>
#include <QString>
#include <QStringView>
#include <QTemporaryDir>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

namespace tolmira {

// A version that can be had, or is there.
struct VersaoOferecida {
  QString nome;     // its short name: what stands between "OLD_" and ".txt"
  QString titulo;   // what it is called at length; may be empty
  QString endereco; // on the web: of the folder with its two files, whole or relative to the list's
  QString modulo;   // installed on this computer: the module that it is made from
};

// Short names from elsewhere become names of files: those that would not be the same afterwards are refused, and those
// that the version menu would read as another name.
bool NomeDeVersaoServe(const QString &nome);

struct ListaDeBiblias {
  QList<VersaoOferecida> versoes; // at most 500
  int recusadas = 0;              // rows of versions that were left out
};

// What a reply lists; nothing when it is no list at all, for want of the marker "[Lista]". Rows are separated by
// "<br>"; one with a version reads
//   url|:|<address of the folder>|:|<title>|:|<short name>
// Rows that lack a field or have a short name that does not serve are left out, and of two with the same short name the
// second.
std::optional<ListaDeBiblias> LeListaDeBiblias(QStringView resposta);

// Of one of its files: <address of the folder>/OLD_<short name>.txt, resolved against the address of the list. Invalid
// when it would lead elsewhere than to the web, or from https to anything else.
QUrl EnderecoDoArquivo(const QUrl &lista, const VersaoOferecida &versao, Testamento testamento);

// Which of its two files a version has in <app>\Bible.
struct ArquivosNaPasta {
  bool velho = false;
  bool novo = false;
};
ArquivosNaPasta OlhaPasta(const AppFolder &app, const QString &nomeCurto);
// The short names of all versions there; those that have a "NEW_" file alone are none.
QStringList VersoesNaPasta(const BibleStore &biblia);

// The version that a new program folder begins with stays, so that there always is one.
bool PodeRemover(const QString &nomeCurto);
// Removes both files, into the desktop's trash where there is one. False when one of them is still there.
bool RemoveVersao(const AppFolder &app, const QString &nomeCurto);

// Asks the list endpoint for versions.
class BuscaDeBiblias {
public:
  BuscaDeBiblias(const Endpoints &endpoints, WebClient &web) : m_endpoints(endpoints), m_web(web) {}

  // Of the list for a term; invalid when the endpoint is not configured.
  QUrl Endereco(const QString &termo) const;

  // By method 1; where no list comes, by the control `DL1` through a scratch file; then by method 2. `pronto` gets
  // nothing when all three failed.
  using Pronto = std::function<void(const std::optional<ListaDeBiblias> &)>;
  [[nodiscard]] std::unique_ptr<WebTask> Procura(const QUrl &endereco, Pronto pronto);

private:
  const Endpoints &m_endpoints;
  WebClient &m_web;
};

// Brings marked versions into <app>\Bible, one file after the other: each "OLD_", then its "NEW_". A file that is there
// is never touched. What comes is put in its place only when the program's own reader finds a chapter of its testament
// in it.
class FilaDeBiblias {
public:
  struct Ouvinte {
    std::function<void(const QString &texto)> legenda;                     // what is under way, or was passed over
    std::function<void(qint64 veio, qint64 total)> andou;                  // total -1 or 0: not known
    std::function<void(const QString &nome, const QString &frase)> contou; // what came of one file
    std::function<void()> acabou;                                          // the queue is empty; not after Para()
  };

  FilaDeBiblias(const AppFolder &app, WebClient &web, ImportadorDeBiblias &importador, Ouvinte ouvinte);

  void Comeca(const QUrl &lista, const QList<VersaoOferecida> &versoes);
  void Para();
  bool Roda() const { return m_roda; }
  int Trouxe() const { return m_trouxe; }     // files since Comeca
  int Faltaram() const { return m_faltaram; } // files that did not come

private:
  void Adiante();
  void Busca(const VersaoOferecida &versao, Testamento testamento);
  void Confere(const QString &arquivo); // real path of what came
  void Conferiu(const QString &arquivo, bool serve);
  void Termina(const QString &frase); // this file; empty when it is in its place
  QString Pasta() const;              // real path
  QString Chegada() const;            // stored path where the file of this step comes to
  const VersaoOferecida &Versao() const { return m_versoes.at(m_passo / 2); }
  Testamento Qual() const { return m_passo % 2 == 0 ? Testamento::Velho : Testamento::Novo; }

  const AppFolder &m_app;
  WebClient &m_web;
  ImportadorDeBiblias &m_importador;
  Ouvinte m_ouvinte;
  QUrl m_lista;
  QList<VersaoOferecida> m_versoes;
  qsizetype m_passo = 0; // two a version
  bool m_roda = false;
  int m_trouxe = 0;
  int m_faltaram = 0;
  std::unique_ptr<QTemporaryDir> m_importada; // both files of the version that is being imported
  SideThreads m_fios;
  std::unique_ptr<WebTask> m_tarefa;
};

} // namespace tolmira
