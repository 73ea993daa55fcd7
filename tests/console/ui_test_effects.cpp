#include "console/ui/effects_panel.h"
#include "console_fixture.h"
#include "support/ui_warnings.h"

#include <QComboBox>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// The panel of effects over the console's logic: it shows what the theme in force says and sends nothing by that.
class UiTestEffects : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(UnexpectedWarning()); }

  void anAppliedThemeSetsTheControlsWithoutSending() {
    ConsoleFixture fixture;
    EffectsPanel panel(ConsoleParts::Of(fixture.core), nullptr);
    TemaRecord &tema = fixture.core.estado.TemaAtual;
    tema.brightness = 60;
    tema.blur = 4;
    tema.MoveImagens = true;
    tema.Efeito_Imagem_Fx = QStringLiteral("Turn");
    tema.Efeito_Imagem_FxExtra = QStringLiteral("Turn Up");
    panel.ThemesChanged();
    QCOMPARE(panel.findChild<QSlider *>(QStringLiteral("slider1"))->value(), 60);
    QCOMPARE(panel.findChild<QSlider *>(QStringLiteral("slider5"))->value(), 4);
    QVERIFY(panel.findChild<QPushButton *>(QStringLiteral("ChkMoveImagem"))->isChecked());
    QCOMPARE(panel.findChild<QComboBox *>(QStringLiteral("ComboEfeitoImagemExtra"))->currentText(),
             QStringLiteral("Turn Up"));
    QVERIFY2(fixture.journal.isEmpty(), qPrintable(fixture.journal.join(u'\n')));
  }

  void aHandOnTheControlsReachesThePages() {
    ConsoleFixture fixture;
    EffectsPanel panel(ConsoleParts::Of(fixture.core), nullptr);
    fixture.core.temaControle.ReapresentaTexto = nullptr;
    auto *family = panel.findChild<QComboBox *>(QStringLiteral("ComboEfeitoImagem"));
    auto *variant = panel.findChild<QComboBox *>(QStringLiteral("ComboEfeitoImagemExtra"));
    panel.show();
    panel.ThemesChanged();
    QVERIFY(!variant->isVisible()); // the theme's Fade has no variants
    family->setFocus();
    QTest::keyClick(family, Qt::Key_Home);
    QTest::keyClicks(family, QStringLiteral("Scr"));
    QCOMPARE(fixture.core.estado.TemaAtual.Efeito_Imagem_Fx, QStringLiteral("Scroll"));
    panel.ThemesChanged();
    QVERIFY(variant->isVisible());
    QCOMPARE(variant->currentText(), QStringLiteral("Random"));
    fixture.Forget();
    QTest::keyClick(variant, Qt::Key_Home);
    QCOMPARE(fixture.display.commands, QStringList{QStringLiteral("ChangeOptions|#fx|#scrollUp|#")});

    auto *saturation = panel.findChild<QSlider *>(QStringLiteral("slider4"));
    QTest::keyClick(saturation, Qt::Key_Home);
    QCOMPARE(fixture.core.estado.TemaAtual.saturate, 0);

    auto *move = panel.findChild<QPushButton *>(QStringLiteral("ChkMoveImagem"));
    fixture.core.estado.ImagensCongeladas = true;
    QTest::mouseClick(move, Qt::LeftButton);
    panel.ThemesChanged(); // as the console's view is told
    QVERIFY2(!move->isChecked(), "a tick that was refused goes away again");

    fixture.prompt.colours = {0x0000ff};
    QTest::mouseClick(panel.findChild<QPushButton *>(QStringLiteral("SelectColors1")), Qt::LeftButton);
    QCOMPARE(fixture.core.estado.TemaAtual.CordeFundo, 0x0000ff);
    QCOMPARE(fixture.prompt.colourQuestions.size(), 1);
  }
};

QTEST_MAIN(UiTestEffects)
#include "ui_test_effects.moc"
