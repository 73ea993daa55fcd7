#pragma once

#include "foundation/drafts.h"
#include "slides/slide_document.h"

#include <QJsonObject>
#include <QString>
#include <optional>

namespace tolmira {

// What stands unsaved in the slide editor. It holds what a file would lose: the colour of the outline, which is written
// as a flag.
struct SlideDraft {
  QString path; // of the document that is being changed; else empty
  QString nome; // in the name box
  SlideDocument documento;
  FileState arquivo; // the document's file when the editor read or wrote it last

  friend bool operator==(const SlideDraft &, const SlideDraft &) = default;
};

QJsonObject ToJson(const SlideDraft &draft);
std::optional<SlideDraft> SlideDraftFrom(const QJsonObject &object); // nothing for a draft of another kind

// The document is there and is not what the draft was written over.
bool DocumentHasChanged(const SlideDraft &draft);

} // namespace tolmira
