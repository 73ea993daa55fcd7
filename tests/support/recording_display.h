#pragma once

#include <QSize>
#include <QStringList>

#include "support/recording_page.h"
#include "support/recording_player.h"

namespace tolmira::testing {

// The projection as the rest of the program sees it, without a window: it keeps the commands and acts on none.
class RecordingDisplay : public Display {
public:
  void ProcessaComando(const QString &comando) override { commands.append(comando); }
  PageObject *WV() override { return hasPage ? &page : nullptr; }
  MediaPlayer *wmp() override { return &player; }
  QSize SizePx() const override { return size; }
  bool DisplayVisivel() const override { return visivel; }
  void DefineTelaPreta(bool ligado) override { telaPreta = ligado; }
  void DefineFundoPadrao(const QString &caminho) override { fundoPadrao = caminho; }

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
};

} // namespace tolmira::testing
