#pragma once

#include <QStringList>

#include "display/display_seams.h"

namespace tolmira::testing {

// A player without media: it keeps what it was told, and a test sets the position and the duration itself.
class RecordingPlayer : public MediaPlayer {
public:
  explicit RecordingPlayer(QStringList *journal = nullptr) : m_journal(journal) {}

  void SetUrl(const QString &storedPathOrAddress) override {
    url = storedPathOrAddress;
    position = 0;
    state = PlayState::Playing;
    Note(u"URL " + url);
  }
  QString Url() const override { return url; }
  void Close() override {
    url.clear();
    state = PlayState::Undefined;
    Note(QStringLiteral("close"));
  }
  void ControlsPlay() override {
    state = PlayState::Playing;
    Note(QStringLiteral("play"));
  }
  void ControlsPause() override {
    state = PlayState::Paused;
    Note(QStringLiteral("pause"));
  }
  void ControlsStop() override {
    state = PlayState::Stopped;
    position = 0;
    Note(QStringLiteral("stop"));
  }
  double CurrentPosition() const override { return position; }
  void SetCurrentPosition(double seconds) override {
    position = seconds;
    Note(QStringLiteral("position %1").arg(seconds));
  }
  double MediaDuration() const override { return duration; }
  int Volume() const override { return volume; }
  void SetVolume(int value) override {
    volume = value;
    Note(QStringLiteral("volume %1").arg(value));
  }
  void SetLoop(bool value) override {
    loop = value;
    Note(QStringLiteral("loop %1").arg(value));
  }
  bool Loop() const override { return loop; }
  PlayState State() const override { return state; }
  bool Falhou() const override { return falhou; }
  bool SemImagem() const override { return semImagem; }
  bool ImagemIlegivel() const override { return imagemIlegivel; }
  QList<FaixaDeAudio> FaixasDeAudio() const override { return faixas; }
  int FaixaDeAudioAtual() const override { return faixa; }
  void DefineFaixaDeAudio(int id) override {
    faixa = id;
    Note(QStringLiteral("audio %1").arg(id));
  }
  void SetStretchToFit(bool value) override {
    stretch = value;
    Note(QStringLiteral("stretchToFit %1").arg(value));
  }
  void SetFullScreen(bool value) override {
    fullScreen = value;
    Note(QStringLiteral("fullScreen %1").arg(value));
  }
  void SetUiMode(const QString &value) override {
    uiMode = value;
    Note(u"uiMode " + value);
  }

  QString url;
  QString uiMode;
  double position = 0; // seconds
  double duration = 0; // seconds
  int volume = 50;
  bool loop = false;
  bool stretch = false;
  bool fullScreen = false;
  PlayState state = PlayState::Undefined;
  bool falhou = false;
  bool semImagem = false;
  bool imagemIlegivel = false;
  QList<FaixaDeAudio> faixas;
  int faixa = 0;

private:
  void Note(const QString &call) {
    if (m_journal)
      m_journal->append(u"wmp: " + call);
  }
  QStringList *m_journal;
};

} // namespace tolmira::testing
