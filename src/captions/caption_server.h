#pragma once

#include "captions/estado_legenda.h"
#include "captions/local_address.h"
#include "captions/winsock.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"

#include <functional>
#include <memory>
#include <optional>

namespace tolmira {

// Hands the current caption to one client at a time; docs/captions.md is its protocol. Whatever arrives is answered at
// once and in one piece, so that no client can keep the interface waiting.
class CaptionServer {
public:
  // `enderecos` asks the system for its addresses.
  CaptionServer(EstadoLegenda &legenda, const IniStore &store, Winsock &winsock1, Clock &clock,
                std::function<TabelaDeEnderecos()> enderecos);
  ~CaptionServer();

  void Inicia(); // comes up if the settings, which have been read, ask for it, and starts the watchdog
  // (Re)starts listening with the settings as they are stored; what went wrong, mostly nothing. A port in use shows in
  // Ligado() alone.
  QString StartServer();
  void Encerra(); // the program ends

  // The operator's start, with the port as it was typed; false, and nothing happens, when that is 0. `erro` as of
  // StartServer, or that the port could not be stored; the one that was stored counts then.
  bool Liga(const QString &porta, QString &erro);
  void Desliga(); // holds until the next start by hand

  bool Ligado() const;     // it listens, or carries a client
  bool EmServico() const;  // the same, and while a client has gone that the watchdog has not yet seen off
  bool TemCliente() const; // one is connected, or has asked a moment ago

  // Called by each tick of the watchdog, and when the operator starts or stops. May be empty.
  std::function<void()> Mudou;

private:
  void TimerLegenda();
  void Chegou();
  void Responde(const QByteArray &pedido);
  QByteArray Pagina() const;
  void Load();
  void Update();
  void Avisa() const;

  EstadoLegenda &m_legenda;
  const IniStore &m_store;
  Winsock &m_winsock1;
  Clock &m_clock;
  std::function<TabelaDeEnderecos()> m_enderecos;
  std::unique_ptr<PeriodicTimer> m_timerLegenda;
  qint64 m_semPedido = 0;            // bytes of this client since its last request
  std::optional<qint64> m_ultimaVez; // ms, of the last request since the operator's start
};

} // namespace tolmira
