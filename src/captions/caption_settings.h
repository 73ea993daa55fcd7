#pragma once

#include "captions/estado_legenda.h"
#include "foundation/ini_store.h"

namespace tolmira {

// Reads port, start and both styles; what the file lacks takes its default. Bad numbers are 0, colours and
// transparencies stay within their bounds.
void CarregaLegendas(const IniStore &store, EstadoLegenda &legenda);

// Writes what CarregaLegendas reads, in one step. False when nothing was written.
bool SalvarLegenda(const IniStore &store, const EstadoLegenda &legenda);

// The text as a port: 0 for a text without a number, the nearest port otherwise.
quint16 PortaDoTexto(const QString &texto);
bool GravaPorta(const IniStore &store, quint16 porta);
bool GravaStartOnLoad(const IniStore &store, bool ligado);

} // namespace tolmira
