#pragma once

#include "foundation/seams.h"

#include <algorithm>
#include <vector>

namespace tolmira::testing {

// Time that stands still until Advance moves it. Timers fire in the order of their due times, those due at the same
// moment in the order in which they were started, and see the moment they were due as NowMs.
class FakeClock : public Clock {
  struct TimerState {
    std::function<void()> onTick;
    int intervalMs = 0;
    bool active = false;
    qint64 dueMs = 0;
    qint64 order = 0;
  };
  struct State {
    qint64 nowMs = 0;
    qint64 nextOrder = 0;
    std::vector<std::weak_ptr<TimerState>> timers;

    void Arm(TimerState &timer) {
      timer.dueMs = nowMs + timer.intervalMs;
      timer.order = nextOrder++;
    }
  };

  class Timer : public PeriodicTimer {
  public:
    Timer(std::shared_ptr<State> clock, std::function<void()> onTick)
        : m_clock(std::move(clock)), m_timer(std::make_shared<TimerState>()) {
      m_timer->onTick = std::move(onTick);
      m_clock->timers.push_back(m_timer);
    }
    void Start(int intervalMs) override {
      m_timer->intervalMs = std::max(intervalMs, 0);
      m_timer->active = intervalMs > 0;
      m_clock->Arm(*m_timer);
    }
    void Stop() override { m_timer->active = false; }
    bool IsActive() const override { return m_timer->active; }
    int IntervalMs() const override { return m_timer->intervalMs; }

  private:
    std::shared_ptr<State> m_clock;
    std::shared_ptr<TimerState> m_timer;
  };

public:
  qint64 NowMs() const override { return m_state->nowMs; }

  std::unique_ptr<PeriodicTimer> NewTimer(std::function<void()> onTick) override {
    return std::make_unique<Timer>(m_state, std::move(onTick));
  }

  void Advance(qint64 ms) {
    const qint64 end = m_state->nowMs + ms;
    while (const std::shared_ptr<TimerState> next = NextDue(end)) {
      m_state->nowMs = std::max(m_state->nowMs, next->dueMs);
      m_state->Arm(*next);
      const std::function<void()> tick = next->onTick; // the tick may destroy its own timer
      tick();
    }
    m_state->nowMs = std::max(m_state->nowMs, end);
  }

  int ActiveTimers() const {
    return static_cast<int>(std::count_if(m_state->timers.begin(), m_state->timers.end(), [](const auto &weak) {
      const auto timer = weak.lock();
      return timer && timer->active;
    }));
  }

private:
  std::shared_ptr<TimerState> NextDue(qint64 end) {
    std::erase_if(m_state->timers, [](const auto &weak) { return weak.expired(); });
    std::shared_ptr<TimerState> next;
    for (const auto &weak : m_state->timers) {
      const std::shared_ptr<TimerState> timer = weak.lock();
      if (!timer->active || timer->dueMs > end)
        continue;
      if (!next || timer->dueMs < next->dueMs || (timer->dueMs == next->dueMs && timer->order < next->order))
        next = timer;
    }
    return next;
  }

  std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace tolmira::testing
