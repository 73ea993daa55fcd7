#include "app/program_impl.h"
#include "bible/installed_bibles.h"
#include "console/ui/themes_panel.h"
#include "display/notice_call.h"
#include "display/ui/engine_versions.h"
#include "display/ui/graphics_backend.h"
#include "display/ui/web_page_host.h"
#include "media/video_files.h"
#include "notices/notice_sender.h"

#include <QApplication>

namespace tolmira {

PageObject *Program::Impl::PageNamed(const QString &name) const {
  if (name == u"display" || name == u"FrmQuendar")
    return quendar ? quendar->WV() : nullptr;
  if (name == u"notice")
    return quendar ? quendar->WVAviso() : nullptr;
  if (name == u"preview" || name == u"FrmMonitor")
    return console ? console->PicWV()->WV() : nullptr;
  if (name == u"FrmConfigTema")
    return themeEditors ? themeEditors->WV() : nullptr;
  if (name == u"FrmSlides")
    return slides ? slides->WV() : nullptr;
  if (name == u"FrmLegendas")
    return legendas ? legendas->WV() : nullptr;
  if (name == u"FrmPesquisaYoutube")
    return videos ? videos->WV() : nullptr;
  if (name == u"FrmSlideShow")
    return shows ? shows->WV() : nullptr;
  return nullptr;
}

void Program::Impl::MakeWindows() {
  profile = NewPageProfile();

  console = std::make_unique<FrmMonitor>(ConsoleParts::Of(core), profile);
  console->PicWV()->AddObserver(&events);
  console->PicWV()->OnRecovered = [this] { core.PaginaVoltou(Alvo::Previa); };
  console->PreviaMudou = [this] { core.PreviaMudou(); };
  positions.SetConsole(console.get());
  MakeBibleWindows();
  songs =
      std::make_unique<SongWindows>(SongDoors{app, core.flow, positions, clock, prompt, console.get(),
                                              [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                                              [this](const QString &path) { return editors->Edita(path, songs.get()); },
                                              [this](const QString &path) { return editors->EstaAberto(path); },
                                              [this](const QString &palavras) { letras->AbreBusca(palavras); }});
  MakeSongEditors();
  MakeThemeWindows();
  MakeThemeEditors();
  MakeSlideWindows();
  MakeShowWindows();
  MakeVideoWindows();
  MakeNoticeWindows();
  MakeWebWindows();
  servidor.Mudou = [this] { MostraServidor(); };
  FrmMonitor::Windows windows;
  windows.configTema = [this](int n) { themeEditors->AbreConfigTema(n); };
  windows.newSong = [this] { editors->Novo(songs.get()); };
  windows.addSong = [this] { songs->OpenAdd(); };
  windows.pictureOnScreen = [this] { themes->AbreGaleriaDoTelao(); };
  windows.addBible = [this] { bible->OpenAdd(); };
  windows.addSlides = [this] { slides->AbreLista(); };
  windows.addShows = [this] { shows->AbreLista(); };
  windows.addVideos = [this] { videos->AbreAdicionar(); };
  windows.searchVideos = [this] { videos->AbrePesquisa(); };
  windows.captions = [this] { AbreLegendas(); };
  windows.notices = [this] { notices->AbreAviso(); };
  windows.videoControl = [this] { videos->AbreControle(true); };
  windows.cameras = [this] { cameras->Abre(); };
  windows.browseBible = [this] { bible->OpenBrowser(); };
  windows.searchBible = [this] { bible->OpenSearch(); };
  windows.searchVersions = [this] { bible->AbreBaixar(); };
  windows.downloadLyrics = [this] { letras->AbreBusca(); };
  windows.downloadPictures = [this] { themes->AbreImageNet(); };
  windows.downloadVideos = [this] { conteudo->Abre(); };
  windows.verifyUpdate = [this] { atualizacao->VerifyUpdate(); };
  windows.chooseScreen = [this](int opcao) {
    if (core.estado.TelaPronta)
      lugar->EscolheTela(opcao);
  };
  windows.help = [this] { help->AbreAjuda(); };
  windows.support = [this] { help->AbreSuporte(); };
  windows.about = [this] { AbreSobre(); };
  windows.restorePosition = [this](QWidget &form) { positions.RestoreFormPosition(form, false); };
  windows.savePosition = [this](QWidget &form) { positions.SaveFormPosition(form, false); };
  windows.agendaChanged = [this] {
    if (songs)
      songs->AgendaChanged();
    if (slides)
      slides->AgendaChanged();
    if (shows)
      shows->AgendaChanged();
    if (videos)
      videos->AgendaChanged();
    if (conteudo)
      conteudo->AgendaChanged();
  };
  console->SetWindows(std::move(windows));
  console->PodeFechar = [this] {
    return editors->FechaTodos() && themeEditors->FechaTodos() && slides->FechaTodos() && shows->FechaTodos() &&
           bible->FechaBaixar();
  };
  console->AoFechar = [this] { startup->Unload(); };
  monitors.SetConsole(console.get());
  MakeDisplay();
  core.canal.CriaTelao = [this] { RemakeDisplay(); };
}

void Program::Impl::AbreSobre() {
  if (!sobre) {
    const EngineVersions versions = ReadEngineVersions();
    sobre = std::make_unique<FrmSobre>(
        MotorDoPrograma{QString::fromLatin1(qVersion()), versions.webEngine, versions.chromium, versions.mpv,
                        qgetenv("QT_QUICK_BACKEND") == "software" ? QObject::tr("by the processor")
                                                                  : QStringLiteral("OpenGL")},
        console.get());
    QObject::connect(sobre.get(), &QDialog::finished, sobre.get(),
                     [this] { positions.SaveFormPosition(*sobre, false); });
  }
  if (!sobre->isVisible())
    positions.RestoreFormPosition(*sobre, false);
  sobre->show();
  sobre->raise();
  sobre->activateWindow();
}

void Program::Impl::MakeBibleWindows() {
  bible = std::make_unique<BibleWindows>(
      BibleDoors{core.lojaBiblia, store, core.flow, positions, clock, console.get(),
                 [this] { return core.estado.TipoAtual == u"Bíblia" ? core.estado.ReferenciaAtual : QString(); }},
      BibleDownloadDoors{core.lojaBiblia, app, endpoints, web, prompt, positions, ImportadorDeBiblias::Programa(),
                         [this] { core.leitura.CarregaVersoes(); }, console.get()});
  core.flow.FechaAddBiblia = [this] { bible->CloseAdd(); };
  core.lojaBiblia.VersaoMudou = [this] { bible->VersionChanged(); };
}

SongEditorDoors Program::Impl::DoorsOfSongEditor() {
  const auto telao = [this]() -> Display * { return quendar.get(); };
  const auto sala = [this](const QString &texto, const AjustesTexto &ajustes) {
    return core.loader.Sala(texto, ajustes);
  };
  return {store,     prompt,      clock,        random, yielder, measure, core.flow,
          positions, core.estado, core.ajustes, telao,  sala,    profile, console.get()};
}

void Program::Impl::MakeSongEditors() {
  editors = std::make_unique<SongEditors>(DoorsOfSongEditor(),
                                          TextFormatDoors{[this] { return core.formato.Le(); },
                                                          [this](const TextFormat &format) {
                                                            const bool written = core.formato.Aplica(format);
                                                            themeEditors->MaiusculasMudaram(
                                                                core.estado.IndiceTema, core.formato.Le().maiusculas);
                                                            return written;
                                                          }});
  core.temaControle.RefazFormato = [this] { editors->RefazFormato(); };
  core.agenda.editorDeMusicas = {[this](const QString &path) { return editors->AbertoEmOutra(path); },
                                 [this](const QString &path) { return editors->Edita(path, songs.get()); }};
}

void Program::Impl::MakeThemeWindows() {
  themes = std::make_unique<ThemeWindows>(
      ThemeDoors{app, store, positions, prompt, console.get(),
                 [this](const QString &path) { core.controles.trocarFundoPadrao(path); },
                 [this](const QString &path, bool move) { return core.efeitos.ImagemDaGaleria(path, move); },
                 [this] { return core.estado.TemaAtual.MoveImagens; }, &paginas, &endpoints});
  core.controles.AbreGaleria = [this] { themes->AbreGaleriaDoFundo(); };
}

void Program::Impl::MakeThemeEditors() {
  const auto salvo = [this](int n) {
    console->RecarregaTile(n);
    core.temaControle.TemaSalvo();
  };
  const auto galeria = [this](int tema, QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmConfigTema"), tema, usa, dono});
  };
  themeEditors = std::make_unique<ThemeEditors>(ThemeEditorDoors{
      store, core.loja, core.temas, prompt, clock, random, yielder, measure, positions, ThemesPanel::TamanhoDoTile,
      [this]() -> Display * { return quendar.get(); }, galeria, salvo, profile, console.get()});
}

void Program::Impl::MakeSlideWindows() {
  const auto galeria = [this](int numero, QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmSlides"), numero, usa, dono});
  };
  slides = std::make_unique<SlideWindows>(
      SlideDoors{store, prompt, clock, random, core.flow, positions, core.estado, core.ajustes,
                 [this]() -> Display * { return quendar.get(); },
                 [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); }, galeria,
                 [this](const AbreImagens &pronto) { ImportaDocumento(pronto); }, profile, console.get()});
  core.agenda.editores[5] = [this](const QString &path) { return slides->Edita(path); };
}

void Program::Impl::ImportaDocumento(const AbreImagens &pronto) {
  if (!importar)
    importar = std::make_unique<FrmImportar>(
        ImportDoors{store, prompt, positions, &DocumentImport::ProgramasInstalados,
                    [this] {
                      const bool rehearsal = core.painel.Ensaio || core.painel.SemProjetor;
                      return quendar && !rehearsal ? quendar->SizePx() * quendar->devicePixelRatioF() : QSize();
                    },
                    [this] { return slides->EditorAberto(); }},
        console.get());
  importar->Pergunta(pronto);
}

void Program::Impl::MakeShowWindows() {
  const auto galeria = [this](QWidget *dono, const std::function<void(const QString &)> &usa) {
    themes->AbreGaleria({QStringLiteral("FrmSlideShow"), 0, usa, dono});
  };
  shows = std::make_unique<ShowWindows>(ShowDoors{app, prompt, core.flow, positions, core.show,
                                                  [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                                                  galeria, profile, console.get()});
  core.flow.controleDeShows = {[this](const QString &path) { shows->AbreControle(path); },
                               [this] { return shows->FechaControle(); }};
  core.agenda.editores[6] = [this](const QString &path) {
    shows->Edita(path);
    return true;
  };
}

void Program::Impl::MakeVideoWindows() {
  videos = std::make_unique<VideoWindows>(VideoDoors{
      store, prompt, clock, core.flow, positions, core.controleDeVideo,
      [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); }, [this] { return core.video.EmExibicao(); },
      [this] { core.flow.EncerraMidia(); }, console.get(), core.controleDaWeb,
      [this] { return core.videoDaWeb.EmExibicao(); }, [this] { return &paginas; }, profile});
  core.video.AbreControle = core.videoDaWeb.AbreControle = [this] { videos->AbreControle(false); };
  core.video.FechaControle = [this] { videos->FechaControle(); };
  core.videoDaWeb.FechaControle = [this] { videos->UnloadFrmYoutube(); };
  const auto aoTexto = [this] {
    console->activateWindow();
    console->FocusStrip();
  };
  cameras = std::make_unique<CameraWindow>(CameraDoors{clock, positions, core.cameras, aoTexto, console.get()});
  core.agenda.outroVideo = [this](const QString &atual) { return EscolheOutroVideo(store, prompt, atual); };
}

// What is read from the web besides pictures, videos and versions, which have their rooms' own windows.
void Program::Impl::MakeWebWindows() {
  letras = std::make_unique<LyricsWindow>(LyricsDoors{
      {app, endpoints, paginas, prompt, core.flow, [this](const QString &path) { return editors->EstaAberto(path); },
       [this](const QString &name) { songs->AtualizaLista(name); }},
      DoorsOfSongEditor()});
  atualizacao = std::make_unique<UpdateWindows>(
      UpdateDoors{endpoints, paginas, prompt, opener, positions, [this] { console->close(); }, console.get()});
  conteudo = std::make_unique<ContentWindow>(
      ContentDoors{app, web, core.flow, positions, [this] { return core.agenda.TabTitle(core.estado.ActiveAgenda); },
                   console.get()});
}

// The preview takes no commands, so it gets the page's call beside the projection.
void Program::Impl::MakeNoticeWindows() {
  const auto envia = [this](const QString &comando) {
    core.canal.SendToDisplay(comando);
    if (core.estado.TelaPronta)
      PassaComandoDeAviso(PageNamed(QStringLiteral("preview")), comando);
  };
  const auto mostra = [this](bool aberto) {
    core.painel.AvisoAberto = aberto;
    core.contexto.Atualiza();
  };
  const auto porQueNaoSeVe = [this] { return AvisoDeTelaCoberta(core.painel.SemProjetor, core.estado.EstadoTela); };
  notices = std::make_unique<NoticeWindows>(
      NoticeDoors{store, prompt, positions, envia, porQueNaoSeVe, mostra, console.get()});
}

void Program::Impl::MostraServidor() {
  const ServidorDeLegendas agora = servidor.TemCliente() ? ServidorDeLegendas::ComCliente
                                   : servidor.Ligado()   ? ServidorDeLegendas::SemCliente
                                                         : ServidorDeLegendas::Desligado;
  if (std::exchange(core.painel.Legendas, agora) != agora)
    core.contexto.Atualiza();
}

void Program::Impl::AbreLegendas() {
  if (!legendas)
    legendas = std::make_unique<FrmLegendas>(CaptionDoors{store, prompt, positions, core.legenda, servidor,
                                                          [this] { core.LegendasSalvas(); }, profile, console.get()});
  legendas->Open();
}

} // namespace tolmira
