#pragma once

#include <QString>

namespace tolmira {

// The folder that the operator last took a video from, whatever for: a key of the section Config.
inline const QString PastaVideosOld = QStringLiteral("pastaVideosOld");

// The files among which one is taken, as file dialogues have it.
inline const QString FiltroDeVideos =
    QStringLiteral("Videos (*.mp4 *.m4v *.mkv *.webm *.mov *.avi *.wmv *.mpg *.mpeg)");

} // namespace tolmira
