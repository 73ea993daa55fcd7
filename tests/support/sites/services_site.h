#pragma once

#include "support/site_server.h"

#include <QCryptographicHash>

namespace tolmira::testing {

// A version of a few lines: one chapter of a testament's first book, behind the place where it is looked for.
inline QByteArray TinyVersion(const QByteArray &book, const QByteArray &words) {
  return ">" + book + " [1]\r\n1 " + words + "\r\n2 And so it stayed.\r\n";
}

inline QByteArray BibleListReply() {
  return "<html>[Lista]<br>url|:|/texts|:|Harbour Version|:|HARBOUR<br>"
         "url|:|/texts/|:|Hillside Version, Old Testament|:|HILLSIDE<br></html>";
}

inline QByteArray SuggestedVideo() {
  return QByteArray("not a picture in it ").repeated(5000);
}

// A line of Data\content.dat.
inline QByteArray ContentLine(const QByteArray &title, const QByteArray &address, const QByteArray &video) {
  return title + "|#|" + address + "|#|" + QByteArray::number(video.size()) + "|#|" +
         QCryptographicHash::hash(video, QCryptographicHash::Sha256).toHex() + "\r\n";
}

// The maker's own services: the list of versions with their files, the question for updates, and a suggested video.
inline void PlayServices(SiteServer &server) {
  server.Page("/Arquivos/BibleText/biblelist.php", BibleListReply());
  server.Page("/texts/OLD_HARBOUR.txt", TinyVersion("Genesis", "The tide went out."), "text/plain");
  server.Page("/texts/NEW_HARBOUR.txt", TinyVersion("Matthew", "The tide came in."), "text/plain");
  server.Page("/texts/OLD_HILLSIDE.txt", TinyVersion("Genesis", "The hill stood."), "text/plain");
  server.Page("/update.php", "ok!*!stable!*!2.0.0!*!https://downloads.example/Instalar.exe!*!Calmer fades.");
  server.Page("/videos/harbour.mp4", SuggestedVideo(), "video/mp4");
}

// What the program folder's Data\content.dat says of it.
inline QByteArray ServicesContentList(const SiteServer &server) {
  return "; Suggested videos\r\n" +
         ContentLine("Harbour at dawn", server.Host().toLatin1() + "/videos/harbour.mp4", SuggestedVideo());
}

} // namespace tolmira::testing
