#pragma once

#include "songs/lyrics_search.h"
#include "songs/ui/editor_doors.h"

namespace tolmira {

// What the window of the web lyrics works with. All of it outlives the window.
struct LyricsDoors {
  LyricsSearchDoors busca;
  SongEditorDoors editor; // for the preview of a stanza, as the song editor has it
};

} // namespace tolmira
