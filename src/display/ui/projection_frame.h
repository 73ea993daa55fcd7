#pragma once

#include "display/display_seams.h"
#include "display/ui/page_profile.h"

#include <QFrame>
#include <QSize>
#include <functional>

namespace tolmira {

class WebPageHost;

// The frame of a window's own page, in the projection's proportions. The engine is made when it is first shown.
class ProjectionFrame : public QFrame {
  Q_OBJECT

public:
  // The page follows the frame's breadth, or fits into whatever the frame is given, and stands in its middle then.
  enum class Altura { PelaLargura, Livre };
  // `nome` is the page's name for observers.
  ProjectionFrame(const QString &nome, Altura altura, std::function<Display *()> telao, const PageProfile &perfil,
                  QWidget *parent);

  WebPageHost *PicWV() const { return m_host; }
  QSize TamanhoDoTelao() const; // px; that of a usual one while there is none

protected:
  virtual void Ajustada() {}   // the page may have another size
  virtual void Exibida() {}    // shown, and there is an engine if there can be one
  virtual void Recuperada() {} // the page's process had died; the page is empty
  void resizeEvent(QResizeEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void Fit();

  const Altura m_altura;
  std::function<Display *()> m_telao;
  WebPageHost *m_host;
};

} // namespace tolmira
