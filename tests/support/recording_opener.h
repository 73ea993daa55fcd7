#pragma once

#include "foundation/seams.h"

#include <QList>

namespace tolmira::testing {

// Keeps the addresses instead of opening them.
class RecordingOpener : public DesktopOpener {
public:
  bool Open(const QUrl &address) override {
    opened.append(address);
    return answers;
  }

  QList<QUrl> opened;
  bool answers = true;
};

} // namespace tolmira::testing
