#pragma once

#include "web/endpoints.h"

#include <QString>
#include <QUrl>

namespace tolmira {

// It names the site of web videos.
bool EhVideoDaWeb(const QString &texto);

// The site of web videos: the configured one and the hosts by which it is known. What is not of it is never put on the
// projection, whatever an agenda or a page says.
class VideoSite {
public:
  explicit VideoSite(const IniStore &store) : m_endpoints(store) {}

  bool EhDoSite(const QUrl &url) const; // a page of the web there

  // What a link of an agenda's entry has the projection load, without "?autoplay=1": an embed address as it stands
  // (but over https, for what comes over http anyone in the hall's network could have written), and that of the video
  // where the link names it in another way. Empty when it is neither: the site's other pages are not for the hall.
  QString EnderecoDoTelao(const QString &link) const;
  // A server may send a load of the projection on to another page of a video, and nowhere else: pages that ask for
  // consent or a password are not for the hall.
  bool PodeNoTelao(const QUrl &url) const;
  // The operator may look at it in the dialog: pages of the site, and those by which it asks who he is.
  bool PodeNoDialogo(const QUrl &url) const;

  QString Embed(const QString &id) const; // the address by which that video is embedded
  // The same out of what people paste: the address of its page, a short link, or the embed address itself. Empty when
  // it is none.
  QString LinkDe(const QString &colado) const;
  QUrl Busca(const QString &termo) const; // of the results; invalid while no site is configured
  QUrl Inicio() const;                    // its first page, likewise
  QString PorQueNao() const { return m_endpoints.PorQueNao(Endpoint::VideosWeb); }

private:
  bool EhEmbed(const QUrl &url) const; // by its path
  QUrl Base() const { return m_endpoints.Endereco(Endpoint::VideosWeb, QString()); }

  Endpoints m_endpoints;
};

// Letters, digits, "_" and "-", 64 at the most.
bool EhIdDeVideo(QStringView id);

} // namespace tolmira
