// A projection and its preview without the console, to be measured from outside: Down and Up put another verse on both
// pages, N changes both to the other page, V plays the video named third. Pages need the function UpdateTextHtml.

#include "display/FrmQuendar.h"
#include "display/display_channel.h"
#include "display/ui/graphics_backend.h"
#include "display/ui/web_page_host.h"
#include "foundation/real_seams.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QScreen>
#include <cstdio>

using namespace tolmira;

namespace {

class Desk : public QWidget {
public:
  Desk(FrmQuendar &window, const PageProfile &profile, QStringList files)
      : m_window(window), m_preview(QStringLiteral("preview"), this, profile), m_files(std::move(files)) {
    m_preview.setGeometry(10, 10, 400, 225);
    m_preview.CriaBrowser();
    resize(640, 480);
  }
  void ChangePage() {
    const QString url = u"file:///" + m_files.value(m_page++ % 2);
    m_preview.WV()->Navigate(url, 8);
    m_window.ProcessaComando(u"CarregaTema|#" + url);
  }

protected:
  void keyPressEvent(QKeyEvent *event) override {
    switch (event->key()) {
    case Qt::Key_N:
      ChangePage();
      break;
    case Qt::Key_V:
      m_window.ProcessaComando(u"Video|#" + m_files.value(2));
      break;
    default: {
      const QString verse = QStringLiteral("<div class=verso>Verse %1<br>and its second line</div>").arg(++m_verse);
      m_window.ProcessaComando(u"UpdateText|#" + verse + u"|#|#|#");
      CallPageScript(m_preview.WV(), QStringLiteral("UpdateTextHtml"), QString(verse));
    }
    }
  }

private:
  FrmQuendar &m_window;
  WebPageHost m_preview;
  QStringList m_files;
  int m_page = 0;
  int m_verse = 0;
};

} // namespace

int main(int argc, char **argv) {
  const GraphicsBackend backend = ChooseGraphicsBackend(GraphicsBackend::Auto);
  QApplication application(argc, argv);
  const QStringList arguments = application.arguments();
  if (arguments.size() < 3) {
    std::fprintf(stderr, "usage: projection_stand PAGE PAGE [VIDEO]\n");
    return 2;
  }
  const PageProfile profile = NewPageProfile();
  const AppFolder app(QStringLiteral("/nonexistent"));
  EstadoConsole estado;
  estado.ConsoleCarregado = true;
  SystemClock clock;
  FrmQuendar window({estado,
                     app,
                     clock,
                     nullptr,
                     {},
                     nullptr,
                     backend == GraphicsBackend::Gl ? VideoDrawing::Gl : VideoDrawing::Software,
                     profile});
  window.CriaBrowser();
  Desk desk(window, profile, arguments.mid(1));
  desk.move(0, 0);
  desk.show();
  window.Posiciona(QGuiApplication::screens().last()->geometry(), true);
  window.ProcessaComando(QStringLiteral("Show"));
  window.ProcessaComando(QStringLiteral("TelaPreta|#false"));
  desk.ChangePage();
  desk.activateWindow();
  return QApplication::exec();
}
