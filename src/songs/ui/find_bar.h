#pragma once

#include <QFrame>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tolmira {

class LyricsEdit;

// Find and replace, below the text that it works on. Hidden until it is opened.
class FindBar : public QFrame {
  Q_OBJECT

public:
  FindBar(LyricsEdit *text, QWidget *parent);

  void Open(bool replace); // with what is selected in the text
  void Leave();            // back to the text
  void Next() { Find(false); }
  void Previous() { Find(true); }

protected:
  void keyPressEvent(QKeyEvent *event) override;

private:
  void Find(bool backward);
  void Replace();
  void ReplaceAll();
  void Mark();
  bool FoundIsSelected() const;

  LyricsEdit *m_text;
  QLineEdit *m_find;
  QLineEdit *m_with;
  QCheckBox *m_case;
  QLabel *m_state;
  QWidget *m_replaceRow;
};

} // namespace tolmira
