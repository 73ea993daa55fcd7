#pragma once

#include "themes/ui/theme_doors.h"

#include <QPointer>

namespace tolmira {

class FrmBrowseImages;

// The windows of the themes, each made when it is first wanted.
class ThemeWindows {
public:
  explicit ThemeWindows(ThemeDoors doors);
  ~ThemeWindows();

  // The gallery for a client that takes the picture itself: a theme or a slide.
  void AbreGaleria(const PedidoDeImagem &pedido);
  void AbreGaleriaDoFundo(); // "FundoPadrao"
  void AbreGaleriaDoTelao(); // "FrmMonitor"

private:
  ThemeDoors m_doors;
  QPointer<FrmBrowseImages> m_galeria; // goes with the window that it stands over
};

} // namespace tolmira
