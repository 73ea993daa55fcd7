#pragma once

#include "foundation/seams.h"

#include <vector>

namespace tolmira::testing {

// Counts what was asked for instead of running the loop.
class CountingYielder : public Yielder {
public:
  void Yield(int times) override {
    calls.push_back(times);
    if (onYield)
      onYield(times);
  }

  int Total() const {
    int total = 0;
    for (const int times : calls)
      total += times;
    return total;
  }

  std::vector<int> calls;
  std::function<void(int)> onYield; // what a test lets happen while the caller waits
};

} // namespace tolmira::testing
