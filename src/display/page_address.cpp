#include "display/page_address.h"

#include "foundation/real_path.h"

#include <QFileInfo>

namespace tolmira {

namespace {

QUrl FileAddress(const QString &stored) {
  return QUrl::fromLocalFile(MapStoredPath(stored).text());
}

bool Exists(const QString &stored) {
  return QFileInfo::exists(MapStoredPath(stored).text());
}

} // namespace

QUrl PageAddress(const QString &text) {
  QString address = text;
  address.remove(u'\r').remove(u'\n');
  if (!address.startsWith(u"file:", Qt::CaseInsensitive)) {
    if (address.contains(u"://") || address.startsWith(u"about:"))
      return QUrl(address);
    return FileAddress(address);
  }

  QString path = address.mid(5).replace(u'\\', u'/');
  while (path.startsWith(u"//"))
    path.remove(0, 1);
  if (!path.startsWith(u'/'))
    path.prepend(u'/');
  // A name may hold "%" or "?" itself, so the text as it stands goes first.
  if (Exists(path))
    return FileAddress(path);
  const QString decoded = QString::fromUtf8(QByteArray::fromPercentEncoding(path.toUtf8()));
  if (Exists(decoded))
    return FileAddress(decoded);
  const QUrl parsed(u"file://" + path);
  if (Exists(parsed.path(QUrl::FullyDecoded))) {
    QUrl result = FileAddress(parsed.path(QUrl::FullyDecoded));
    result.setQuery(parsed.query(QUrl::FullyEncoded));
    result.setFragment(parsed.fragment(QUrl::FullyEncoded));
    return result;
  }
  return FileAddress(decoded);
}

} // namespace tolmira
