#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

#include "bible/version_text.h"
#include "foundation/app_folder.h"
#include "foundation/ini_store.h"

namespace tolmira {

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
  const std::vector<BibleVersion> &Versoes() const; // item i of the menu is element i - 1
  int BibliaAtual() const;                          // index from 1; may point at nothing when there is no version
  QString VersaoBiblia() const;                     // short name of the version loaded last: "KJV"
  QString LegendaAtual() const;                     // caption of the chosen item, empty without one

  // Fills the buffers of one version, once per run, and sets VersaoBiblia. A file that cannot be read leaves them empty.
  void LoadVersion(int index);
  // Makes it the version in force and stores it; false when it is already, or there is none of that index. The caller
  // shows the verse again.
  bool ChooseVersion(int index);
  const VersionText &Texto(int index, bool novoTestamento); // of a loaded version; an empty text otherwise

  // The verse line with its number, empty when not found. Fills Capitulo unless the chapter is not there. Verse 1000
  // stands for the chapter's last, and is replaced by its number in `reference`.
  QString GetVerse(QString &reference);
  // Step inside Capitulo, whatever chapter `reference` names. They return the text without its number and set RefAtual;
  // an empty text when there is no such verse, RefAtual then stays. The element behind the last verse is empty: one step
  // beyond the end is taken and gives an empty text.
  QString NextVerse(const QString &reference);
  QString PreviousVerse(const QString &reference);

  const QStringList &Capitulo() const; // element n is verse n with its number; 0 is the rest of the header line
  QString RefAtual() const;
  void DefineRefAtual(const QString &reference);

private:
  const AppFolder &m_app;
  const IniStore &m_store;
};

// A verse line without its number: what stands behind the first blank.
QString TextoDoVersiculo(const QString &linha);

} // namespace tolmira
