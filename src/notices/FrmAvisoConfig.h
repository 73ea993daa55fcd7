#pragma once

#include "notices/notice_sender.h"
#include "notices/ui/notice_doors.h"

#include <QDialog>

class QBoxLayout;
class QRadioButton;

namespace tolmira {

class ColourField;
class NoticePreview;
class ValueSlider;

// The look of the notices. The place that is chosen here is the preview's alone: what is saved always puts them at the bottom.
class FrmAvisoConfig : public QDialog {
  Q_OBJECT

public:
  explicit FrmAvisoConfig(const NoticeDoors &doors);

  void Open(); // and reads the settings

protected:
  void hideEvent(QHideEvent *event) override;

private:
  void MakeColours(QBoxLayout *column);
  ValueSlider *MakeSlider(QBoxLayout *column, const char *name, const QString &caption, int least, int greatest,
                          const QString &tip);
  void MakePlace(QBoxLayout *column);
  void MakeButtons(QBoxLayout *column);
  VisualDoAviso Visual() const;
  void Mostra();
  void Salva();

  NoticeDoors m_doors;
  NoticePreview *m_preview;
  ColourField *m_selectColors1 = nullptr; // of the band
  ColourField *m_selectColors2 = nullptr; // of the text
  ValueSlider *m_slider1 = nullptr;       // height
  ValueSlider *m_slider2 = nullptr;       // speed
  QRadioButton *m_optionFlat1 = nullptr;  // top
  QRadioButton *m_optionFlat2 = nullptr;  // bottom
};

} // namespace tolmira
