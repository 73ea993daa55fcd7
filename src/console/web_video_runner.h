#pragma once

#include "console/console_context.h"
#include "media/video_site.h"
#include "media/web_video_control.h"

#include <QString>
#include <functional>
#include <memory>

namespace tolmira {

class ThemeControl;
class VerseStepper;
class VideoRunner;

// A video of the web on the projection: its embed page stands in the place of a page of ours, with nothing above it but
// notices. What is put on show next ends it.
class WebVideoRunner {
public:
  WebVideoRunner(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas, VideoRunner &local,
                 WebVideoControl &controle);

  // The control of web videos; both may be empty.
  std::function<void()> AbreControle;
  std::function<void()> FechaControle;

  bool Conhece(const QString &link) const;                  // it names a page of the site, which can be shown
  void Inicia(const QString &link, const QString &caption); // of such a link
  // The projection is left on the empty page, the control closed. False when no web video was on show.
  bool Para();
  void Encerra(); // the same, and the theme comes back
  bool EmExibicao() const { return m_emExibicao; }

  // The site's server sends the page on to that address. False when that is nothing for the projection; Desviou is to
  // be called then, not from within the page's event.
  bool PodeDesviar(const QUrl &url) const;
  void Desviou();
  void TelaoRefeito();          // the projection has a new page host
  void PaginaVoltou(Alvo qual); // its process had died; the page begins anew

private:
  void rodaYoutube(const QString &url);
  void NavegaVazia(Alvo qual);
  void Tick();
  void SaiuDoTelao();
  PainelVideo Descreve() const;

  ConsoleContext &m_console;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  VideoRunner &m_local;
  WebVideoControl &m_controle;
  VideoSite m_site;
  QString m_url; // of the projection, without what makes it play at once
  bool m_emExibicao = false;
  std::unique_ptr<PeriodicTimer> m_timer;
};

} // namespace tolmira
