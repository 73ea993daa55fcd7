#include "console/console_fixture.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// A camera on a console that shows one thing after the other.
class TestCameraWiring : public QObject {
  Q_OBJECT

  static bool Started(const RecordingPage &page) { return page.scripts.contains(QStringLiteral("startWebcam(0)")); }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void aCameraStaysBehindSongsAndEndsWithThem() {
    ConsoleFixture f;
    f.Write(QStringLiteral("Lyrics/Canto.txt"), TresEstrofes);
    f.WriteSlides(QStringLiteral("Culto.sld"), 2);
    f.Show(QStringLiteral("Canto"));
    f.core.contexto.descreve();
    QVERIFY(f.core.painel.camera.Pode);
    f.core.cameras.Abre();
    f.core.cameras.Respondeu(QStringLiteral("http://indexcam//?Lens%7C"), Alvo::Previa);
    f.core.cameras.Liga(0);
    f.core.cameras.Respondeu(QStringLiteral("http://webcam//?0%7Caberta"), Alvo::Telao);
    f.core.contexto.descreve();
    QCOMPARE(f.core.painel.situacao.LbDetalheTela, QStringLiteral("Camera: Lens"));
    QVERIFY(Started(f.display.page) && Started(f.preview));

    // Both pages are built anew with the next theme, and one of them when its process died.
    f.Forget();
    bool force = true;
    f.core.temaControle.aplicaTema(2, force);
    QVERIFY(Started(f.display.page) && Started(f.preview));
    f.Forget();
    f.core.PaginaVoltou(Alvo::Telao);
    QVERIFY(Started(f.display.page) && !Started(f.preview));

    f.Forget();
    f.core.flow.ShowEntry(5, 1, QStringLiteral("Culto"), QStringLiteral("Culto.sld"));
    f.core.contexto.descreve();
    QVERIFY(!f.core.painel.camera.Pode);
    QCOMPARE(f.core.cameras.Ligada(), -1);
    f.Show(QStringLiteral("Canto"));
    f.core.contexto.descreve();
    QVERIFY(f.core.painel.camera.Pode);
    QVERIFY(!Started(f.display.page) && !Started(f.preview));
  }
};

QTEST_MAIN(TestCameraWiring)
#include "test_camera_wiring.moc"
