#pragma once

#include "display/ui/projection_frame.h"
#include "slides/slide_document.h"
#include "slides/ui/slide_doors.h"

#include <QStringList>

namespace tolmira {

// One slide of a document in the projection's own page. The page is told what has changed since it was told last, and
// built anew only for another list of pictures.
class SlidePreview : public ProjectionFrame {
  Q_OBJECT

public:
  SlidePreview(const SlideDoors &doors, QWidget *parent);

  void Mostra(const SlideDocument &documento, int index); // at rest
  void Entrada(); // the text of the slide on show comes in with the document's effect
  void Saida();   // and goes with it; Mostra brings it back

protected:
  void Exibida() override;
  void Ajustada() override;
  void Recuperada() override;

private:
  void Navega();
  void Conta(); // tells the page what is new
  QString Html(const QString &efeito) const;
  bool Move() const; // the slow movement runs
  void MandaTexto(const QString &html);

  const AppFolder m_app;
  const IniStore &m_store;
  const EstadoConsole &m_estado;
  const AjustesTexto &m_ajustes;
  RandomSource &m_random;
  SlideDocument m_documento; // with a font that is installed
  int m_index = 0;

  // What the page was told last.
  struct Contado {
    bool montada = false;
    QStringList imagens;
    int index = 0;
    QString html;
    QString estilo;
    QString efeito; // family and variant of the picture effect
    bool move = false;
  };
  Contado m_contado;
};

} // namespace tolmira
