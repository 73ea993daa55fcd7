#pragma once

#include <QObject>

#include <memory>
#include <optional>

#include "app/command_line.h"

namespace tolmira {

// The whole program behind main(): makes every object once, in the order in which they need each other, and wires
// them. Lives from after the application object is made until before it ends.
class Program : public QObject {
  Q_OBJECT

public:
  explicit Program(const CommandLine &line);
  ~Program() override;

  // Prepares the program folder, opens the console and the projection. An exit code when the program is not to run: the
  // operator has been told why, or closed it meanwhile.
  std::optional<int> Start();

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
