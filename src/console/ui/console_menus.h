#pragma once

#include "console/key_sheet.h"
#include "console/ui/console_parts.h"

#include <QMenuBar>
#include <functional>
#include <vector>

class QActionGroup;
class QLabel;
class QPushButton;

namespace tolmira {

// The menu bar with version and caption server at its right end. Each entry is an action of the logic or a place in the
// window; what the window must do itself comes in as functions.
class ConsoleMenus : public QMenuBar {
  Q_OBJECT

public:
  struct Ways {
    std::function<void()> close;
    std::function<void()> toggleSize; // Image3
    std::function<void()> toAgenda;
    std::function<void()> toStrip;
    std::function<void()> toScreenStates;
    std::function<void()> toThemes;
    std::function<void()> toReference; // the quick box
    std::function<void()> newSong;
    std::function<void()> downloadLyrics;
    std::function<void()> downloadPictures;
    std::function<void()> downloadVideos; // those that are suggested
    std::function<void()> pictureOnScreen;
    std::function<void()> videoControl;
    std::function<void()> cameras;
    std::function<void()> addBible;
    std::function<void()> browseBible;
    std::function<void()> searchBible;
    std::function<void()> searchVersions;
    std::function<void(int index)> chooseScreen; // of the panel's `telas`
    std::function<void()> keySheet;
    std::function<void()> help;
    std::function<void()> support;
    std::function<void()> verifyUpdate;
    std::function<void()> about;
    std::function<void(int delta)> choose; // the next or previous entry of the agenda
    std::function<void(int delta)> move;   // the chosen entry inside its group
  };

  ConsoleMenus(ConsoleParts parts, Ways ways, QWidget *parent);
  void Atualiza();
  void SetMaximised(bool maximised);
  QMenu *Versoes() { return m_mnIb; } // mn_ib: the Bible versions

private:
  void MakeFile();
  void MakeActions();
  void MakeScreen();
  void FillScreens();
  void MakeBible();
  void FillVersions();
  void MakeGo();
  void MakeHelp();
  void MakeCorner();
  QAction *Entry(QMenu *menu, Comando comando, std::function<void()> way);
  QMenu *Menu(const char *name, const QString &title);
  QAction *Action(QMenu *menu, const char *name, const QString &text, const QString &tip, std::function<void()> way);

  ConsoleParts m_parts;
  Ways m_ways;
  QActionGroup *m_states = nullptr;
  QAction *m_mnVideo = nullptr;
  QAction *m_mnCameras = nullptr;
  QMenu *m_mnProjecao = nullptr;
  std::vector<OpcaoDeTela> m_telas; // that the menu was made for
  QMenu *m_mnIb = nullptr;
  QActionGroup *m_versoes = nullptr;
  QStringList m_legendas; // of the versions that the menu was made for
  QLabel *m_lbServidorLegenda = nullptr;
  QPushButton *m_image3 = nullptr;
};

} // namespace tolmira
