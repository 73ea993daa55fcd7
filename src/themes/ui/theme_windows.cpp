#include "themes/ui/theme_windows.h"

#include "themes/FrmBrowseImages.h"

namespace tolmira {

ThemeWindows::ThemeWindows(ThemeDoors doors) : m_doors(std::move(doors)) {}
ThemeWindows::~ThemeWindows() {
  delete m_galeria;
}

void ThemeWindows::AbreGaleria(const PedidoDeImagem &pedido) {
  if (!m_galeria)
    m_galeria = new FrmBrowseImages(m_doors);
  m_galeria->Open(pedido);
}

void ThemeWindows::AbreGaleriaDoFundo() {
  AbreGaleria({QStringLiteral("FundoPadrao"), 0, m_doors.trocarFundoPadrao, nullptr});
}

void ThemeWindows::AbreGaleriaDoTelao() {
  AbreGaleria({QStringLiteral("FrmMonitor"), 0, {}, nullptr});
}

} // namespace tolmira
