#pragma once

#include "display/display_seams.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <mpv/client.h>
#include <vector>

namespace tolmira {

// Arguments of a command of the media library by their names, whose order differs between its versions.
class MpvArguments {
public:
  void Set(const char *name, QByteArray value);
  // Points into this object and into `options`, which goes along under that name.
  mpv_node Node(MpvArguments *options = nullptr);

private:
  std::vector<const char *> m_names;
  std::vector<const char *> m_listed;
  std::vector<QByteArray> m_values;
  std::vector<mpv_node> m_nodes;
  mpv_node_list m_list{};
};

// What is in a file, as the library lists it.
struct MpvTracks {
  bool hasVideo = false;      // not counting the picture on a record's cover
  bool videoSelected = false; // and can be decoded
  QList<FaixaDeAudio> sounds;
  int sound = 0; // id of the one that is heard; 0 for none
};
MpvTracks TracksOf(const mpv_node &list); // nothing where it is no list

// The library's number of the file that a loading command was about; 0 where the answer has none.
int64_t PlaylistEntryOf(const mpv_event &commandReply);

} // namespace tolmira
