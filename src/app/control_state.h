#pragma once

#include <QJsonObject>

#include "app/control_doors.h"

namespace tolmira {

// The answer of "state": every field, by its own name.
QJsonObject StateOf(const ControlDoors &doors);

// Tells what changed between two looks. A look costs little as long as the long lists stay the same.
class StateWatch {
public:
  void Start(const ControlDoors &doors);          // what is now is the ground for the first comparison
  QJsonObject Changes(const ControlDoors &doors); // the fields that differ from the last look; empty for none

private:
  QJsonObject m_scalars;
  TabelaEstrofes m_estrofes;
  std::vector<EntradaAgenda> m_agenda;
};

} // namespace tolmira
