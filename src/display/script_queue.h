#pragma once

#include <functional>
#include <vector>

namespace tolmira {

// What waits for a page. Each page load has a number; what is pushed while it loads runs, in order, when it reports
// ready, and is dropped when a newer load begins or when the load is given up.
class ScriptQueue {
public:
  struct Job {
    std::function<void()> run;
    std::function<void()> dropped; // may be empty
  };

  // A new load: drops what waited for the older page. Returns the number of the load, 1 or more.
  int Begin();
  // True when this was the load that is waited for; false for an older page that reports late. Runs what waited.
  bool Ready(int load);
  // Gives the present load up: what waits is dropped, what comes later goes straight to whatever page is there.
  void GiveUp();
  // Like Begin, but keeps what waits: the page comes back after its process died.
  int Restart();

  void Push(Job job); // runs at once when no load is waited for
  bool IsWaiting() const { return m_waiting; }
  int Load() const { return m_load; }

private:
  void DropAll();
  int m_load = 0;
  bool m_waiting = false;
  std::vector<Job> m_jobs;
};

} // namespace tolmira
