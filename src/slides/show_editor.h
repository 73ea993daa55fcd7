#pragma once

#include "foundation/seams.h"
#include "slides/show_document.h"

#include <QString>
#include <QStringList>

namespace tolmira {

// What a save is for.
enum class AcaoDoShow { Nenhuma, ExibirAgora, ApenasSalvar, SalvarESair, AdicionarNaAgenda };

// What the gallery's page asked for by wanting to leave for an address.
struct RespostaDaGaleria {
  enum Verbo { Outro, Lista, Indice };
  Verbo verbo = Outro;
  QStringList imagens; // in the order on the page
};

// What the window does after an answer of its gallery.
struct PassoDoEditor {
  QString gravado;    // the file that was written
  QString exibe;      // the file of the show that starts now
  QString adiciona;   // the file that goes to the agenda
  bool fecha = false; // the editor
};

// One slide show under change. It knows the pictures as they were laid out last; the order that counts is that on the
// gallery's page, so each save by a button waits for the page's answer.
class ShowEditor {
public:
  ShowEditor(const AppFolder &app, UserPrompt &prompt) : m_app(app), m_prompt(prompt) {}

  // A path without a file makes a new show. False, and nothing is changed, for a file that cannot be read whole.
  bool CarregarSlide(const QString &path);
  const QString &Path() const { return m_path; } // empty for a show that has no file under \SlideShow
  QString Titulo() const;

  // The boxes of the window. Texts as they are typed, the audio as the path that its box shows.
  QString TxtNome;
  qint16 Tempo = 5000;
  qint16 TempoIntevalo = 2000;
  qint16 TempoIntevaloSaida = 2000;
  QString audio;
  QString textoInicio;
  QString textoFim;

  const QStringList &Imagens() const { return m_imagens; }
  void Adiciona(const QStringList &paths); // behind the last picture
  bool Alterado() const;

  // A save button: true when the page is to be asked for its list. A refusal has been told.
  bool Pede(AcaoDoShow acao);
  PassoDoEditor Recebe(const RespostaDaGaleria &resposta);

  // Writes the show for that action. The path written; empty on refusal, which has been told.
  QString GravaSlideShow(AcaoDoShow acao);

private:
  SlideShowDocument Documento() const;
  QString CaminhoParaGravar(AcaoDoShow acao);
  void Diz(const QString &texto);

  const AppFolder m_app;
  UserPrompt &m_prompt;
  QString m_path;
  QStringList m_imagens;
  AcaoDoShow m_pendente = AcaoDoShow::Nenhuma;
  SlideShowDocument m_gravado; // as it was read or written last
};

} // namespace tolmira
