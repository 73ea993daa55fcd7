#pragma once

#include "bible/FrmAddBibliaNaLista.h"
#include "bible/FrmBibleBrowser.h"
#include "bible/FrmBibleSearch.h"
#include "bible/ui/bible_windows.h"
#include "captions/FrmLegendas.h"
#include "console/FrmAtalhos.h"
#include "console/FrmSobre.h"
#include "console/console_fixture.h"
#include "display/ui/engine_versions.h"
#include "foundation/ui/form_position.h"
#include "media/ui/camera_window.h"
#include "media/ui/content_window.h"
#include "media/ui/video_windows.h"
#include "notices/ui/notice_windows.h"
#include "slides/FrmImportar.h"
#include "slides/show_document.h"
#include "slides/slide_document.h"
#include "slides/slide_folder.h"
#include "slides/ui/show_windows.h"
#include "slides/ui/slide_windows.h"
#include "songs/FrmAddMusicaNaLista.h"
#include "songs/FrmBusca.h"
#include "songs/FrmSobregravar.h"
#include "songs/ui/lyrics_window.h"
#include "songs/ui/song_editors.h"
#include "support/fake_winsock.h"
#include "support/hand_made_pdf.h"
#include "support/recording_opener.h"
#include "support/recording_presentation.h"
#include "support/scripted_web.h"
#include "support/sites/services_site.h"
#include "support/small_bible.h"
#include "themes/ui/theme_windows.h"
#include "web/endpoints.h"
#include "web/page_fetcher.h"
#include "web/ui/update_windows.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>
#include <functional>
#include <map>
#include <memory>

namespace tolmira::testing {

// A console with something of every kind, and names as people give them.
class House : public ConsoleFixture {
public:
  House() : positions(store, yielder) {
    Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    Write(u"Lyrics/" + LongName + u".txt", "Uma linha");
    const QStringList verses{QStringLiteral("A lamp is lit."), QStringLiteral("Light of the lamp.")};
    SmallBible().Chapter(1, 1, verses).Chapter(43, 3, verses).Write(folder.path(), QStringLiteral("KJV"));
    core.leitura.CarregaVersoes();
    core.agenda.SelectTab(1);
    core.leitura.MostraVersao();
    QString message;
    for (const QString &name : {QStringLiteral("Canto"), LongName})
      core.agenda.PorNaLista(name, 2, QString(), message);
    positions.SetConsole(&desk);
  }

  // Its file, with two pictures that there are not.
  QString MakeShow() {
    QDir(folder.path()).mkdir(QStringLiteral("SlideShow"));
    SlideShowDocument show;
    show.imagens = {QStringLiteral("/p/a.jpg"), u"/p/" + LongName + u".jpg"};
    show.ArquivodeAudio = u"/p/" + LongName + u".mp3";
    show.textoInicio = QStringLiteral("Welcome<br>to all");
    EscreveSlideShow(CaminhoDoSlideShow(app, LongName), show);
    return CaminhoDoSlideShow(app, LongName);
  }
  QString MakeSlides() {
    SlideDocument document;
    document.slides.resize(3);
    document.slides[0].Imagem = u"/p/" + LongName + u".jpg";
    document.slides[0].Titulo = LongName;
    GravaSlide(CaminhoDoSlide(app, LongName), document);
    return CaminhoDoSlide(app, LongName);
  }

