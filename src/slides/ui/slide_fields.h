#pragma once

#include <QWidget>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

class SlideEditor;
class ValueSlider;

// Texts and layout of the slide that is being edited. What the operator does is in the document before the signal
// comes.
class SlideFields : public QWidget {
  Q_OBJECT

public:
  SlideFields(SlideEditor &editor, QWidget *parent);
  void Load();       // the controls take what the document holds; nothing is said
  void ShowValues(); // the figures beside the sliders
  void FocusTitle();

signals:
  void Mudou();
  void NaoCoube(); // more was put into the text than a file keeps; comes behind Mudou

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;

private:
  void MakeTexts(QVBoxLayout *column);
  void MakeLayout(QVBoxLayout *column);
  ValueSlider *MakeScale(QGridLayout *grid, int row, const char *name, const QString &caption, int least, int most,
                         QLabel *&value);
  void TextTyped();

  SlideEditor &m_editor;
  bool m_loading = false;
  QLineEdit *m_text1 = nullptr;
  QPlainTextEdit *m_text2 = nullptr;
  QCheckBox *m_check1 = nullptr;
  QPushButton *m_alinhar[2] = {}; // left, centred
  ValueSlider *m_sliderFontSize = nullptr;
  QLabel *m_valorFontSize = nullptr;
  ValueSlider *m_slider5 = nullptr; // line height
  QLabel *m_valor5 = nullptr;
};

} // namespace tolmira
