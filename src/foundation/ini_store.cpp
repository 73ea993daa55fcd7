#include "foundation/ini_store.h"

#include "foundation/ini_text.h"
#include "foundation/text_file.h"

#include <QHash>

namespace tolmira {
namespace {

QString ValueOr(const std::optional<QString> &value, const QString &fallback) {
  return value && !value->isEmpty() ? *value : fallback;
}

} // namespace

IniStore::IniStore(const AppFolder &app) : m_app(app) {}

QString IniStore::ReadConfig(const QString &section, const QString &key, const QString &fallback, QString &file) const {
  if (file.isEmpty())
    file = m_app.At(u"\\Data\\Config.dat");
  return ValueOr(IniValue(ReadWholeFile(file), section, key), fallback);
}

bool IniStore::WriteConfig(const QString &section, const QString &key, const QString &value, QString &file) const {
  if (file.isEmpty())
    file = m_app.At(u"\\Data\\Config.dat");
  const FileContent content = ReadFileContent(file);
  // What could not be read whole would lose its rest.
  if (content.exists && !content.complete)
    return false;
  const DecodedText old = DecodeText(content.bytes);
  const std::optional<QString> text = WithIniValue(old.text, section, key, value);
  if (!text)
    return false;
  const QByteArray bytes = EncodeText(*text, old.encoding);
  if ((!content.exists || bytes != content.bytes) && !WriteFileAtomically(file, bytes))
    return false;
  return ReadConfig(section, key, QString(), file) == value;
}

QString IniStore::ReadConfig(const QString &section, const QString &key, const QString &fallback) const {
  QString file;
  return ReadConfig(section, key, fallback, file);
}

bool IniStore::WriteConfig(const QString &section, const QString &key, const QString &value) const {
  QString file;
  return WriteConfig(section, key, value, file);
}

struct IniSnapshot::Impl {
  using Keys = QHash<QString, QString>;
  QHash<QString, Keys> sections; // names in folded case
};

IniSnapshot::IniSnapshot(const QString &storedPath) : m_impl(std::make_unique<Impl>()) {
  const QString text = ReadWholeFile(storedPath);
  ForEachIniValue(text, [this](QStringView section, QStringView key, const QString &value) {
    m_impl->sections[section.toString().toCaseFolded()].insert(key.toString().toCaseFolded(), value);
  });
}

IniSnapshot::~IniSnapshot() = default;

QString IniSnapshot::Read(const QString &section, const QString &key, const QString &fallback) const {
  const auto keys = m_impl->sections.constFind(section.trimmed().toCaseFolded());
  if (keys == m_impl->sections.constEnd())
    return fallback;
  const QString value = keys->value(key.trimmed().toCaseFolded());
  return value.isEmpty() ? fallback : value;
}

QString Registro::ReadValue(const QString &name, const QString &fallback) const {
  return m_store.ReadConfig(QStringLiteral("Registro"), name, fallback);
}

// A registry keeps a text as it is. A reader takes one pair of quotes and outer blanks off a value, so such a text is
// given a pair for it to take.
void Registro::WriteValue(const QString &name, const QString &value) const {
  const auto outer = [](QChar c) { return c.isSpace() || c == u'"' || c == u'\''; };
  const bool wrap = !value.isEmpty() && (outer(value.front()) || outer(value.back()));
  m_store.WriteConfig(QStringLiteral("Registro"), name, wrap ? QString(u'"' + value + u'"') : value);
}

} // namespace tolmira
