#include "notices/notice_sender.h"

#include "foundation/text_fields.h"
#include "foundation/text_utils.h"

#include <QObject>

namespace tolmira {

namespace {

constexpr int MenosVezes = 1;
constexpr int MaisVezes = 20;
const QString Secao = QStringLiteral("Avisos");
const QString ChaveDoTexto = QStringLiteral("Aviso");
const QString Vermelho = QStringLiteral("192");
const QString Branco = QStringLiteral("16777215");
const QString Velocidade = QStringLiteral("10");

// With nothing stored a notice that is sent is higher than the settings begin with.
const QString PorcentoAoExibir = QStringLiteral("8");
const QString PorcentoNaConfiguracao = QStringLiteral("6");

} // namespace

QString LimitaVezes(const QString &vezes) {
  const double n = NumericPrefix(vezes);
  if (n < MenosVezes)
    return QString::number(MenosVezes);
  return n > MaisVezes ? QString::number(MaisVezes) : vezes;
}

AvisosNaTela::AvisosNaTela(const IniStore &store, std::function<void(const QString &)> envia)
    : m_store(store), m_envia(std::move(envia)) {}

QString AvisosNaTela::UltimoTexto() const {
  return Registro(m_store).ReadValue(ChaveDoTexto, QString());
}

QString AvisosNaTela::Vezes() const {
  return LimitaVezes(m_store.ReadConfig(Secao, QStringLiteral("AvisoVezes"), QStringLiteral("2")));
}

void AvisosNaTela::ExibeAviso(const QString &texto, const QString &vezes) {
  const QString passagens = LimitaVezes(vezes);
  m_store.WriteConfig(Secao, QStringLiteral("AvisoVezes"), passagens);
  const auto le = [this](const char *chave, const QString &padrao) {
    return m_store.ReadConfig(Secao, QLatin1String(chave), padrao);
  };
  const auto cor = [&le](const char *chave, const QString &padrao) {
    return ColorToHex(WholeNumber<qint32>(le(chave, padrao)));
  };
  // -1 is the top; the settings' window only ever writes 0.
  const bool noAlto = NumericPrefix(le("PosicaoAviso", QStringLiteral("0"))) + 1 == 0;
  const qint64 velocidade = qint64(WholeNumber<qint32>(le("VelocAviso", Velocidade))) + 1;
  if (texto.trimmed().isEmpty())
    CancelaAviso();
  else
    m_envia(QStringList{QStringLiteral("AVISO:"), texto, noAlto ? QStringLiteral("top") : QStringLiteral("bottom"),
                        passagens, le("PorcentoAviso", PorcentoAoExibir), QString::number(velocidade),
                        cor("FundoAvisoColor", Vermelho), cor("LetraAvisoColor", Branco), QString()}
                .join(QStringLiteral("|#")));
  Registro(m_store).WriteValue(ChaveDoTexto, texto);
}

void AvisosNaTela::CancelaAviso() {
  m_envia(QStringLiteral("CancelaAviso"));
}

QString AvisoDeTelaCoberta(bool semProjetor, const QString &estadoTela) {
  if (semProjetor)
    return QObject::tr("There is no projector: nobody sees a notice now.");
  if (estadoTela == u"TelaPreta")
    return QObject::tr("The screen is black: nobody sees a notice now (F5 brings the picture back).");
  if (estadoTela == u"PadraoDeFundo")
    return QObject::tr("The background picture lies over notices: nobody sees one now (F5 takes it away).");
  if (estadoTela == u"Hide")
    return QObject::tr("The projection is off: nobody sees a notice now (F5 brings it back).");
  return {};
}

VisualDoAviso LeVisualDoAviso(const IniStore &store) {
  const auto le = [&store](const char *chave, const QString &padrao) {
    return WholeNumber<qint32>(store.ReadConfig(Secao, QLatin1String(chave), padrao));
  };
  return {le("FundoAvisoColor", Vermelho), le("LetraAvisoColor", Branco), le("PorcentoAviso", PorcentoNaConfiguracao),
          le("VelocAviso", Velocidade)};
}

bool GravaVisualDoAviso(const IniStore &store, const VisualDoAviso &visual) {
  bool todas = true;
  const auto grava = [&](const char *chave, qint32 valor) {
    todas = store.WriteConfig(Secao, QLatin1String(chave), QString::number(valor)) && todas;
  };
  grava("FundoAvisoColor", visual.FundoAvisoColor);
  grava("LetraAvisoColor", visual.LetraAvisoColor);
  grava("PorcentoAviso", visual.PorcentoAviso);
  grava("VelocAviso", visual.VelocAviso);
  grava("PosicaoAviso", 0);
  return todas;
}

} // namespace tolmira
