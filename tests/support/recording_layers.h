#pragma once

#include <QSize>
#include <QStringList>

#include "support/recording_page.h"
#include "support/recording_player.h"

namespace tolmira::testing {

// The layers of a projection window without the window. Pictures named in `unreadable` cannot be loaded.
class RecordingLayers : public DisplayLayers {
public:
  PageObject *WV() override { return hasPage ? &page : nullptr; }
  MediaPlayer *wmp() override { return &player; }
  void ShowPicwmp(bool visible) override { Note(QStringLiteral("Picwmp"), picwmp = visible); }
  void PicwmpToBack() override { Note(QStringLiteral("Picwmp to back")); }
  void ShowPicWV(bool visible) override { Note(QStringLiteral("PicWV"), picWV = visible); }
  void PicWVToBack() override { Note(QStringLiteral("PicWV to back")); }
  bool PicwmpVisible() const override { return picwmp; }
  PageObject *WVAviso(bool cria) override {
    avisoAcima = avisoAcima || cria;
    return avisoAcima ? &paginaDeAvisos : nullptr;
  }
  void ShowWmp(bool visible) override { Note(QStringLiteral("wmp"), wmpVisible = visible); }
  void ShowTelaPreta(bool visible) override { Note(QStringLiteral("PicTelaPreta"), telaPreta = visible); }
  bool TelaPretaVisible() const override { return telaPreta; }
  void TelaPretaToFront() override { Note(QStringLiteral("PicTelaPreta to front")); }
  bool LoadImagePadrao(const QString &storedPath) override {
    Note(u"load " + storedPath);
    if (unreadable.contains(storedPath))
      return false;
    picture = storedPath;
    return true;
  }
  void ShowImagePadrao(bool visible) override { Note(QStringLiteral("ImagePadrao"), imagePadrao = visible); }
  void ImagePadraoToFront() override { Note(QStringLiteral("ImagePadrao to front")); }
  void PicMoveToFront() override { Note(QStringLiteral("PicMove to front")); }
  void StopGripTimer() override { Note(QStringLiteral("grip timer stopped")); }
  void FitMedia() override { Note(QStringLiteral("media fitted")); }
  void SetWindowVisible(bool visible) override { Note(QStringLiteral("window"), windowVisible = visible); }
  void SetTopmost(bool value) override { Note(QStringLiteral("topmost"), topmost = value); }
  void Unload() override { Note(QStringLiteral("unloaded")); }
  QSize SizePx() const override { return size; }

  QStringList journal; // every call on the layers, the page and the player, in their order
  RecordingPage page{&journal}; // has the program's functions
  RecordingPage paginaDeAvisos{&journal, QStringLiteral("above")};
  RecordingPlayer player{&journal};
  RecordingLayers() { page.answer = QStringLiteral("true"); }
  bool hasPage = true;
  QSize size{1280, 720};
  QStringList unreadable;
  QString picture;
  bool picwmp = false;
  bool picWV = true;
  bool avisoAcima = false; // the page above the layers is there
  bool wmpVisible = false;
  bool telaPreta = false;
  bool imagePadrao = false;
  bool windowVisible = false;
  bool topmost = true;

private:
  void Note(const QString &call) { journal.append(call); }
  void Note(const QString &layer, bool visible) { journal.append(layer + (visible ? u" shown" : u" hidden")); }
};

// The console's mirror of the black screen and the default picture.
class RecordingMirror : public PreviewMirror {
public:
  void FitMirror() override { ++fits; }
  void ShowMirrorBlack(bool visible) override { black = visible; }
  bool LoadMirrorPicture(const QString &storedPath) override {
    picture = storedPath;
    return true;
  }
  void ShowMirrorPicture(bool visible) override { pictureShown = visible; }

  int fits = 0;
  bool black = false;
  QString picture;
  bool pictureShown = false;
};

} // namespace tolmira::testing
