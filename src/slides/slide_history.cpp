#include "slides/slide_history.h"

namespace tolmira {

namespace {
constexpr qsizetype MostSteps = 300;
}

void SlideHistory::Record(const QString &key, const Moment &before, const Moment &after) {
  m_steps.resize(m_at);
  if (m_open && !key.isEmpty() && !m_steps.isEmpty() && m_steps.last().key == key) {
    m_steps.last().after = after;
    if (after.documento == m_steps.last().before.documento) { // back where it began
      m_steps.removeLast();
      m_at = m_steps.size();
      m_open = false;
    }
    return;
  }
  m_steps.append({key, before, after});
  if (m_steps.size() > MostSteps)
    m_steps.removeFirst();
  m_at = m_steps.size();
  m_open = true;
}

void SlideHistory::Clear() {
  m_steps.clear();
  m_at = 0;
  m_open = false;
}

const SlideHistory::Moment &SlideHistory::Undo() {
  m_open = false;
  return m_steps.at(--m_at).before;
}

const SlideHistory::Moment &SlideHistory::Redo() {
  m_open = false;
  return m_steps.at(m_at++).after;
}

} // namespace tolmira
