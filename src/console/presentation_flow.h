#pragma once

#include "console/agenda_desk.h"
#include "console/bible_loader.h"
#include "console/console_context.h"
#include "console/control_slides.h"
#include "console/presentation.h"
#include "console/song_loader.h"
#include "console/theme_control.h"
#include "console/video_runner.h"
#include "console/web_video_runner.h"

#include <functional>

namespace tolmira {

// The show event with its dispatch by kind.
class PresentationFlow : public Presentation {
public:
  PresentationFlow(ConsoleContext &console, AgendaDesk &agenda, SongLoader &loader, BibleLoader &leitura,
                   ControlSlides &slides, ThemeControl &temas, VideoRunner &video, WebVideoRunner &videoDaWeb);

  void ShowEntry(int kind, int index, const QString &caption, const QString &name) override;
  void PorNaLista(const QString &label, int kind, const QString &target, QString &message) override;
  void exibirAgora(const QString &name) override;
  void exibirSelecinado() override;
  void exibirPassagem(const QString &reference) override;
  void exibirVideoDaWeb(const QString &titulo, const QString &link) override;
  void cancelaWMP() override;
  void editarSelecionado() override;
  void removerSelecionadodaLista() override;
  void RemoveFromAgendas(int kind, const QString &name) override;
  void RenameInAgendas(const QString &oldName, const QString &newName, int kind) override;
  void ProcessaEditar(const QString &oldName, const QString &newName) override;
  void ProcessaEditarSlide(const QString &oldName, const QString &newName) override;

  void EncerraMidia(); // the operator stops the video on show, and the theme comes back

  // The projection is to be seen, whatever the state of its window; may be empty.
  std::function<void()> MostraTelao;
  std::function<void()> FechaAddBiblia; // closes the Bible's add dialog; empty while there is none

  // The remote of slide shows; both empty while there is none.
  struct ControleDeShows {
    std::function<void(const QString &path)> abre; // opens it, which starts the show
    std::function<bool()> fecha;                   // false when none was open
  };
  ControleDeShows controleDeShows;

private:
  void FechaSlideShow(int kind);
  // What cannot be shown is told, and what is on show stays, with what runs over it. False when it can be shown.
  bool Recusa(int kind, const QString &caption, const QString &name);
  QString FaltaArquivo(int kind, const QString &name) const; // as it is told; empty where nothing is missing
  bool TemTexto(int kind, const QString &name);
  bool LeTexto(int kind, const QString &caption, const QString &name, bool applyTheme);
  void Mostra(int kind, const QString &caption, const QString &name);
  bool Carrega(int kind, const QString &caption, const QString &name);
  bool CarregaShow(const QString &path);
  bool CarregaVideo(const QString &caption, const QString &path);
  bool CarregaTexto(int kind, const QString &caption, const QString &name);

  ConsoleContext &m_console;
  AgendaDesk &m_agenda;
  SongLoader &m_loader;
  BibleLoader &m_leitura;
  ControlSlides &m_slides;
  ThemeControl &m_temas;
  VideoRunner &m_video;
  WebVideoRunner &m_videoDaWeb;
};

} // namespace tolmira
