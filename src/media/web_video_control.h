#pragma once

#include "display/display_seams.h"
#include "display/estado.h"

#include <QString>
#include <functional>
#include <memory>

namespace tolmira {

// What the control of a web video does to the page on the projection, and what that page says of its video. Scripts run
// with errors ignored: a page without a video does nothing.
class WebVideoControl {
public:
  WebVideoControl(EstadoConsole &estado, std::function<PageObject *()> telao); // null while there is no projection

  void Carrega();    // the window opens: the video counts as running
  void Descarrega(); // and closes; the video goes on

  void ImagePlay();
  void ImageRestart();
  void ImageStop();         // the owner ends the video
  bool MostraPausa() const; // the button shows the pause sign: a press pauses

  enum class Situacao { Abrindo, Tocando, Parado, Acabou, SemVideo, SemPagina, Desviado };
  void Comeca(const QString &titulo); // one came on show
  void Termina();
  void Desviou();              // the site would have shown something else, which was kept off the projection
  void Olha();                 // asks the page, whose answer comes later
  bool TelaPediuPausa() const; // the operator paused it

  Situacao Como() const { return m_situacao; }
  const QString &Titulo() const { return m_titulo; } // empty while none is on show
  const QString &Tempo() const { return m_tempo; }   // gone by and in all; empty while unknown
  QString Aviso() const;                             // what the operator is told of it; empty for nothing

private:
  void Respondeu(const QString &json);
  void Executa(const QString &script);

  EstadoConsole &m_estado;
  std::function<PageObject *()> m_telao;
  std::shared_ptr<int> m_pergunta; // that is not answered yet; answers to older ones do not count
  Situacao m_situacao = Situacao::Abrindo;
  QString m_titulo;
  QString m_tempo;
  int m_semVideo = 0; // answers in a row
};

} // namespace tolmira
