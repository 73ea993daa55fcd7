#pragma once

#include "bible/FrmAddBibliaNaLista.h"
#include "bible/FrmBibleBrowser.h"
#include "bible/FrmBibleSearch.h"
#include "captions/FrmLegendas.h"
#include "console/FrmAtalhos.h"
#include "console/FrmSobre.h"
#include "console/console_fixture.h"
#include "display/ui/engine_versions.h"
#include "foundation/ui/form_position.h"
#include "media/ui/camera_window.h"
#include "media/ui/video_windows.h"
#include "notices/ui/notice_windows.h"
#include "slides/FrmImportar.h"
#include "slides/show_document.h"
#include "slides/slide_document.h"
#include "slides/slide_folder.h"
#include "slides/ui/show_windows.h"
#include "slides/ui/slide_windows.h"
#include "songs/FrmAddMusicaNaLista.h"
#include "songs/FrmSobregravar.h"
#include "songs/ui/song_editors.h"
#include "support/fake_winsock.h"
#include "support/hand_made_pdf.h"
#include "support/recording_presentation.h"
#include "support/small_bible.h"

#include <QApplication>
#include <QLineEdit>
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

inline std::shared_ptr<SongEditors> EditorsOfSongs(House &house) {
  const auto room = [](const QString &, const AjustesTexto &) {
    SongRoom made;
    made.pagina.font.sizePt = 15;
    made.pagina.limitTwips = 3600;
    made.tamanhoBase = 40;
    return made;
  };
  return std::make_shared<SongEditors>(
      SongEditorDoors{house.store,
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
                      &house.desk},
      TextFormatDoors{[] { return TextFormat(); }, [](const TextFormat &) { return true; }});
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
                                                           [](const QString &) { return false; }});
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
  };
  return all;
}

} // namespace tolmira::testing
