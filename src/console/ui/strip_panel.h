#pragma once

#include <QFrame>
#include <QWidget>

#include "console/ui/console_parts.h"

class QLabel;

namespace tolmira {

class HintLabel;
class PassageCard;
class SlidesPanel;
class TextStrip;

// PicAbac2: the panel with the text strip and its frame. Tips lie over it and never move anything.
class StripArea : public QFrame {
  Q_OBJECT

public:
  StripArea(ConsoleParts parts, QWidget *parent);
  void Atualiza();
  void StripMoved();

protected:
  void paintEvent(QPaintEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;

private:
  void MakeHints();
  void ShowHints();
  void Speak(QWidget *text, const QString &verse);
  void MarkVerse();
  void ShowPassage();
  void ShowSlides();
  QRectF FrameRect() const;

  ConsoleParts m_parts;
  TextStrip *m_label1;
  PassageCard *m_passagem; // in place of the strip while a Bible passage is on show
  SlidesPanel *m_slides;   // in place of the strip while a slide document is
  // In the middle of the panel while it holds no text.
  HintLabel *m_picAviso2;
  HintLabel *m_picDicaAgenda;
  // At its lower edge.
  HintLabel *m_picAviso;
  HintLabel *m_picDica2;
  HintLabel *m_picDica3;
  HintLabel *m_picDica4;
  HintLabel *m_mensagem;
  QString m_familia;
  QString m_familiaInstalada;
  int m_marcado = -1; // the verse that was last sent
};

// The middle column's upper part: the title of the item on show over the strip.
class StripPanel : public QWidget {
  Q_OBJECT

public:
  StripPanel(ConsoleParts parts, QWidget *parent);
  void Atualiza();
  StripArea *PicAbac2() { return m_area; }

private:
  ConsoleParts m_parts;
  QLabel *m_label9;
  QLabel *m_contagem;
  StripArea *m_area;
};

} // namespace tolmira
