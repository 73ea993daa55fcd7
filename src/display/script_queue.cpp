#include "display/script_queue.h"

#include <utility>

namespace tolmira {

int ScriptQueue::Begin() {
  DropAll();
  m_waiting = true;
  return ++m_load;
}

int ScriptQueue::Restart() {
  m_waiting = true;
  return ++m_load;
}

bool ScriptQueue::Ready(int load) {
  if (!m_waiting || load != m_load)
    return false;
  m_waiting = false;
  // A job may begin a new load; the rest was meant for the page that has just been left.
  std::vector<Job> jobs = std::exchange(m_jobs, {});
  for (Job &job : jobs) {
    if (m_load == load && !m_waiting)
      job.run();
    else if (job.dropped)
      job.dropped();
  }
  return true;
}

void ScriptQueue::GiveUp() {
  m_waiting = false;
  DropAll();
}

void ScriptQueue::Push(Job job) {
  if (m_waiting)
    m_jobs.push_back(std::move(job));
  else
    job.run();
}

void ScriptQueue::DropAll() {
  const std::vector<Job> jobs = std::exchange(m_jobs, {});
  for (const Job &job : jobs)
    if (job.dropped)
      job.dropped();
}

} // namespace tolmira
