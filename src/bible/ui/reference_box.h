#pragma once

#include <QLineEdit>

#include "bible/reference_entry.h"

namespace tolmira {

// An entry box for Bible references: a line edit that completes book names as they are typed.
class ReferenceBox : public QLineEdit {
  Q_OBJECT

public:
  explicit ReferenceBox(EntryPlace place, QWidget *parent = nullptr);

signals:
  void Submitted(bool ctrl); // Enter; `ctrl` when Ctrl, and nothing else, was held
  void CtrlAltPressed();     // once for each time that both are held together
  void Left();               // Escape

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void keyReleaseEvent(QKeyEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;

private:
  EntryBox Read() const;
  void Write(const EntryBox &box);

  ReferenceEntry m_entry;
  bool m_ctrlAlt = false; // both are held, and that was told
};

} // namespace tolmira