  inline static const QString LongName =
      QStringLiteral("A name that is far too long for any list on any desk in any hall of this world");
  FormPositions positions;
  FakeWinsock winsock;
  CaptionServer captions{core.legenda, store, winsock, clock, [] { return TabelaDeEnderecos{0, {0xc0a80105}}; }};
  RecordingPresentation console;
  ScriptedWeb web;
  Endpoints endpoints{store};
  PageFetcher pages{store, web};
  RecordingOpener opener;
  QWidget desk;
};

// Opens one window; what it returns keeps the window.
using Opener = std::function<std::shared_ptr<void>(House &)>;

template <class Form, class... Parts> std::shared_ptr<Form> Opened(Parts &&...parts) {
  auto form = std::make_shared<Form>(std::forward<Parts>(parts)...);
  if constexpr (requires { form->Open(); })
    form->Open();
  else
    form->show();
  return form;
}

inline BibleDoors DoorsOfBible(House &house) {
  return {house.core.lojaBiblia, house.store, house.console,           house.positions,
          house.clock,           &house.desk, [] { return QString(); }};
}

inline SongEditorDoors DoorsOfSongEditor(House &house) {
  const auto room = [](const QString &, const AjustesTexto &) {
    SongRoom made;
    made.pagina.font.sizePt = 15;
    made.pagina.limitTwips = 3600;
    made.tamanhoBase = 40;
    return made;
  };
  return {house.store,
          house.prompt,
          house.clock,
          house.random,
          house.yielder,
          house.measure,
          house.console,
          house.positions,
          house.core.estado,
          house.core.ajustes,
          [] { return nullptr; },
          room,
          {},
          &house.desk};
}

inline std::shared_ptr<SongEditors> EditorsOfSongs(House &house) {
  return std::make_shared<SongEditors>(
      DoorsOfSongEditor(house), TextFormatDoors{[] { return TextFormat(); }, [](const TextFormat &) { return true; }});
}

// The window of the web lyrics with long rows, and with a song whose name is taken.
inline std::shared_ptr<void> LyricsFromTheWeb(House &house) {
  struct Web {
    explicit Web(House &house) : endpoints(house.store), fetcher(house.store, client) {}
    ScriptedWeb client;
    Endpoints endpoints;
    PageFetcher fetcher;
    std::unique_ptr<LyricsWindow> window;
  };
  auto web = std::make_shared<Web>(house);
  web->endpoints.GravaPadroes();
  web->client.page = [](int, const QUrl &url) -> QString {
    return url.path() == u"/search"
               ? u"<a href=\"/url?q=https://www.azlyrics.com/a&\">" + House::LongName + u" | AZLyrics.com</div>"
               : QStringLiteral("ringtone-->Uma linha</div>");
  };
  web->window = std::make_unique<LyricsWindow>(LyricsDoors{
      {house.app, web->endpoints, web->fetcher, house.prompt, house.console, {}, {}}, DoorsOfSongEditor(house)});
  web->window->AbreBusca(QStringLiteral("Canto"));
  auto *form = house.desk.findChild<FrmBusca *>();
  form->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
  auto *rows = form->findChild<QListWidget *>(QStringLiteral("List1"));
  [&] { QTRY_COMPARE(rows->count(), 1); }();
  emit rows->itemActivated(rows->item(0));
  [&] { QTRY_VERIFY(form->findChild<QLabel *>(QStringLiteral("LbJaExiste"))->isVisible()); }();
  return web;
}

inline std::shared_ptr<SlideWindows> WindowsOfSlides(House &house) {
  house.MakeSlides();
  return std::make_shared<SlideWindows>(SlideDoors{house.store,
                                                   house.prompt,
                                                   house.clock,
                                                   house.random,
                                                   house.console,
                                                   house.positions,
                                                   house.core.estado,
                                                   house.core.ajustes,
                                                   [] { return nullptr; },
                                                   [] { return House::LongName; },
                                                   {},
                                                   [](const AbreImagens &) {},
                                                   {},
                                                   &house.desk});
}

inline std::shared_ptr<ShowWindows> WindowsOfShows(House &house) {
  house.MakeShow();
  return std::make_shared<ShowWindows>(ShowDoors{house.app,
                                                 house.prompt,
                                                 house.console,
                                                 house.positions,
                                                 house.core.show,
                                                 [] { return House::LongName; },
                                                 [](QWidget *, const std::function<void(const QString &)> &) {},
                                                 {},
                                                 &house.desk});
}

// Over a file of two sounds.
inline std::shared_ptr<VideoWindows> WindowsOfVideos(House &house) {
  house.display.player.url = u"/v/" + House::LongName + u".mp4";
  house.display.player.duration = 7200;
  house.display.player.falhou = true;
  house.display.player.faixas = {{1, QStringLiteral("por")}, {2, House::LongName}};
  return std::make_shared<VideoWindows>(VideoDoors{house.store,
                                                   house.prompt,
                                                   house.clock,
                                                   house.console,
                                                   house.positions,
                                                   house.core.controleDeVideo,
                                                   [] { return House::LongName; },
                                                   [&house] { return !house.core.videoDaWeb.EmExibicao(); },
                                                   [] {},
                                                   &house.desk,
                                                   house.core.controleDaWeb,
                                                   [&house] { return house.core.videoDaWeb.EmExibicao(); },
                                                   {},
                                                   {}});
}

// With a web that has nothing.
class WebOfThemes {
public:
  explicit WebOfThemes(House &house)
      : m_fetcher(house.store, m_web), m_endpoints(house.store),
        windows(ThemeDoors{
            house.app, house.store, house.positions, house.prompt, &house.desk, {}, {}, {}, &m_fetcher, &m_endpoints}) {
  }

private:
  ScriptedWeb m_web;
  PageFetcher m_fetcher;
  Endpoints m_endpoints;

public:
  ThemeWindows windows;
};

inline std::shared_ptr<NoticeWindows> WindowsOfNotices(House &house) {
  return std::make_shared<NoticeWindows>(
      NoticeDoors{house.store, house.prompt, house.positions, [](const QString &) {}, {}, {}, &house.desk});
}

// With a document that asks for its password.
inline std::shared_ptr<FrmImportar> OpenedImport(House &house) {
  const DocumentImport::Programas programs{qEnvironmentVariable("TOLMIRA_BIN_DIR") + QStringLiteral("/tolmira-pages"),
                                           QString()};
  house.Write(House::LongName + u".pdf", LockedPdf("amen"));
  auto form = std::make_shared<FrmImportar>(ImportDoors{house.store, house.prompt, house.positions,
                                                        [programs] { return programs; }, [] { return QSize(320, 180); },
                                                        [] { return false; }},
                                            &house.desk);
  form->Importa(house.folder.filePath(House::LongName + u".pdf"),
                [](const QStringList &, const QString &) { return true; });
  [&] { QTRY_VERIFY(form->findChild<QLineEdit *>(QStringLiteral("TxtSenha"))->isVisible()); }();
  return form;
}

// Over a version with a long name.
inline std::shared_ptr<BibleWindows> WindowsOfDownloads(House &house) {
  WriteBytes(house.folder.filePath(u"Bible/OLD_" + House::LongName.left(60) + u".txt"), TinyVersion("Genesis", "a"));
  house.core.leitura.CarregaVersoes();
  auto windows = std::make_shared<BibleWindows>(
      DoorsOfBible(house), BibleDownloadDoors{house.core.lojaBiblia, house.app, house.endpoints, house.web,
                                              house.prompt, house.positions, QString(), [] {}, &house.desk});
  windows->AbreBaixar();
  return windows;
}

// A newer version was found, or is being fetched.
inline std::shared_ptr<UpdateWindows> WindowsOfUpdates(House &house, bool now) {
  QString file = house.app.At(u"\\Data\\Endpoints.dat");
  house.store.WriteConfig(QStringLiteral("Endpoints"), QStringLiteral("Atualizacao"), QStringLiteral("up.example"),
                          file);
  house.web.page = [](int, const QUrl &) {
    return QString(u"!*!!*!9.0.0!*!https://d.example/i.exe!*!" + House::LongName);
  };
  auto windows = std::make_shared<UpdateWindows>(UpdateDoors{house.endpoints, house.pages, house.prompt, house.opener,
                                                             house.positions, [] {}, &house.desk, [] { return false; },
                                                             house.folder.filePath(QStringLiteral("Desktop"))});
  windows->VerifyUpdate();
  auto *button = house.desk.findChild<QPushButton *>(QStringLiteral("Command1"));
  [&] { QTRY_VERIFY(button->isEnabled()); }();
  house.web.answers = false;
  if (now)
    button->click();
  return windows;
}

// With a video of a long name and a line that is none.
inline std::shared_ptr<ContentWindow> WindowOfContent(House &house) {
  house.Write(QStringLiteral("Data/content.dat"),
              ContentLine(House::LongName.toUtf8(), "https://v.example/v.mp4", SuggestedVideo()) + "broken");
  auto window = std::make_shared<ContentWindow>(ContentDoors{house.app, house.web, house.console, house.positions,
                                                             [] { return House::LongName; }, &house.desk});
  window->Abre();
  return window;
}

inline const std::map<QString, Opener> &EveryWindow() {
  static const std::map<QString, Opener> all{
      {QStringLiteral("FrmAddBibliaNaLista"), [](House &h) { return Opened<FrmAddBibliaNaLista>(DoorsOfBible(h)); }},
      {QStringLiteral("FrmBibleBrowser"), [](House &h) { return Opened<FrmBibleBrowser>(DoorsOfBible(h)); }},
      {QStringLiteral("FrmBibleSearch"), [](House &h) { return Opened<FrmBibleSearch>(DoorsOfBible(h)); }},
      {QStringLiteral("FrmAddMusicaNaLista"),
       [](House &h) {
         auto form = Opened<FrmAddMusicaNaLista>(SongDoors{h.app,
                                                           h.console,
                                                           h.positions,
                                                           h.clock,
                                                           h.prompt,
                                                           &h.desk,
                                                           [] { return QStringLiteral("Agenda 1"); },
                                                           {},
                                                           [](const QString &) { return false; },
                                                           [](const QString &) {}});
         h.clock.Advance(1000);
         return form;
       }},
      {QStringLiteral("FrmSobregravar"),
       [](House &h) { return Opened<FrmSobregravar>(QStringLiteral("Canto (Autor).txt"), &h.desk); }},
      {QStringLiteral("FrmSobre"),
       [](House &h) {
         const EngineVersions versions = ReadEngineVersions();
         return Opened<FrmSobre>(MotorDoPrograma{QString::fromLatin1(qVersion()), versions.webEngine, versions.chromium,
                                                 versions.mpv, QStringLiteral("OpenGL")},
                                 &h.desk);
       }},
      {QStringLiteral("FrmAtalhos"), [](House &h) { return Opened<FrmAtalhos>(&h.desk); }},
      {QStringLiteral("FrmEditar"),
       [](House &h) {
         auto editors = EditorsOfSongs(h);
         editors->Novo();
         return editors;
       }},
      {QStringLiteral("FrmBusca"), [](House &h) { return LyricsFromTheWeb(h); }},
      {QStringLiteral("FrmConfigFormatTexto"),
       [](House &h) {
         auto editors = EditorsOfSongs(h);
         editors->AbreFormato();
         return editors;
       }},
      {QStringLiteral("FrmListaSlides"),
       [](House &h) {
         auto windows = WindowsOfSlides(h);
         windows->AbreLista();
         return windows;
       }},
      {QStringLiteral("FrmSlides"),
       [](House &h) {
         auto windows = WindowsOfSlides(h);
         windows->Edita(CaminhoDoSlide(h.app, House::LongName));
         return windows;
       }},
      {QStringLiteral("FrmListaSlidesShow"),
       [](House &h) {
         auto windows = WindowsOfShows(h);
         windows->AbreLista();
         return windows;
       }},
      {QStringLiteral("FrmSlideShow"),
       [](House &h) {
         auto windows = WindowsOfShows(h);
         windows->Edita(CaminhoDoSlideShow(h.app, House::LongName));
         return windows;
       }},
      {QStringLiteral("FrmSlideShowControl"),
       [](House &h) {
         auto windows = WindowsOfShows(h);
         windows->AbreControle(CaminhoDoSlideShow(h.app, House::LongName));
         windows->ImagemMudou(House::LongName + u".jpg");
         return windows;
       }},
      {QStringLiteral("FrmVideoControl"),
       [](House &h) {
         auto windows = WindowsOfVideos(h);
         windows->AbreControle(true);
         return windows;
       }},
      {QStringLiteral("FrmAddVideoNaLista"),
       [](House &h) {
         auto windows = WindowsOfVideos(h);
         windows->AbreAdicionar();
         return windows;
       }},
      {QStringLiteral("FrmYoutubeCtrl"),
       [](House &h) {
         h.core.flow.ShowEntry(4, 0, House::LongName, QStringLiteral("https://www.youtube.com/embed/Abc_def-123"));
         h.core.videoDaWeb.Desviou();
         auto windows = WindowsOfVideos(h);
         windows->AbreControle(true);
         return windows;
       }},
      {QStringLiteral("FrmPesquisaYoutube"),
       [](House &h) {
         auto windows = WindowsOfVideos(h);
         windows->AbrePesquisa();
         return windows;
       }},
      {QStringLiteral("FrmCameras"),
       [](House &h) {
         h.core.cameras.StatusTelaCamera(true);
         auto window =
             std::make_shared<CameraWindow>(CameraDoors{h.clock, h.positions, h.core.cameras, [] {}, &h.desk});
         window->Abre();
         h.core.cameras.Respondeu(u"http://indexcam//?" + House::LongName + u"|Lens|", Alvo::Previa);
         return window;
       }},
      {QStringLiteral("FrmImageNet"),
       [](House &h) {
         auto themes = std::make_shared<WebOfThemes>(h);
         themes->windows.AbreImageNet();
         return themes;
       }},
      {QStringLiteral("FrmExibeAviso"),
       [](House &h) {
         auto windows = WindowsOfNotices(h);
         windows->AbreAviso();
         return windows;
       }},
      {QStringLiteral("FrmListaAvisos"),
       [](House &h) {
         h.Write(QStringLiteral("Data/notices.txt"), House::LongName.toUtf8());
         auto windows = WindowsOfNotices(h);
         windows->AbreLista();
         return windows;
       }},
      {QStringLiteral("FrmAvisoConfig"),
       [](House &h) {
         auto windows = WindowsOfNotices(h);
         windows->AbreConfig();
         return windows;
       }},
      {QStringLiteral("FrmLegendas"),
       [](House &h) {
         QString error;
         h.captions.Liga(QStringLiteral("65535"), error);
         return Opened<FrmLegendas>(
             CaptionDoors{h.store, h.prompt, h.positions, h.core.legenda, h.captions, {}, {}, &h.desk});
       }},
      {QStringLiteral("FrmImportar"), OpenedImport},
      {QStringLiteral("FrmBaixarBiblia"), WindowsOfDownloads},
      {QStringLiteral("FrmComunicado"), [](House &h) { return WindowsOfUpdates(h, false); }},
      {QStringLiteral("FrmUp"), [](House &h) { return WindowsOfUpdates(h, true); }},
      {QStringLiteral("FrmConteudo"), WindowOfContent},
  };
  return all;
}

} // namespace tolmira::testing
