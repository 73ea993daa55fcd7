#pragma once

#include "display/ui/projection_frame.h"
#include "foundation/app_folder.h"

namespace tolmira {

// A caption over a picture, drawn by the page that the broadcast gets.
class CaptionPreview : public ProjectionFrame {
public:
  CaptionPreview(const AppFolder &app, const PageProfile &perfil, QWidget *parent);
  void Mostra(const QString &html);

protected:
  void Exibida() override;
  void Recuperada() override;

private:
  void Navega();
  void Diz();

  const QString m_pagina;
  QString m_html;
  bool m_navegou = false;
};

} // namespace tolmira
