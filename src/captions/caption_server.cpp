#include "captions/caption_server.h"

#include "captions/caption_settings.h"
#include "foundation/code_page.h"
#include "foundation/text_file.h"

#include <QLoggingCategory>

namespace tolmira {

namespace {

Q_LOGGING_CATEGORY(logCaption, "tolmira.caption", QtWarningMsg)

constexpr int IntervaloDoVigia = 1000;         // ms
constexpr qint64 MaximoSemPedido = 256 * 1024; // bytes: who sends more without asking for anything is no browser
constexpr qint64 ClienteRecente = 3000;        // ms

const QString PedidoDaPagina = QStringLiteral("Load");
const QString PedidoDaLegenda = QStringLiteral("Update");

} // namespace

CaptionServer::CaptionServer(EstadoLegenda &legenda, const IniStore &store, Winsock &winsock1, Clock &clock,
                             std::function<TabelaDeEnderecos()> enderecos)
    : m_legenda(legenda), m_store(store), m_winsock1(winsock1), m_clock(clock), m_enderecos(std::move(enderecos)),
      m_timerLegenda(clock.NewTimer([this] { TimerLegenda(); })) {
  m_winsock1.ConnectionRequest = [this](int requestID) {
    if (m_winsock1.State() != Winsock::Fechado)
      m_winsock1.Close();
    m_semPedido = 0;
    m_winsock1.Accept(requestID);
  };
  m_winsock1.DataArrival = [this](qint64) { Chegou(); };
}

CaptionServer::~CaptionServer() {
  m_winsock1.ConnectionRequest = nullptr;
  m_winsock1.DataArrival = nullptr;
}

void CaptionServer::Inicia() {
  if (m_legenda.StartOnLoad && m_legenda.Porta >= 1)
    StartServer();
  m_timerLegenda->Start(IntervaloDoVigia);
  Avisa();
}

QString CaptionServer::StartServer() {
  CarregaLegendas(m_store, m_legenda);
  m_winsock1.Close();
  m_winsock1.SetLocalPort(m_legenda.Porta);
  m_winsock1.Listen();
  QString erro;
  const QString ip = ObtemIpLocal(m_enderecos(), erro);
  if (!erro.isEmpty()) {
    qCWarning(logCaption).noquote() << erro;
    return erro;
  }
  m_legenda.Ip = ip;
  m_legenda.Url = u"http://" + ip + u':' + QString::number(m_legenda.Porta) + u"/captions";
  return {};
}

void CaptionServer::Encerra() {
  m_timerLegenda->Stop();
  m_winsock1.Close();
}

bool CaptionServer::Liga(const QString &porta, QString &erro) {
  const quint16 numero = PortaDoTexto(porta);
  if (numero == 0)
    return false;
  m_legenda.Porta = numero;
  const bool gravada = GravaPorta(m_store, numero);
  m_legenda.Parado = false;
  erro = StartServer();
  if (!gravada) // and so the one that the settings have is in force
    erro = QStringLiteral("The settings could not be saved.");
  Avisa();
  return true;
}

void CaptionServer::Desliga() {
  m_winsock1.Close();
  m_legenda.Parado = true;
  m_ultimaVez.reset();
  Avisa();
}

bool CaptionServer::Ligado() const {
  const int estado = m_winsock1.State();
  return estado == Winsock::Ouvindo || estado == Winsock::Conectado;
}

bool CaptionServer::EmServico() const {
  return Ligado() || m_winsock1.State() == Winsock::Fechando;
}

bool CaptionServer::TemCliente() const {
  return m_winsock1.State() == Winsock::Conectado || (m_ultimaVez && m_clock.NowMs() - *m_ultimaVez < ClienteRecente);
}

void CaptionServer::TimerLegenda() {
  const int estado = m_winsock1.State();
  if (estado == Winsock::Fechando)
    StartServer();
  else if (m_legenda.Porta >= 1 && estado == Winsock::Fechado && !m_legenda.Parado && m_legenda.StartOnLoad)
    StartServer();
  else if (estado == Winsock::Conectado && m_legenda.UltimoPedido == PedidoDaPagina)
    StartServer();
  Avisa();
}

void CaptionServer::Chegou() {
  const QByteArray pedido = m_winsock1.GetData();
  m_semPedido += pedido.size();
  Responde(pedido);
  if (m_semPedido > MaximoSemPedido) {
    qCDebug(logCaption) << "a client that asks for nothing is dropped";
    m_winsock1.Close();
    m_winsock1.Listen();
  }
}

// No request line is taken apart and no end of headers waited for: what the piece holds, anywhere, decides.
void CaptionServer::Responde(const QByteArray &pedido) {
  qCDebug(logCaption) << "request" << pedido.left(80);
  if (pedido.contains("GET /getlegenda"))
    Update();
  else if (pedido.contains("GET /captions") || pedido.contains("GET /legenda"))
    Load();
  else
    m_winsock1.SendData("HTTP/1.1 404 Not Found\r\n\r\n");
}

void CaptionServer::Load() {
  m_legenda.UltimoPedido = PedidoDaPagina;
  m_ultimaVez = m_clock.NowMs();
  m_semPedido = 0;
  m_winsock1.SendData("HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=iso-8859-1\r\n\r\n" + Pagina());
}

// Browsers read iso-8859-1 as windows-1252. What that lacks is a numeric character reference, which the length counts
// as it is sent.
void CaptionServer::Update() {
  m_legenda.UltimoPedido = PedidoDaLegenda;
  m_ultimaVez = m_clock.NowMs();
  m_semPedido = 0;
  QByteArray texto = EncodePage(m_legenda.TextoLegenda);
  const QByteArray cabecalho = "HTTP/1.1 200 OK\r\nContent-Type: text/plain; charset=iso-8859-1\r\nContent-Length: " +
                               QByteArray::number(texto.size()) + "\r\n\r\n";
  // Taken out behind the count: a caption with quotation marks announces more than it sends, and pages know it.
  m_winsock1.SendData(cabecalho + texto.replace('"', QByteArray()));
}

// Read each time; a missing one gives the headers and nothing more.
QByteArray CaptionServer::Pagina() const {
  QString pagina = ReadWholeFile(m_store.App().path() + u"/html/legenda.html");
  pagina.replace(QStringLiteral("[caminho]"), u"http://" + m_legenda.Ip + u':' + QString::number(m_legenda.Porta));
  pagina.replace(QStringLiteral("[apppath]"), m_store.App().path());
  return EncodePage(pagina);
}

void CaptionServer::Avisa() const {
  if (Mudou)
    Mudou();
}

} // namespace tolmira
