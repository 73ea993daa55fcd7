#pragma once

#include "bible/bible_store.h"
#include "console/console_context.h"
#include "console/stepping.h"
#include "display/bible_composer.h"

#include <QString>
#include <optional>

namespace tolmira {

class ThemeControl;

// The neighbouring chapter of a reference: its first verse, or its last (verse 1000). Empty in front of chapter 1, and
// for a text that is no reference; whether the book has that chapter is the store's to say.
QString NextCapitulo(const QString &reference);
QString PreviousCapitulo(const QString &reference);

// Puts a Bible passage on the console and on the projection, and walks through verses and chapters.
class BibleLoader {
public:
  BibleLoader(ConsoleContext &console, BibleStore &loja, BibleComposer &biblia,
              VerseStepper &stepper, ThemeControl &temas);

  void CarregaVersoes(); // step 4 of the start, and after versions were fetched or removed
  void MostraVersao();   // the tips with the version's name

  // Loads a passage and sends it. False when the version in force has no such verse: what is on show stays then, and
  // the console says so.
  bool exibeTextoBiblico(const QString &reference, bool applyTheme, bool show);
  bool TemTexto(const QString &reference); // that it can be shown in the version in force
  // Puts a verse on the console; `show` prepares the page. Nothing is sent.
  void CarregaLeitura(const QString &reference, const QString &text, bool applyTheme, bool show);
  void CMDProximo_Click(int direction); // 0 the next verse, 1 the previous one
  // The verse on show at the size, style and font of now. With `send` the projection follows, without effect.
  void RecarregaVersiculo(bool send);

  // The version in force becomes item `index` of the menu (from 1), and the verse on show follows. False when it is
  // already, or there is none. A verse that the new version lacks stays on show as it is.
  bool TrocaVersao(int index);

  // Sends the projection's own verse again, without effect: its page was built anew.
  void ReenviaVersiculo(Alvo alvo = Alvo::Ambas);
  void PaginaVoltou(Alvo qual = Alvo::Ambas); // a page came back after its process died

private:
  struct Passo {
    QString referencia;
    QString texto;
    bool outroCapitulo = false;
  };
  // Walking on into the next chapter is no other item: the caption of the verse stays until the next one goes out.
  bool Exibe(const QString &reference, bool applyTheme, bool show, bool outroItem);
  std::optional<Passo> Vizinho(const QString &reference, bool frente);
  std::optional<Passo> NoCapitulo(QString &reference, bool frente);
  bool TemCapitulo(const QString &reference);
  QString Canonica(const QString &reference) const;
  int Tamanho(const QString &texto, const QString &referencia, const QString &versao) const;
  void EnviaVersiculo(bool comEfeito);
  bool NoTelao() const;
  bool Mostrando() const;

  ConsoleContext &m_console;
  BibleStore &m_loja;
  BibleComposer &m_biblia;
  VerseStepper &m_stepper;
  ThemeControl &m_temas;
  QString m_tamanhoDito; // the font size that the pages were told last
};

} // namespace tolmira
