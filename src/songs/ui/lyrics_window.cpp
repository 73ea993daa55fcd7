#include "songs/ui/lyrics_window.h"

#include "songs/FrmBusca.h"

namespace tolmira {

LyricsWindow::LyricsWindow(LyricsDoors doors) : m_doors(std::move(doors)) {}
LyricsWindow::~LyricsWindow() = default;

void LyricsWindow::AbreBusca(const QString &palavras) {
  if (!m_busca)
    m_busca = std::make_unique<FrmBusca>(m_doors);
  m_busca->Open(palavras);
}

} // namespace tolmira
