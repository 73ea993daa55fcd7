#include "console/screen_controls.h"

#include "foundation/text_file.h"

#include <algorithm>

namespace tolmira {

namespace {

const QString Config = QStringLiteral("Config");
const QString ChaveDoFundo = QStringLiteral("padraodefundo");

struct EstadoDaTela {
  QString legenda;
  QString dica;
};

const EstadoDaTela &Estado(int index) {
  static const EstadoDaTela estados[] = {
      {QStringLiteral("Normal"), QStringLiteral("Modo padrão de projeção")},
      {QStringLiteral("Text Hidden"), QStringLiteral("Projetar apenas fundo, sem texto")},
      {QStringLiteral("Black Screen"), QStringLiteral("Projetar apenas tela preta")},
      {QStringLiteral("Background "), QString()},
      {QStringLiteral("No Projection"), QStringLiteral("Não projetar")},
  };
  return estados[std::clamp(index, 0, 4)];
}

} // namespace

QString ScreenControls::LegendaDoEstado(int index) {
  return Estado(index).legenda;
}
QString ScreenControls::DicaDoEstado(int index) {
  return Estado(index).dica;
}

QString ScreenControls::FundoPadrao() const {
  const QString nome = m_console.store.ReadConfig(Config, ChaveDoFundo, QString());
  const QString fundo = m_console.app.At(u"\\Images\\") + nome;
  return !nome.isEmpty() && FileExists(fundo) ? fundo : QString();
}

void ScreenControls::SetScreenState(int index) {
  if (index < 0 || index > 4)
    return;
  EstadoConsole &estado = m_console.estado;
  DisplayChannel &canal = m_console.canal;

  // Found out before anything moves: without a picture the state stays as it is, and so does what the congregation
  // sees. The state is not taken behind the chooser either. It may have stood open for minutes, and what goes out then
  // shall follow a press on a state and not the end of a dialogue.
  const QString fundo = index == 3 ? FundoPadrao() : QString();
  if (index == 3 && fundo.isEmpty()) {
    Image11();
    m_console.Atualiza();
    return;
  }

  if (index != 1 && estado.EstadoTela == u"OcultarTexto") {
    CobreTexto(index, fundo);
    m_console.SetPageStyle(QStringLiteral("texto"), QStringLiteral("display"), QStringLiteral("block"));
  }
  m_console.painel.LBTelaMarcado = index;
  m_console.yielder.Yield(1);

  Display *display = m_console.telao();
  if (display && index != 2)
    display->DefineTelaPreta(false);
  if (display && index != 3)
    display->DefineFundoPadrao(QString());

  switch (index) {
  case 0:
    estado.EstadoTela = QStringLiteral("Normal");
    canal.SendToDisplay(QStringLiteral("Normal"));
    break;
  case 1:
    estado.EstadoTela = QStringLiteral("OcultarTexto");
    m_console.SetPageStyle(QStringLiteral("texto"), QStringLiteral("display"), QStringLiteral("none"));
    canal.SendToDisplay(QStringLiteral("OcultarTexto"));
    break;
  case 2:
    estado.EstadoTela = QStringLiteral("TelaPreta");
    if (display)
      display->DefineTelaPreta(true);
    canal.SendToDisplay(QStringLiteral("TelaPreta|#true"));
    break;
  case 3:
    estado.EstadoTela = QStringLiteral("PadraoDeFundo");
    if (display)
      display->DefineFundoPadrao(fundo);
    canal.SendToDisplay(QStringLiteral("PadraDeFundo|#") + fundo);
    break;
  default:
    estado.EstadoTela = QStringLiteral("Hide");
    canal.SendToDisplay(QStringLiteral("Hide")); // hides the window
    break;
  }
  m_console.Atualiza();
}

// From hidden text to something that covers the page: the text comes back beneath, so the cover has to lie there before
// it does, or the text would flash up on the way.
void ScreenControls::CobreTexto(int index, const QString &fundo) {
  Display *display = m_console.telao();
  if (!display || index == 0)
    return;
  if (index == 3)
    display->DefineFundoPadrao(fundo);
  else
    display->DefineTelaPreta(true);
}

void ScreenControls::Image11() {
  if (AbreGaleria)
    AbreGaleria();
}

void ScreenControls::trocarFundoPadrao(const QString &path) {
  if (path.isEmpty() || !FileExists(path))
    return;
  QString nome = path;
  nome = nome.replace(u'\\', u'/').section(u'/', -1);
  m_console.store.WriteConfig(Config, ChaveDoFundo, nome);
  if (m_console.estado.EstadoTela != u"PadraoDeFundo")
    return;
  m_console.estado.EstadoTela.clear();
  SetScreenState(3);
}

} // namespace tolmira
