#pragma once

#include "app/control_events.h"
#include "app/control_server.h"
#include "app/program.h"
#include "app/program_folder.h"
#include "app/single_instance.h"
#include "bible/ui/bible_windows.h"
#include "captions/FrmLegendas.h"
#include "captions/qt_winsock.h"
#include "console/FrmMonitor.h"
#include "console/FrmSobre.h"
#include "console/console_core.h"
#include "console/help_desk.h"
#include "console/projection_place.h"
#include "console/startup.h"
#include "console/ui/qt_monitors.h"
#include "console/ui/screen_repair.h"
#include "controls/ui/context_menu_key.h"
#include "display/FrmQuendar.h"
#include "display/ui/page_profile.h"
#include "foundation/real_seams.h"
#include "foundation/ui/form_position.h"
#include "foundation/ui/qt_user_prompt.h"
#include "media/ui/camera_window.h"
#include "media/ui/content_window.h"
#include "media/ui/video_windows.h"
#include "notices/ui/notice_windows.h"
#include "slides/FrmImportar.h"
#include "slides/ui/show_windows.h"
#include "slides/ui/slide_windows.h"
#include "songs/ui/lyrics_window.h"
#include "songs/ui/song_editors.h"
#include "songs/ui/song_windows.h"
#include "themes/ui/theme_editors.h"
#include "themes/ui/theme_windows.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"
#include "web/real_web_client.h"
#include "web/ui/update_windows.h"

#include <QCoreApplication>
#include <QTimer>

namespace tolmira {

// Every object of the program, and how they are wired: the windows behind the console in program_windows.cpp, the
// projection, the start and the end in program.cpp.
struct Program::Impl {
  explicit Impl(const CommandLine &commandLine)
      : line(commandLine), app(ChooseProgramFolder(commandLine.app, QCoreApplication::applicationDirPath())),
        store(app), instance(app), prompt(boxes, events), positions(store, yielder),
        core(ConsoleDoors{app, store, clock, random, yielder, prompt, measure,
                          [this]() -> Display * { return quendar.get(); },
                          [this] { return PageNamed(QStringLiteral("preview")); }}) {
    core.canal.AddObserver(&events);
  }

  void MakeWindows();
  void AbreSobre();
  void MakeBibleWindows();
  SongEditorDoors DoorsOfSongEditor();
  void MakeSongEditors();
  void MakeThemeWindows();
  void MakeThemeEditors();
  void MakeSlideWindows();
  void ImportaDocumento(const AbreImagens &pronto);
  void MakeShowWindows();
  void MakeVideoWindows();
  void MakeWebWindows();
  void MakeNoticeWindows();
  void MostraServidor();
  void AbreLegendas();
  void MakeDisplay();
  void RemakeDisplay();
  bool PodeDesviar(const QUrl &url);
  void MakeStartup();
  bool CriaPrevia();
  void CameraRespondeu(const QString &uri, Alvo de);
  void ListenForControl();
  void WatchScreens(QObject *context);
  void ScreensChanged();
  void SizeChanged();
  void PlaceDisplay(const PlacaDoTelao &placa);
  void MakePlace();
  PageObject *PageNamed(const QString &name) const;

  CommandLine line;
  AppFolder app;
  IniStore store;
  Endpoints endpoints{store};
  SingleInstance instance;

  ControlEvents events;
  QtUserPrompt boxes;
  ObservedPrompt prompt;
  SystemClock clock;
  SystemRandom random;
  LoopYielder yielder;
  FontTextMeasure measure;
  ScreenRepair screenRepair;
  SystemOpener opener;
  std::unique_ptr<HelpDesk> help;
  QtMonitors monitors;
  FormPositions positions;
  ContextMenuKey menuKey;
  QTimer screenTimer;
  QTimer sizeTimer;
  static constexpr int TentativasDeLugar = 10;
  int triesLeft = TentativasDeLugar; // to put the projection's window where the desktop would not leave it

  QtWinsock winsock1;

  RealWebClient web;
  PageFetcher paginas{store, web};

  // Windows go before the logic that they refer to, so they stand below it.
  ConsoleCore core;
  CaptionServer servidor{core.legenda, store, winsock1, clock, &GetIpAddrTable};
  bool leaving = false; // closed from outside before the console stood
  PageProfile profile;
  std::unique_ptr<FrmMonitor> console;
  std::unique_ptr<BibleWindows> bible;
  std::unique_ptr<SongEditors> editors;
  std::unique_ptr<SongWindows> songs;
  std::unique_ptr<ThemeWindows> themes;
  std::unique_ptr<ThemeEditors> themeEditors;
  std::unique_ptr<SlideWindows> slides;
  std::unique_ptr<FrmImportar> importar; // hands its pages to the one above
  std::unique_ptr<ShowWindows> shows;
  std::unique_ptr<VideoWindows> videos;
  std::unique_ptr<NoticeWindows> notices;
  std::unique_ptr<CameraWindow> cameras;
  std::unique_ptr<FrmLegendas> legendas;
  std::unique_ptr<LyricsWindow> letras;
  std::unique_ptr<UpdateWindows> atualizacao;
  std::unique_ptr<ContentWindow> conteudo;
  std::unique_ptr<FrmSobre> sobre;
  std::unique_ptr<FrmQuendar> quendar;
  std::unique_ptr<ProjectionPlace> lugar;
  std::unique_ptr<ConsoleStartup> startup;
  std::unique_ptr<ControlServer> control;
};

} // namespace tolmira
