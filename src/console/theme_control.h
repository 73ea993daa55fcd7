#pragma once

#include "console/console_context.h"
#include "themes/theme_store.h"

#include <QString>
#include <array>
#include <functional>

namespace tolmira {

// What the operator reads who wants another background while slides or a slide show cover it.
inline const QString NaoDuranteSlides = QStringLiteral("Not applicable during slideshow display.");
inline const QString NaoDuranteVideo = QStringLiteral("Not applicable while a video is on show.");

// The sixteen slots on the console: applying, queueing, drawing, and the rotation of pictures.
class ThemeControl {
public:
  ThemeControl(ConsoleContext &console, TabelaTemas &temas);

  // `forcar` is in and out: on return it says whether the page had to be rebuilt.
  void aplicaTema(int n, bool &forcar);
  // For a new item. True when the theme in force changed; the caller then rebuilds the page.
  bool TrocaTema(int slot);
  int SorteiaTema();
  void DefineTimerInterval();
  void ExibirImagem(const QString &path, bool fixed);
  // The theme in force becomes one of that kind, for this session, and its page is built.
  void DefineTipo(const QString &tipo);

  // A press on tile n: queues while a text or a local video is on show, applies at once on the active tile or when
  // nothing is on show. Behind a video, whose page stays, that shows when it has ended.
  void PressTile(int n);
  void MenuAplicar(int n);
  // A theme was saved: the one in force is applied again. Slides and videos, which cover its page, are not disturbed.
  void TemaSalvo();
  // The page of the theme in force as it is now, with what was placed by hand, and its rotation; without a text.
  void VoltaAoFundo();
  // The page of a theme that stands behind a sound is not that of the theme in force any more.
  bool FundoMudou() const { return m_fundoMudou; }
  void DefineFundoMudou(bool mudou) { m_fundoMudou = mudou; }
  void ClearQueue();
  void StopRotation();

  void SetChkIM(int n, bool ticked); // refuses to untick the last one
  bool ChkIM(int n) const { return m_chkIM[static_cast<size_t>(n)]; }
  void SetCheckAlteraTemaAleatorio(bool ticked);
  bool CheckAlteraTemaAleatorio() const { return m_altera; }
  void CarregaEscolhas(const Registro &registro); // check boxes at start
  void SalvaEscolhas(const Registro &registro) const;

  const TabelaTemas &Temas() const { return m_temas; }

  // Presents the text on show again with the new theme, without building the page; set by the owner.
  std::function<void()> ReapresentaTexto;
  // The same for a Bible verse, and what sends it again when the page has been built; set by their owner.
  std::function<void()> AjustaVersiculo;
  std::function<void()> ReenviaVersiculo;
  // Slides are on show: they are drawn again in place of a page of the theme; set by their owner.
  std::function<void()> RedesenhaSlides;
  std::function<void()> RefazFormato; // the text-format options show another theme; may be empty

private:
  void AplicaTemaAtual();
  void AplicaPorTras();
  void MontaPagina(int posicao);
  void TickTrocaImagem();

  ConsoleContext &m_console;
  TabelaTemas &m_temas;
  std::array<bool, NumeroDeTemas + 1> m_chkIM{};
  bool m_altera = true;
  bool m_fundoMudou = false;
  int m_imagem = 1; // position in the theme's list, from 1
  std::unique_ptr<PeriodicTimer> m_timerTrocaImagem;
  std::unique_ptr<PeriodicTimer> m_timerProximoTema;
};

} // namespace tolmira
