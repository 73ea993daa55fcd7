#include "themes/ui/theme_windows.h"

#include "themes/FrmBrowseImages.h"
#include "themes/FrmImageNet.h"

namespace tolmira {

ThemeWindows::ThemeWindows(ThemeDoors doors) : m_doors(std::move(doors)) {}
ThemeWindows::~ThemeWindows() {
  delete m_imageNet;
  delete m_galeria;
}

void ThemeWindows::AbreGaleria(const PedidoDeImagem &pedido) {
  if (!m_galeria)
    m_galeria = new FrmBrowseImages(m_doors, [this](QWidget *dono) { AbreImageNet(dono); });
  m_galeria->Open(pedido);
}

void ThemeWindows::AbreGaleriaDoFundo() {
  AbreGaleria({QStringLiteral("FundoPadrao"), 0, m_doors.trocarFundoPadrao, nullptr});
}

void ThemeWindows::AbreGaleriaDoTelao() {
  AbreGaleria({QStringLiteral("FrmMonitor"), 0, {}, nullptr});
}

void ThemeWindows::AbreImageNet(QWidget *dono) {
  if (!m_doors.paginas || !m_doors.endpoints)
    return;
  if (!m_imageNet)
    m_imageNet = new FrmImageNet({m_doors.app, *m_doors.paginas, *m_doors.endpoints, m_doors.posicoes, m_doors.prompt,
                                  m_doors.dono, [this](const QString &nome) {
                                    if (m_galeria)
                                      m_galeria->Chegaram({nome});
                                  }});
  m_imageNet->Open(dono);
}

} // namespace tolmira
