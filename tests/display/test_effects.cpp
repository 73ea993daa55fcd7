#include "display/effects.h"
#include "support/scripted_random.h"

#include <QTest>

using namespace tolmira;
using tolmira::testing::ScriptedRandom;

class TestEffects : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void results_data() {
    QTest::addColumn<GrupoEfeito>("grupo");
    QTest::addColumn<QString>("familia");
    QTest::addColumn<QString>("variante");
    QTest::addColumn<QString>("resultado");
    const auto row = [](GrupoEfeito grupo, const char *familia, const char *variante, const char *resultado) {
      QTest::addRow("%s/%s", familia, variante)
          << grupo << QString::fromLatin1(familia) << QString::fromLatin1(variante) << QString::fromLatin1(resultado);
    };
    row(GrupoEfeito::Imagem, "Fade", "x", "fade");
    row(GrupoEfeito::Imagem, "Fade Zoom", "", "fadeZoom");
    row(GrupoEfeito::Imagem, "Cover", "Cover Out", "uncover");
    row(GrupoEfeito::Imagem, "Turn", "Turn Left", "turnLeft");
    row(GrupoEfeito::Imagem, "Turn", "Scroll Left", "");
    row(GrupoEfeito::Imagem, "cover", "Cover In", "");
    row(GrupoEfeito::Imagem, "Pulse", "", "");
    row(GrupoEfeito::Imagem, "none", "Random", "");
    row(GrupoEfeito::Imagem, "", "", "");
    row(GrupoEfeito::Texto, "FadeIn", "FadeIn Left", "fadeInLeft");
    row(GrupoEfeito::Texto, "Fade", "FadeIn Left", "fadeIn");
    row(GrupoEfeito::Texto, "Flip", "", "flipInY");
    row(GrupoEfeito::Texto, "LightIn", "Random", "lightSpeedIn");
    row(GrupoEfeito::Texto, "FadeIn", "", "");
    row(GrupoEfeito::Texto, "none", "", "");
    row(GrupoEfeito::Texto, "Selecionados", "effect 3", "efeitoEsquize");
    row(GrupoEfeito::Texto, "Selecionados", "effect 4", "efeitoRotate");
    row(GrupoEfeito::Texto, "Selecionados", "effect 10", "efeitoEsticaY");
  }
  void results() {
    QFETCH(GrupoEfeito, grupo);
    QFETCH(QString, familia);
    QFETCH(QString, variante);
    QFETCH(QString, resultado);
    ScriptedRandom random{0.99};
    QCOMPARE(grupo == GrupoEfeito::Imagem ? EfeitoCycle(familia, variante, random)
                                          : EfeitoTexto(familia, variante, random),
             resultado);
    QCOMPARE(random.Count(), 0);
  }

  // Whatever the combo boxes offer must mean something to the page.
  void everyOfferedChoiceHasAResult() {
    ScriptedRandom random{0.0, 0.5, 0.999};
    for (const GrupoEfeito grupo : {GrupoEfeito::Imagem, GrupoEfeito::Texto}) {
      const auto effect = grupo == GrupoEfeito::Imagem ? EfeitoCycle : EfeitoTexto;
      for (const QString &familia : FamiliasDeEfeito(grupo, DirecaoEfeito::In)) {
        const QStringList variantes = VariantesDeEfeito(grupo, familia, DirecaoEfeito::In);
        if (variantes.isEmpty())
          QCOMPARE(effect(familia, QString(), random).isEmpty(), familia == u"none");
        for (const QString &variante : variantes)
          QVERIFY2(!effect(familia, variante, random).isEmpty(), qPrintable(variante));
      }
    }
  }

  void combos() {
    QCOMPARE(FamiliasDeEfeito(GrupoEfeito::Imagem, DirecaoEfeito::In).join(u','),
             QStringLiteral("none,Cover,Curtain,Fade,Fade Zoom,Grow,Scroll,Shuffle,Slide,Toss,Turn"));
    QCOMPARE(FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::In).join(u','),
             QStringLiteral("none,Selecionados,Pulse,Bounce,BounceIn,Fade,FadeIn,Flip,LightIn,Rotate,RotateIn,"
                            "JackInTheBox,Roll,Zoom,ZoomIn,SlideIn"));
    const QStringList exits = FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::Out);
    QCOMPARE(exits.size(), 33);
    QCOMPARE(exits.first(), QStringLiteral("none"));
    QCOMPARE(exits.last(), QStringLiteral("slideOutUp"));
    QCOMPARE(VariantesDeEfeito(GrupoEfeito::Imagem, QStringLiteral("Scroll"), DirecaoEfeito::Out).join(u','),
             QStringLiteral("Scroll Up,Scroll Down,Scroll Left,Scroll Right,Random"));
    QCOMPARE(VariantesDeEfeito(GrupoEfeito::Texto, QStringLiteral("SlideIn"), DirecaoEfeito::In).join(u','),
             QStringLiteral("SlideIn Left,SlideIn Right,Random"));
    QVERIFY(VariantesDeEfeito(GrupoEfeito::Texto, QStringLiteral("SlideIn"), DirecaoEfeito::Out).isEmpty());
    QVERIFY(VariantesDeEfeito(GrupoEfeito::Texto, QStringLiteral("Fade"), DirecaoEfeito::In).isEmpty());
  }

  void randomDrawsAnewAtEachCall() {
    ScriptedRandom random{0.0, 0.25, 0.5, 0.999};
    QStringList drawn;
    for (int i = 0; i < 4; ++i)
      drawn << EfeitoCycle(QStringLiteral("Scroll"), QStringLiteral("Random"), random);
    QCOMPARE(drawn.join(u','), QStringLiteral("scrollUp,scrollDown,scrollLeft,scrollRight"));
  }

  void theSelectedEffectsDrawFromTheirOwnWeightedList() {
    const QStringList list = ListaEfeitosSelecionados.split(u',');
    QCOMPARE(list.size(), 19);
    QCOMPARE(list.count(QStringLiteral("efeitoZoomOutAndRotate2")), 2);
    ScriptedRandom random{4.5 / 19};
    QCOMPARE(EfeitoTexto(QStringLiteral("Selecionados"), QStringLiteral("Random"), random),
             QStringLiteral("efeitoZoomOutAndRotate2"));
  }

  void aDrawAtTheRimStaysInsideTheList() {
    ScriptedRandom random{1.0};
    QCOMPARE(SorteiaEfeito(QStringLiteral("a,b"), random), QStringLiteral("b"));
    QCOMPARE(SorteiaEfeito(QString(), random), QString());
  }
};

QTEST_GUILESS_MAIN(TestEffects)
#include "test_effects.moc"
