#pragma once

#include "display/display_seams.h"
#include "display/estado.h"
#include "foundation/seams.h"

#include <QString>
#include <functional>

namespace tolmira {

// What the control of a local video does to the one player, which the congregation sees and hears. Without a projection
// there is no player, and nothing happens.
class VideoControl {
public:
  VideoControl(EstadoConsole &estado, std::function<MediaPlayer *()> wmp, Yielder &yielder);

  void Carrega();    // the window opens
  void Descarrega(); // and closes; the video goes on

  enum Botao { Reinicia = 0, TocaOuPara = 1, VoltaEEspera = 2 };
  void Image3(Botao botao);
  bool MostraPausa() const; // the middle button shows the pause sign: a press pauses

  bool TemMidia() const;
  void VaiPara(double percentual); // nothing where there is no media
  void VaiAoFim();                 // so near to it that one that does not loop goes on for a moment
  void Anda(double seconds);       // forwards, or back; stays within the media

  int Volume() const;
  void DefineVolume(int volume);
  bool Loop() const;
  void DefineLoop(bool loop);
  QList<FaixaDeAudio> Faixas() const;
  int Faixa() const;
  void DefineFaixa(int id);

  struct Progresso {
    QString Titulo; // bare name of the file; empty while nothing is open
    QString Label1; // time gone by
    QString Label2; // in all; both empty while there is no media
    double percentual = 0;
    bool acabou = false;
    bool falhou = false;
    bool semImagem = false;
    bool imagemIlegivel = false;
  };
  Progresso Olha() const;

private:
  EstadoConsole &m_estado;
  std::function<MediaPlayer *()> m_wmp; // null while there is no projection
  Yielder &m_yielder;
};

} // namespace tolmira
