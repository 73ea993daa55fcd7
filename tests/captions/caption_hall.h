#pragma once

#include "captions/caption_server.h"
#include "captions/caption_settings.h"
#include "captions/qt_winsock.h"
#include "foundation/real_seams.h"
#include "support/files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace tolmira::testing {

// A caption server on a real port, over the page that the program brings.
class CaptionHall {
public:
  CaptionHall() {
    for (const char *sub : {"Data", "html"})
      QDir(folder.path()).mkdir(QLatin1String(sub));
    WriteBytes(folder.filePath(QStringLiteral("html/legenda.html")),
               ReadBytes(qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + QStringLiteral("/assets/html/legenda.html")));
    GravaStartOnLoad(store, true);
    // The port was free a moment ago; another program may have it by now.
    for (int tries = 0; tries < 10 && !server.Ligado(); ++tries) {
      QTcpServer free;
      free.listen(QHostAddress::Any);
      port = free.serverPort();
      free.close();
      GravaPorta(store, port);
      CarregaLegendas(store, legenda);
      server.Inicia();
    }
  }
  QString Url() const { return QStringLiteral("http://127.0.0.1:%1/captions").arg(port); }

  QTemporaryDir folder;
  AppFolder app{folder.path()};
  IniStore store{app};
  SystemClock clock;
  QtWinsock socket;
  EstadoLegenda legenda;
  quint16 port = 0;
  CaptionServer server{legenda, store, socket, clock, [] { return TabelaDeEnderecos{0, {0xc0a80105}}; }};
};

} // namespace tolmira::testing
