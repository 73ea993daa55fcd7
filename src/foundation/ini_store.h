#pragma once

#include <QString>

#include <memory>

#include "foundation/app_folder.h"

namespace tolmira {

// The one store of settings: INI files with the semantics of the profile service that wrote the existing data.
// Sections and keys are compared without regard to case; the first match counts. A value is trimmed, one pair of
// quotation marks round it is stripped on reading, and it is cut at 1023 characters. Comments, unknown lines and the
// order of lines survive a write. There is no cache: each read goes to the file, each write reaches it at once,
// atomically.
class IniStore {
public:
  explicit IniStore(const AppFolder &app);

  // The stored value, or `fallback` when the key is missing or its value is empty. An empty `file` means
  // <app>\Data\Config.dat, and the full path is handed back through the argument.
  QString ReadConfig(const QString &section, const QString &key, const QString &fallback, QString &file) const;
  // True only when the value read back with an empty default equals `value`. Does not create folders.
  bool WriteConfig(const QString &section, const QString &key, const QString &value, QString &file) const;

  // The same on Data\Config.dat.
  QString ReadConfig(const QString &section, const QString &key, const QString &fallback) const;
  bool WriteConfig(const QString &section, const QString &key, const QString &value) const;

  const AppFolder &App() const { return m_app; }

private:
  AppFolder m_app;
};

// A file read once, for readers that take many keys at one time (the sixteen themes); the same rules as ReadConfig.
class IniSnapshot {
public:
  explicit IniSnapshot(const QString &storedPath);
  ~IniSnapshot();
  IniSnapshot(const IniSnapshot &) = delete;
  IniSnapshot &operator=(const IniSnapshot &) = delete;
  QString Read(const QString &section, const QString &key, const QString &fallback) const;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

// The per-user values that the console keeps (`FonteGrande`, `chkim1` ...). They live in the section `Registro` of
// Data\Config.dat. Path components in front of the value name are not needed here.
class Registro {
public:
  explicit Registro(const IniStore &store) : m_store(store) {}
  QString ReadValue(const QString &name, const QString &fallback) const;
  void WriteValue(const QString &name, const QString &value) const;

private:
  const IniStore &m_store;
};

} // namespace tolmira
