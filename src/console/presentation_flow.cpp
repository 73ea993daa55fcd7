#include "console/presentation_flow.h"

#include "display/text_style.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "media/video_files.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

bool IsHymn(const AppFolder &app, const QString &title) {
  return FileExists(app.At(u"\\Harpa\\") + title + u".txt") || FileExists(app.At(u"\\Cantor\\") + title + u".txt");
}

} // namespace

PresentationFlow::PresentationFlow(ConsoleContext &console, AgendaDesk &agenda, SongLoader &loader,
                                   BibleLoader &leitura, ControlSlides &slides, ThemeControl &temas, VideoRunner &video,
                                   WebVideoRunner &videoDaWeb)
    : m_console(console), m_agenda(agenda), m_loader(loader), m_leitura(leitura), m_slides(slides), m_temas(temas),
      m_video(video), m_videoDaWeb(videoDaWeb) {}

void PresentationFlow::ShowEntry(int kind, int index, const QString &caption, const QString &name) {
  Q_UNUSED(index);
  if (FechaAddBiblia)
    FechaAddBiblia();
  Mostra(kind, caption, name);
}

void PresentationFlow::Mostra(int kind, const QString &caption, const QString &name) {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;

  if (!name.isEmpty() && Recusa(kind, caption, name))
    return;
  FechaSlideShow(kind);
  const bool haviaVideo = m_video.EmExibicao() || m_videoDaWeb.EmExibicao();
  // Without another item the empty page would stay, black.
  if (name.isEmpty())
    EncerraMidia();
  else
    cancelaWMP();

  if (!name.isEmpty()) {
    if (!Carrega(kind, caption, name)) {
      if (haviaVideo)
        m_video.VoltaAoTema();
      return;
    }
    painel.SliderExBibliaVisible = kind == 1;
    painel.SliderExLouvorVisible = kind != 1 && (kind < 4 || kind > 6);
    painel.LbFaixaVisible = kind == 2;
    painel.CommandBtEnabled = kind != 5;
    painel.DefineAlinhamentoVertical(LeAlinhamentoVertical(m_console.store));
  }
  painel.ComboFontSizeVisible = estado.EhLetra() && m_console.ajustes.AlinhamentoVertical == u"center";
  m_console.Atualiza();
  if (m_console.view)
    m_console.view->FocusStrip();
}

bool PresentationFlow::Recusa(int kind, const QString &caption, const QString &name) {
  if (kind >= 4 && kind <= 6) {
    const QString falta = FaltaArquivo(kind, name);
    if (!falta.isEmpty())
      m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), falta);
    return !falta.isEmpty();
  }
  if (TemTexto(kind, name))
    return false;
  LeTexto(kind, caption, name, false); // which tells it and changes nothing
  return true;
}

bool PresentationFlow::TemTexto(int kind, const QString &name) {
  return kind == 1 ? m_leitura.TemTexto(name) : !ResolveSongPath(m_console.app, name + u".txt").isEmpty();
}

bool PresentationFlow::LeTexto(int kind, const QString &caption, const QString &name, bool applyTheme) {
  return kind == 1 ? m_leitura.exibeTextoBiblico(name, applyTheme, true)
                   : m_loader.ListMusicasDuploClique(caption, name + u".txt", applyTheme, true);
}

QString PresentationFlow::FaltaArquivo(int kind, const QString &name) const {
  if (kind == 4 && m_videoDaWeb.Conhece(name))
    return {};
  const QString slides = kind == 5 ? m_slides.Resolve(name) : QString();
  if (kind == 5 ? slides.isEmpty() : !FileExists(name))
    return QStringLiteral("File not found!");
  if (kind == 5 && !m_slides.TemSlides(slides))
    return QStringLiteral("There is no slide.");
  return {};
}

bool PresentationFlow::Carrega(int kind, const QString &caption, const QString &name) {
  if (kind == 6)
    return CarregaShow(name);
  if (kind == 4)
    return CarregaVideo(caption, name);
  if (kind != 5)
    return CarregaTexto(kind, caption, name);
  return m_slides.LoadmSlide(m_slides.Resolve(name), 1, caption);
}

bool PresentationFlow::CarregaShow(const QString &path) {
  if (!controleDeShows.abre)
    return false;
  controleDeShows.abre(path);
  return true;
}

bool PresentationFlow::CarregaVideo(const QString &caption, const QString &path) {
  if (m_slides.Visible() && !m_console.estado.FundoPreso) // behind them the theme in force is as it is stored
    m_temas.TrocaTema(m_console.estado.IndiceTema);
  m_slides.Fecha();
  if (FileExists(path))
    m_video.Inicia(path, caption);
  else
    m_videoDaWeb.Inicia(path, caption);
  return true;
}

bool PresentationFlow::CarregaTexto(int kind, const QString &caption, const QString &name) {
  EstadoConsole &estado = m_console.estado;
  // Slides have a look of their own. Behind them the theme in force comes back as it is stored, unless a picture was
  // placed by hand; the loader builds its page, since the one of the slides takes no verses.
  const bool depoisDeSlides = m_slides.Visible();
  if (depoisDeSlides && !estado.FundoPreso)
    m_temas.TrocaTema(estado.IndiceTema);
  const bool applyTheme =
      !depoisDeSlides && (m_temas.CheckAlteraTemaAleatorio() || estado.ProximoTema != SemTemaNaFila);
  const bool shown = LeTexto(kind, caption, name, applyTheme);
  if (depoisDeSlides && shown)
    m_slides.Fecha();
  return shown;
}

