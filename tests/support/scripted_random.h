#pragma once

#include "foundation/seams.h"

#include <initializer_list>
#include <vector>

namespace tolmira::testing {

// Draws the given numbers in their order and begins again behind the last one.
class ScriptedRandom : public RandomSource {
public:
  ScriptedRandom(std::initializer_list<double> draws) : m_draws(draws) {}

  double Draw() override {
    const double value = m_draws.empty() ? 0.0 : m_draws[static_cast<size_t>(m_count) % m_draws.size()];
    ++m_count;
    return value;
  }

  int Count() const { return m_count; }

private:
  std::vector<double> m_draws;
  int m_count = 0;
};

} // namespace tolmira::testing
