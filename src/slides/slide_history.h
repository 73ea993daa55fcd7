#pragma once

#include "slides/slide_document.h"

#include <QList>
#include <QString>

namespace tolmira {

// The changes of a document, to be taken back and made again. Documents share their texts, so that each step
// costs little more than what it changes and a list of the slides.
class SlideHistory {
public:
  struct Moment {
    SlideDocument documento;
    int indice = 0; // the slide that is being edited, from 1; 0 for none
  };

  // A change with the key of the one before it becomes one step with it; an empty key stands alone.
  void Record(const QString &key, const Moment &before, const Moment &after);
  void EndStep() { m_open = false; } // the next change begins a step, whatever its key
  void Clear();

  bool CanUndo() const { return m_at > 0; }
  bool CanRedo() const { return m_at < m_steps.size(); }
  // There must be one. The references hold until the next change.
  const Moment &Undo();
  const Moment &Redo();

private:
  struct Step {
    QString key;
    Moment before;
    Moment after;
  };
  QList<Step> m_steps;
  qsizetype m_at = 0; // steps that are in force
  bool m_open = false;
};

} // namespace tolmira
