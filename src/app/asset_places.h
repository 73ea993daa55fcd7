#pragma once

#include <QString>
#include <QStringList>

namespace tolmira {

// What is delivered beside the program, as folders to copy from. A folder that does not exist is an empty text or is
// passed over by the copier.
struct AssetPlaces {
  QString html;        // page templates, for <app>/html; installed, with the libraries in lib/
  QString pageLibs;    // scripts and styles that the templates load, for <app>/html/lib, where they lie apart
  QString sample;      // the starter service, for <app>
  QString sampleMedia; // its pictures and videos ("Images", "Videos"), for <app>
  QString bibles;      // Bible versions, for <app>/Bible
  QString help = {};   // the help pages, read where they lie
  bool Found() const { return !html.isEmpty(); }
};

// The first of: `wish` (option --assets), the environment variable TOLMIRA_ASSETS, ../share/tolmira seen from the
// executable, the folders of the build tree. Each of the first three holds html/ (with html/lib/), sample/,
// sample-media/, bibles/ and help/. A wish that holds no html/ finds nothing; it is not replaced by another place.
AssetPlaces FindAssets(const QString &wish, const QString &executableFolder);

} // namespace tolmira
