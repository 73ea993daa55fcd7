#pragma once

#include <QSize>
#include <QStringList>

#include "support/recording_page.h"
#include "support/recording_player.h"

namespace tolmira::testing {

// The projection as the rest of the program sees it, without a window: it keeps the commands and acts on none. With a
// journal, commands, layers and the calls on its page are lines in it.
class RecordingDisplay : public Display {
public:
  explicit RecordingDisplay(QStringList *journal = nullptr)
      : page(journal, QStringLiteral("display")), player(journal), m_journal(journal) {}

  void ProcessaComando(const QString &comando) override {
    commands.append(comando);
    Note(QStringLiteral("command ") + comando);
  }
  PageObject *WV() override { return hasPage ? &page : nullptr; }
  MediaPlayer *wmp() override { return &player; }
  void EscondeMidia() override { Note(QStringLiteral("player hidden")); }
  void PreparaVideo() override {
    player.volume = 50;
    Note(QStringLiteral("media reset"));
  }
  void MostraMidia() override { Note(QStringLiteral("player shown")); }
  void ParaRampa() override { Note(QStringLiteral("fade stopped")); }
  QSize SizePx() const override { return size; }
  bool DisplayVisivel() const override { return visivel; }
  void DefineTelaPreta(bool ligado) override {
    telaPreta = ligado;
    Note(ligado ? QStringLiteral("black on") : QStringLiteral("black off"));
  }
  void DefineFundoPadrao(const QString &caminho) override {
    fundoPadrao = caminho;
    Note(caminho.isEmpty() ? QStringLiteral("picture off") : QStringLiteral("picture on"));
  }

  // The commands since the last call.
  QStringList TakeCommands() { return std::exchange(commands, {}); }

  QStringList commands;
  RecordingPage page;
  RecordingPlayer player;
  bool hasPage = true;
  QSize size{1280, 720};
  bool visivel = true;
  bool telaPreta = false;
  QString fundoPadrao;

private:
  void Note(const QString &call) {
    if (m_journal)
      m_journal->append(call);
  }
  QStringList *m_journal;
};

} // namespace tolmira::testing
