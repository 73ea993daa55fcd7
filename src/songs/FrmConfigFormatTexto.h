#pragma once

#include "songs/text_format.h"
#include "songs/ui/editor_doors.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QSlider;

namespace tolmira {

class StanzaPreview;

// The text-format options, with a sample in the page of the theme in force. Nothing changes before OK.
class FrmConfigFormatTexto : public QWidget {
  Q_OBJECT

public:
  FrmConfigFormatTexto(const SongEditorDoors &doors, TextFormatDoors formato);
  void Open();
  void Refaz(); // the theme in force has changed; what the operator chose here stays chosen

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  TextFormat Chosen() const;
  void Load(const TextFormat &format);
  void ShowSample();
  void Command1(); // OK

  SongEditorDoors m_doors;
  TextFormatDoors m_format;
  TextFormat m_loaded; // what the boxes showed before the operator touched them
  StanzaPreview *m_preview;
  QCheckBox *m_capitals;
  QSlider *m_style;
  QLabel *m_styleValue;
};

} // namespace tolmira
