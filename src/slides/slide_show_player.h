#pragma once

#include <QString>
#include <functional>

namespace tolmira {

// A running slide show as its remote sees it. The console has the real one.
class SlideShowPlayer {
public:
  virtual ~SlideShowPlayer() = default;

  // The remote opened, or closed: closing ends the show and brings the theme back.
  virtual void Abre() = 0;
  virtual void Fecha() = 0;
  // Builds the show's page and has it run from its start, on the projection and on the preview.
  virtual void IniciaSlideShow(const QString &path) = 0;
  virtual void Pause() = 0;
  virtual void Play() = 0;
  virtual bool Parado() const = 0;
  virtual int Volume() const = 0; // 0 to 100
  virtual void DefineVolume(int volume) = 0;
  // The page says which picture is on show.
  virtual void ImagemMudou(const QString &nome) = 0;
  // It says that the show ends in so many milliseconds.
  virtual void FimAVista(int ms) = 0;
  virtual bool Acabou() const = 0;
  virtual bool SemMusica() const = 0; // the show's audio cannot be played

  std::function<void()> Mudou; // called when one of the last two has changed; set by the remote while it is open
};

} // namespace tolmira
