#pragma once

#include "themes/ui/theme_doors.h"

#include <QPointer>

namespace tolmira {

class FrmBrowseImages;
class FrmImageNet;

// The windows of the themes, each made when it is first wanted.
class ThemeWindows {
public:
  explicit ThemeWindows(ThemeDoors doors);
  ~ThemeWindows();

  // The gallery for a client that takes the picture itself: a theme or a slide.
  void AbreGaleria(const PedidoDeImagem &pedido);
  void AbreGaleriaDoFundo(); // "FundoPadrao"
  void AbreGaleriaDoTelao(); // "FrmMonitor"
  // The search for pictures on the web, modal over `dono`; by itself over the console when that is null.
  void AbreImageNet(QWidget *dono = nullptr);

private:
  ThemeDoors m_doors;
  // Each goes with the window that it stands over.
  QPointer<FrmBrowseImages> m_galeria;
  QPointer<FrmImageNet> m_imageNet;
};

} // namespace tolmira
