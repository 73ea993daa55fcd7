#include "display/ui/page_profile.h"

#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

namespace tolmira {

PageProfile NewPageProfile() {
  auto profile = std::make_shared<QWebEngineProfile>(); // without a name it is off the record
  profile->setHttpCacheType(QWebEngineProfile::NoCache);
  profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  profile->setSpellCheckEnabled(false);
  QObject::connect(profile.get(), &QWebEngineProfile::downloadRequested, profile.get(),
                   [](QWebEngineDownloadRequest *download) { download->cancel(); });
  return profile;
}

} // namespace tolmira
