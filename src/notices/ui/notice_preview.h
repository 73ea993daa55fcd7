#pragma once

#include "notices/notice_sender.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QTimer>

class QLabel;

namespace tolmira {

// A small screen with a notice that runs across it, in the proportions and at the speed of the projection. It moves
// only while it is seen.
class NoticePreview : public QFrame {
public:
  explicit NoticePreview(QWidget *parent);
  void Mostra(const VisualDoAviso &visual, bool noAlto);

protected:
  void resizeEvent(QResizeEvent *event) override;
  void showEvent(QShowEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void Arranja();
  void Anda();

  QWidget *m_band;
  QLabel *m_lbAvisoMini;
  VisualDoAviso m_visual;
  bool m_noAlto = false;
  double m_left = 0; // of the text, px
  QTimer m_frame;
  QElapsedTimer m_since; // the last frame
};

} // namespace tolmira
