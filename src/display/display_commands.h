#pragma once

#include "captions/estado_legenda.h"
#include "display/display_seams.h"
#include "display/estado.h"
#include "foundation/app_folder.h"
#include "foundation/seams.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace tolmira {

// The logic of the projection window: the verbs, the black screen, the default picture, the fade, the volume ramp and
// the page's fake addresses. Drives the layers; the window owns it.
class DisplayCommands {
public:
  DisplayCommands(EstadoConsole &estado, EstadoLegenda &legenda, const AppFolder &app, DisplayLayers &layers,
                  PreviewMirror *mirror, Clock &clock);

  void ProcessaComando(const QString &comando);
  bool DisplayVisivel() const { return m_displayVisivel; }
  void DefineTelaPreta(bool ligado);
  void DefineFundoPadrao(const QString &caminho);
  void PreparaVideo();
  void ParaRampa() { m_timerVolume->Stop(); }

  // Hooked to the page object of the display. LabelImagemName receives the text behind "http://image/?"; null while the
  // slide show control is closed.
  void AoNavegar(const QString &uri, bool &cancel);
  // A server sends a page on to another address; false refuses it, and the owner goes elsewhere. May be empty.
  void AoDesviar(const QString &uri, bool &cancel) { cancel = PodeDesviar && !PodeDesviar(uri); }
  std::function<bool(const QString &uri)> PodeDesviar;
  std::function<void(const QString &)> OnImageName;
  std::function<void(const QString &uri)> OnCamera; // what became of a camera on the page
  std::function<void(int ms)> OnShowEnding; // a slide show ends in so many milliseconds
  // Hooked to the page object too: it is about to leave for another page by the host's will.
  void PaginaVaiEmbora();
  static void AoPermissao(int kind, int &state); // of both pages: a camera, and nothing else

private:
  void ExecutaVerbo(const QString &comando);
  // Calls a page function with fields 1 to `quantos`; nothing happens when one of them is missing.
  void ChamaPagina(const QString &nome, QStringList &campos, int quantos);
  void ExibeAviso(const QStringList &campos);
  void CancelaAviso();
  void Navega(const QString &url);
  void NavegaPaginaVazia();
  void IniciaVideo(const QString &caminho);
  void MostraSoAPagina();
  void MostraJanela();
  void AtualizaLegenda(const QStringList &campos);
  void IniciaRampa(double fimEmMs);
  void TickVolume();

  EstadoConsole &m_estado;
  EstadoLegenda &m_legenda;
  const AppFolder m_app;
  DisplayLayers &m_layers;
  PreviewMirror *m_mirror;
  std::unique_ptr<PeriodicTimer> m_timerVolume;
  bool m_displayVisivel = false;
  bool m_paginaDaRede = false;  // the page on show was brought by a command and is not one of the program's
  bool m_avisoNaPagina = false; // one was sent to the page on show, and may still run
  int m_avisos = 0;             // sent or cancelled, so that a late answer about an older one does nothing
  std::shared_ptr<const bool> m_vivo = std::make_shared<bool>(true); // for the answers of pages that outlive this
};

} // namespace tolmira
