#pragma once

#include "songs/ui/lyrics_doors.h"

#include <memory>

namespace tolmira {

class FrmBusca;

// The window of the web lyrics, made when it is first wanted.
class LyricsWindow {
public:
  explicit LyricsWindow(LyricsDoors doors);
  ~LyricsWindow();

  // With these words in the search box; empty leaves what stands there.
  void AbreBusca(const QString &palavras = QString());

private:
  LyricsDoors m_doors;
  std::unique_ptr<FrmBusca> m_busca;
};

} // namespace tolmira
