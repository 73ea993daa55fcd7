#pragma once

#include "bible/bible_store.h"

#include <QDir>
#include <QTemporaryDir>
#include <memory>

namespace tolmira::testing {

// A store on a program folder of its own, which is empty but for Data.
class StoreRoom {
protected:
  bool MakeRoom() {
    m_dir = std::make_unique<QTemporaryDir>();
    m_app = std::make_unique<AppFolder>(m_dir->path());
    m_config = std::make_unique<IniStore>(*m_app);
    m_bible = std::make_unique<BibleStore>(*m_app, *m_config);
    return QDir(m_dir->path()).mkdir(QStringLiteral("Data"));
  }
  QString Fetch(QStringView reference) {
    QString text = reference.toString();
    return m_bible->GetVerse(text);
  }

  std::unique_ptr<QTemporaryDir> m_dir;
  std::unique_ptr<AppFolder> m_app;
  std::unique_ptr<IniStore> m_config;
  std::unique_ptr<BibleStore> m_bible;
};

} // namespace tolmira::testing
