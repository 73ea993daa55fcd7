#include "display/ui/mpv_nodes.h"

#include <QStringList>
#include <utility>

namespace tolmira {

namespace {

// A member of a node that is a map; null where there is none.
const mpv_node *Member(const mpv_node &map, const char *name) {
  if (map.format != MPV_FORMAT_NODE_MAP)
    return nullptr;
  for (int i = 0; i < map.u.list->num; ++i)
    if (qstrcmp(map.u.list->keys[i], name) == 0)
      return &map.u.list->values[i];
  return nullptr;
}

QString TextOf(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_STRING ? QString::fromUtf8(node->u.string) : QString();
}

bool IsSet(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_FLAG && node->u.flag;
}

int64_t NumberOf(const mpv_node *node) {
  return node && node->format == MPV_FORMAT_INT64 ? node->u.int64 : 0;
}

} // namespace

void MpvArguments::Set(const char *name, QByteArray value) {
  m_names.push_back(name);
  m_values.push_back(std::move(value));
}

mpv_node MpvArguments::Node(MpvArguments *options) {
  m_nodes.clear();
  for (QByteArray &value : m_values)
    m_nodes.push_back(mpv_node{.u = {.string = value.data()}, .format = MPV_FORMAT_STRING});
  m_listed = m_names;
  if (options) {
    m_listed.push_back("options");
    m_nodes.push_back(options->Node());
  }
  m_list = {static_cast<int>(m_nodes.size()), m_nodes.data(), const_cast<char **>(m_listed.data())};
  return mpv_node{.u = {.list = &m_list}, .format = MPV_FORMAT_NODE_MAP};
}

MpvTracks TracksOf(const mpv_node &list) {
  MpvTracks tracks;
  if (list.format != MPV_FORMAT_NODE_ARRAY)
    return tracks;
  for (int i = 0; i < list.u.list->num; ++i) {
    const mpv_node &track = list.u.list->values[i];
    const QString type = TextOf(Member(track, "type"));
    if (type == u"video" && !IsSet(Member(track, "albumart"))) {
      tracks.hasVideo = true;
      tracks.videoSelected = tracks.videoSelected || IsSet(Member(track, "selected"));
    }
    if (type != u"audio")
      continue;
    const int id = static_cast<int>(NumberOf(Member(track, "id")));
    QStringList words{TextOf(Member(track, "title")), TextOf(Member(track, "lang"))};
    words.removeAll(QString());
    tracks.sounds.append({id, words.join(QStringLiteral(", "))});
    if (IsSet(Member(track, "selected")))
      tracks.sound = id;
  }
  return tracks;
}

int64_t PlaylistEntryOf(const mpv_event &commandReply) {
  if (commandReply.error < 0)
    return 0;
  return NumberOf(Member(static_cast<mpv_event_command *>(commandReply.data)->result, "playlist_entry_id"));
}

} // namespace tolmira
