#pragma once

#include <QFrame>
#include <QSize>

#include <functional>

#include "display/display_seams.h"
#include "display/ui/page_profile.h"

namespace tolmira {

class PictureLayer;
class WebPageHost;

// PicContainerPreview: the live copy of the projection, with its mirrors of the black screen and the default picture
// laid over it.
class PreviewBox : public QFrame, public PreviewMirror {
  Q_OBJECT

public:
  PreviewBox(PageProfile perfil, QWidget *parent);

  void DefineMonitor(const QSize &monitor); // the projection's size in pixels, for the aspect
  void AjustaPreview();
  WebPageHost *PicWV() { return m_picWV; }
  std::function<void()> OnResize; // the panel's size changed. May be empty

  void FitMirror() override;
  void ShowMirrorBlack(bool visible) override;
  bool LoadMirrorPicture(const QString &storedPath) override;
  void ShowMirrorPicture(bool visible) override;

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  QSize m_monitor{1280, 720};
  WebPageHost *m_picWV;
  QWidget *m_black;
  PictureLayer *m_picture;
};

} // namespace tolmira
