#include "display/ui/graphics_backend.h"

#include <QTest>

using namespace tolmira;

class TestGraphicsBackend : public QObject {
  Q_OBJECT

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    qunsetenv("QT_QUICK_BACKEND");
    qunsetenv("QTWEBENGINE_CHROMIUM_FLAGS");
    qunsetenv("QT_XCB_GL_INTEGRATION");
  }

  void knowsEmulatedRenderers_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("emulated");
    QTest::newRow("none") << QByteArray() << true;
    QTest::newRow("llvmpipe") << QByteArray("llvmpipe (LLVM 15.0.6, 256 bits)") << true;
    QTest::newRow("softpipe") << QByteArray("softpipe") << true;
    QTest::newRow("classic") << QByteArray("Software Rasterizer") << true;
    QTest::newRow("swiftshader") << QByteArray("ANGLE (Google, Vulkan 1.3 (SwiftShader Device))") << true;
    QTest::newRow("intel") << QByteArray("Mesa Intel(R) UHD Graphics 620 (KBL GT2)") << false;
    QTest::newRow("nvidia") << QByteArray("NVIDIA GeForce GTX 1650/PCIe/SSE2") << false;
    QTest::newRow("guest") << QByteArray("virgl (AMD Radeon RX 6600)") << false;
  }
  void knowsEmulatedRenderers() {
    QFETCH(QByteArray, name);
    QFETCH(bool, emulated);
    QCOMPARE(RendererIsEmulated(name), emulated);
  }

  void softwareSetsTheEnvironment() {
    QCOMPARE(ChooseGraphicsBackend(GraphicsBackend::Software), GraphicsBackend::Software);
    QCOMPARE(qgetenv("QT_QUICK_BACKEND"), QByteArray("software"));
    QVERIFY(qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").split(' ').contains("--disable-gpu"));
    QCOMPARE(qgetenv("QT_XCB_GL_INTEGRATION"), QByteArray("none"));
  }

  void glLeavesTheEnvironmentAlone() {
    QCOMPARE(ChooseGraphicsBackend(GraphicsBackend::Gl), GraphicsBackend::Gl);
    QVERIFY(!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"));
    QVERIFY(!qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--disable-gpu"));
  }

  void theUsersEnvironmentWins() {
    qputenv("QT_QUICK_BACKEND", "rhi");
    QCOMPARE(ChooseGraphicsBackend(GraphicsBackend::Software), GraphicsBackend::Gl);
    QCOMPARE(qgetenv("QT_QUICK_BACKEND"), QByteArray("rhi"));
    qputenv("QT_QUICK_BACKEND", "software");
    QCOMPARE(ChooseGraphicsBackend(GraphicsBackend::Gl), GraphicsBackend::Software);
  }

  void addsFlagsOnce_data() {
    QTest::addColumn<QByteArray>("present");
    QTest::addColumn<QByteArray>("result");
    QTest::newRow("none") << QByteArray() << QByteArray("--a --b=1");
    QTest::newRow("other") << QByteArray("--c") << QByteArray("--c --a --b=1");
    QTest::newRow("same") << QByteArray("--a") << QByteArray("--a --b=1");
    QTest::newRow("other value") << QByteArray(" --b=7  --a ") << QByteArray("--b=7  --a");
  }
  void addsFlagsOnce() {
    QFETCH(QByteArray, present);
    QFETCH(QByteArray, result);
    QCOMPARE(WithFlags(present, "--a --b=1"), result);
  }
};

QTEST_GUILESS_MAIN(TestGraphicsBackend)
#include "ui_test_graphics_backend.moc"
