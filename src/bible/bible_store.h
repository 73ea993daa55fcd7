#pragma once

#include "bible/version_text.h"
#include "foundation/app_folder.h"
#include "foundation/ini_store.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

namespace tolmira {

// No version comes near this (a testament takes three or four million bytes, ten in the scripts of three bytes a
// letter); of a longer file only the first so many bytes are there, so that a file that is no Bible does not stall the
// desk.
inline constexpr qint64 VersionFileLimit = 16 * 1024 * 1024;

// A line of the version menu.
struct BibleVersion {
  QString arquivo; // file name as found in the folder, with extension: "OLD_KJV.txt"
  QString legenda; // caption of the menu item: the second "_"-field of the file name, without ".txt"
};

// The Bible versions of <app>\Bible and the chapter that was fetched last. One object a program; user-interface thread.
class BibleStore {
public:
  BibleStore(const AppFolder &app, const IniStore &store);

  // Scans the folder, settles which version is chosen (section "Biblias") and loads it. Called at start and after
  // versions were fetched or removed.
  void BuildVersionMenu();
  const std::vector<BibleVersion> &Versoes() const { return m_versoes; } // item i of the menu is element i - 1
  // Called when another version is in force, or the versions were scanned anew; may be empty.
  std::function<void()> VersaoMudou;
  int BibliaAtual() const { return m_bibliaAtual; }       // index from 1; points at nothing when there is no version
  QString VersaoBiblia() const { return m_versaoBiblia; } // short name of the version loaded last: "KJV"
  QString LegendaAtual() const;                           // caption of the chosen item, empty without one

  // Fills the buffers of one version, once per run, and sets VersaoBiblia. A file that cannot be read leaves them
  // empty.
  void LoadVersion(int index);
  // Makes it the version in force and stores it; false when it is already, or there is none of that index. The caller
  // shows the verse again.
  bool ChooseVersion(int index);
  // To be called before BuildVersionMenu where versions came into the folder or left it: stores the index that the
  // version in force has there now, so that it stays in force. One that was removed gives way to the first.
  void GuardaEscolha() const;
  // Of a loaded version; an empty text otherwise. Stands until the next BuildVersionMenu.
  const VersionText &Texto(int index, bool novoTestamento) const;

  // The verse line with its number, empty when not found. Fills Capitulo unless the chapter is not there. Verse 1000
  // stands for the chapter's last, and is replaced by its number in `reference`, which is otherwise left as it is.
  QString GetVerse(QString &reference);
  // Step inside Capitulo, whatever chapter `reference` names. They return the text without its number and set RefAtual;
  // an empty text when there is no such verse, RefAtual then stays. The element behind the last verse is empty: one
  // step beyond the end is taken and gives an empty text.
  QString NextVerse(const QString &reference);
  QString PreviousVerse(const QString &reference);

  // Element n is verse n with its number; 0 is the rest of the header line. Empty before the first chapter was fetched.
  const QStringList &Capitulo() const { return m_capitulo; }
  // Set by the two steps; GetVerse leaves it to its caller to say that a verse is on show.
  QString RefAtual() const { return m_refAtual; }
  void DefineRefAtual(const QString &reference) { m_refAtual = reference; }

  // What the version in force holds, for a browser; Capitulo stays as it is. Element n - 1 is the text of verse n.
  QList<int> CapitulosDoLivro(int livro) const;
  QStringList VersiculosDoCapitulo(int livro, int capitulo) const;

private:
  struct Textos {
    VersionText velho;
    VersionText novo;
  };

  QString ReadKey(const QString &key, const QString &fallback) const;
  void StoreKey(const QString &key, const QString &value) const;
  QString NomeDoArquivo(int index) const;
  QString ElementoDoCapitulo(const QString &reference, int step, int lowest);

  const AppFolder &m_app;
  const IniStore &m_store;
  std::vector<BibleVersion> m_versoes;
  std::map<int, Textos> m_textos;
  int m_bibliaAtual = 1;
  QString m_versaoBiblia;
  QStringList m_capitulo;
  QString m_refAtual;
};

// "OLD_KJV.txt" or "NEW_KJV.txt".
enum class Testamento { Velho, Novo };
QString ArquivoDaVersao(const QString &nomeCurto, Testamento testamento);
QString NomeCurto(const QString &arquivo); // "KJV" of "OLD_KJV.txt"
// One file of a version, up to VersionFileLimit; empty when it cannot be read.
VersionText ReadVersionFile(const QString &storedPath);

// A verse line without its number: what stands behind the first blank.
QString TextoDoVersiculo(const QString &linha);

} // namespace tolmira
