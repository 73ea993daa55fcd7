#pragma once

#include <memory>

class QWebEngineProfile;

namespace tolmira {

// What the pages of the program share: nothing is kept on disk, nothing is downloaded, no spelling is checked. Each
// page host keeps a share of it, so it ends with the last of them; all of them have to end before the application
// object.
using PageProfile = std::shared_ptr<QWebEngineProfile>;
PageProfile NewPageProfile();

} // namespace tolmira
