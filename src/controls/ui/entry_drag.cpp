#include "controls/ui/entry_drag.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace tolmira {

namespace {

const QString Format = QStringLiteral("application/x-tolmira-entry");

} // namespace

QMimeData *EntryDrag::ToMime() const {
  QByteArray bytes;
  QDataStream(&bytes, QIODevice::WriteOnly) << qint32(group) << label << target;
  auto *data = new QMimeData;
  data->setData(Format, bytes);
  data->setText(label);
  return data;
}

std::optional<EntryDrag> EntryDrag::FromMime(const QMimeData *data) {
  if (!data || !data->hasFormat(Format))
    return std::nullopt;
  QDataStream stream(data->data(Format));
  qint32 group = 0;
  EntryDrag entry;
  stream >> group >> entry.label >> entry.target;
  if (stream.status() != QDataStream::Ok || group < 1)
    return std::nullopt;
  entry.group = group;
  return entry;
}

} // namespace tolmira
