#include "display/ui/engine_versions.h"

#include <clocale>
#include <memory>
#include <mpv/client.h>
#include <qtwebenginecoreglobal.h>

namespace tolmira {

namespace {

// Only a started player tells its version; this one has neither picture nor sound.
QString MpvVersion() {
  std::setlocale(LC_NUMERIC, "C"); // the library refuses anything else
  const std::unique_ptr<mpv_handle, decltype(&mpv_terminate_destroy)> mpv(mpv_create(), &mpv_terminate_destroy);
  if (!mpv)
    return {};
  mpv_set_option_string(mpv.get(), "vo", "null");
  mpv_set_option_string(mpv.get(), "ao", "null");
  mpv_set_option_string(mpv.get(), "config", "no");
  if (mpv_initialize(mpv.get()) < 0)
    return {};
  const std::unique_ptr<char, decltype(&mpv_free)> version(mpv_get_property_string(mpv.get(), "mpv-version"), &mpv_free);
  QString text = QString::fromUtf8(version.get());
  return text.startsWith(u"mpv ") ? text.mid(4) : text;
}

} // namespace

EngineVersions ReadEngineVersions() {
  return {QString::fromLatin1(qWebEngineVersion()), QString::fromLatin1(qWebEngineChromiumVersion()), MpvVersion()};
}

} // namespace tolmira