void PresentationFlow::FechaSlideShow(int kind) {
  // Another item comes, so slides that lay beneath the show do not come back, unless they lie beneath the next one.
  if (kind != 6 && !m_console.estado.SlideShowAtivo.isEmpty())
    m_slides.Fecha();
  if (!controleDeShows.fecha || !controleDeShows.fecha())
    return;
  m_console.painel.PicAviso2 = false;
  m_console.yielder.Yield(1);
}

void PresentationFlow::PorNaLista(const QString &label, int kind, const QString &target, QString &message) {
  m_agenda.PorNaLista(label, kind, target, message);
}

void PresentationFlow::exibirAgora(const QString &name) {
  if (m_agenda.Lista().SelectByName(name))
    exibirSelecinado();
  if (m_console.view)
    m_console.view->AgendaChanged();
}

void PresentationFlow::exibirSelecinado() {
  const ListTarefas &lista = m_agenda.Lista();
  if (lista.HasSelection())
    ShowEntry(lista.SelectedKind(), lista.SelectedIndex(), lista.SelectedName(), lista.SelectedCaption());
}

void PresentationFlow::exibirPassagem(const QString &reference) {
  m_console.painel.PicAviso2 = false;
  m_console.Atualiza();
  m_console.yielder.Yield(1);
  Mostra(1, reference, reference);
}

// The steps that end what runs let the loop run, so what cannot be shown has to be known before.
void PresentationFlow::exibirVideoDaWeb(const QString &titulo, const QString &link) {
  constexpr int DepoisDeParar = 2;
  if (Recusa(TipoVideoDaAgenda, titulo, link))
    return;
  if (m_console.estado.VideoAtivo == u"True") {
    m_video.Para();
    m_console.yielder.Yield(DepoisDeParar);
  }
  if (m_console.estado.SlideShowAtivo == u"True") {
    FechaSlideShow(TipoVideoDaAgenda);
    m_console.yielder.Yield(DepoisDeParar);
  }
  Mostra(TipoVideoDaAgenda, titulo, link);
  if (MostraTelao)
    MostraTelao();
}

void PresentationFlow::cancelaWMP() {
  m_video.Para();
  m_videoDaWeb.Para();
}

void PresentationFlow::EncerraMidia() {
  m_video.Encerra();
  m_videoDaWeb.Encerra();
}

void PresentationFlow::editarSelecionado() {
  m_agenda.EditSelected();
}
void PresentationFlow::removerSelecionadodaLista() {
  m_agenda.RemoveSelected();
}

void PresentationFlow::RemoveFromAgendas(int kind, const QString &name) {
  m_agenda.RemoveFromAgendas(kind, name);
}

void PresentationFlow::RenameInAgendas(const QString &oldName, const QString &newName, int kind) {
  m_agenda.RenameInAgendas(oldName, newName, kind);
}

void PresentationFlow::ProcessaEditar(const QString &oldName, const QString &newName) {
  EstadoConsole &estado = m_console.estado;
  const QString oldTitle = BaseNameBefore(oldName, QStringLiteral("."));
  const QString newTitle = BaseNameBefore(newName, QStringLiteral("."));
  if (oldTitle != newTitle) {
    m_agenda.RenameInAgendas(oldTitle, newTitle, 2);
    if (IsHymn(m_console.app, newTitle))
      m_agenda.RenameInAgendas(oldTitle, newTitle, 3);
    m_agenda.RenameOnScreen(2, oldTitle, newTitle, newTitle);
    m_agenda.RenameOnScreen(3, oldTitle, newTitle, newTitle);
  }
  // The song on show may also be one that another was saved over.
  const QString onShow = estado.TituloAtual.toLower();
  if (!estado.EhLetra() || (onShow != oldTitle.toLower() && onShow != newTitle.toLower()))
    return;
  const QString inItsFolder = estado.ArquivoAtual.chopped(FileNameOf(estado.ArquivoAtual).size()) + newTitle + u".txt";
  const QString path = FileExists(inItsFolder) ? inItsFolder : ResolveSongPath(m_console.app, newTitle + u".txt");
  if (!path.isEmpty())
    estado.ArquivoAtual = path;
  if (onShow == oldTitle.toLower() && oldTitle != newTitle) // by which the agenda knows the entry on show
    m_console.painel.Label9 = newTitle;
  m_loader.RecarregaMusica(true);
}

void PresentationFlow::ProcessaEditarSlide(const QString &oldName, const QString &newName) {
  const QString oldTitle = BaseNameBefore(oldName, QStringLiteral("."));
  if (oldName != newName) {
    m_agenda.RenameInAgendas(oldTitle, newName, 5);
    m_agenda.RenameOnScreen(5, oldTitle, BaseNameBefore(newName, QStringLiteral(".")), newName);
  }
  m_slides.DocumentoMudou(oldName, newName);
}

} // namespace tolmira
