#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include "console/console_core.h"
#include "console/monitors.h"
#include "display/FrmQuendar.h"
#include "display/page_fixture.h"
#include "foundation/real_seams.h"
#include "support/counting_yielder.h"
#include "support/fake_clock.h"
#include "support/scripted_prompt.h"
#include "support/scripted_random.h"
#include "support/web_fixture.h"

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// The lines of the verse as they stand on a page: the words of each, by where the engine drew them.
const QString Linhas = QStringLiteral(R"((() => {
  const lines = [];
  let top = null, block = null;
  const walker = document.createTreeWalker(document.getElementById('texto'), NodeFilter.SHOW_TEXT);
  for (let node = walker.nextNode(); node; node = walker.nextNode()) {
    for (const word of node.data.matchAll(/\S+/g)) {
      const range = document.createRange();
      range.setStart(node, word.index);
      range.setEnd(node, word.index + word[0].length);
      for (const rect of range.getClientRects()) {
        if (top === null || node.parentNode !== block || rect.top - top > rect.height / 2)
          lines.push([]);
        if (!lines.at(-1).includes(word.index + word[0]))
          lines.at(-1).push(word.index + word[0]);
        [top, block] = [rect.top, node.parentNode];
      }
    }
  }
  return lines.map((words) => words.map((w) => w.replace(/^\d+/, '')).join(' '));
})())");

class View : public ConsoleView {
public:
  void Atualiza() override {}
  void StripMoved() override {}
  void AgendaChanged() override {}
  void ThemesChanged() override {}
  void FocusStrip() override {}
  int PreviewWidthPx() const override { return width; }
  int width = 320;
};

// A console whose two pages are real: the projection in its window and the preview beside it.
class TwoPages {
public:
  TwoPages(const AppFolder &folder, const QSize &tela, const QSize &container)
      : app(folder), store(app), profile(NewPageProfile()),
        core({app, store, clock, random, yielder, prompt, measure, [this]() -> tolmira::Display * { return telao.get(); },
              [this] { return previa ? previa->WV() : nullptr; }}) {
    telao = std::make_unique<FrmQuendar>(
        FrmQuendar::Parts{core.estado, core.legenda, app, clock, nullptr, nullptr, VideoDrawing::Software, profile});
    previa = std::make_unique<WebPageHost>(QStringLiteral("preview"), nullptr, profile);
    previa->resize(AjustaPreview(container, tela).size());
    view.width = previa->width();
    core.contexto.view = &view;
    core.estado.ConsoleCarregado = core.estado.TelaPronta = core.estado.EnviarAoTelao = true;
    core.faixa.PainelLargura = 480 * TwipsPerPixel;
    core.faixa.PainelAltura = 400 * TwipsPerPixel;
    telao->Posiciona(QRect(QPoint(0, 0), tela), false);
    telao->CriaBrowser();
    previa->CriaBrowser();
    previa->show();
    core.temas[1].Tipo = QStringLiteral("CorDeFundo");
    core.temas[1].Font_Name = QStringLiteral("Liberation Sans");
    bool forcar = false;
    core.temaControle.aplicaTema(1, forcar);
    telao->ProcessaComando(QStringLiteral("Show"));
  }
  ~TwoPages() {
    core.contexto.view = nullptr;
    previa.reset();
    telao.reset();
  }

  // The verse's lines on both pages, as soon as they have an answer. Pages work in the order in which they are asked, so
  // many verses can be asked for before the first is waited for.
  struct Answers {
    QString verse;
    QJsonArray projection;
    QJsonArray preview;
  };
  void Ask(std::shared_ptr<Answers> answers) {
    open += 2;
    const auto into = [this, answers](QJsonArray Answers::*side) {
      return [this, answers, side](const QString &json) {
        (*answers).*side = QJsonDocument::fromJson(json.toUtf8()).array();
        if (--open == 0)
          loop.quit();
      };
    };
    telao->WV()->Evaluate(Linhas, into(&Answers::projection));
    previa->WV()->Evaluate(Linhas, into(&Answers::preview));
  }
  void Wait() {
    if (open > 0)
      loop.exec();
  }

  AppFolder app;
  IniStore store;
  FakeClock clock;
  ScriptedRandom random{0.5};
  CountingYielder yielder;
  ScriptedPrompt prompt;
  FontTextMeasure measure;
  PageProfile profile;
  std::unique_ptr<FrmQuendar> telao;
  std::unique_ptr<WebPageHost> previa;
  View view;
  ConsoleCore core;
  int open = 0; // answers that have not come
  QEventLoop loop;
};

} // namespace

// The preview beside the projection, both on the real engine.
class PreviewTest : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() {
    const QDir source(qEnvironmentVariable("TOLMIRA_SOURCE_DIR"));
    QDir app(m_pages.appPath());
    for (const char *name : {"Lyrics", "Harpa", "Cantor"}) {
      const QString folder = QLatin1String(name);
      QVERIFY(app.mkpath(folder));
      const QDir songs(source.filePath(u"assets/sample/" + folder));
      for (const QString &song : songs.entryList(QDir::Files)) {
        QVERIFY(QFile::copy(songs.filePath(song), app.filePath(folder + u'/' + song)));
        m_songs.append({folder == u"Lyrics" ? 2 : 3, QFileInfo(song).completeBaseName()});
      }
    }
    QVERIFY(app.mkpath(QStringLiteral("Data")));
    QVERIFY(m_songs.size() > 8);
  }
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void linesBreakAsOnTheProjection_data() {
    QTest::addColumn<QSize>("tela");
    QTest::addColumn<QSize>("container");
    QTest::newRow("16:9") << QSize(1280, 720) << QSize(322, 400);
    QTest::newRow("4:3") << QSize(1024, 768) << QSize(258, 400);
  }

  // At sizes that come out as whole points on the preview every line is broken where the projection breaks it. At the
  // sizes between, which the preview rounds, the differences are counted and told.
  void linesBreakAsOnTheProjection() {
    QFETCH(QSize, tela);
    QFETCH(QSize, container);
    TwoPages pages(AppFolder(m_pages.appPath()), tela, container);
    ConsoleCore &core = pages.core;
    const int quociente = tela.width() / pages.view.width;
    QCOMPARE(quociente * pages.view.width, tela.width());

    std::vector<std::shared_ptr<TwoPages::Answers>> whole;
    std::vector<std::shared_ptr<TwoPages::Answers>> between;
    for (int estilo = 0; estilo <= 8; ++estilo) {
      core.ajustes.EstiloLouvor = estilo;
      for (const auto &[kind, song] : m_songs) {
        core.flow.ShowEntry(kind, 0, song, song);
        const int fitted = core.estado.FonteTamanho.toInt();
        QVERIFY2(fitted >= quociente && core.estado.TotalEstrofes > 0, qPrintable(song));
        for (const int size : QSet<int>{fitted - fitted % quociente, fitted}) {
          core.estado.FonteTamanho = QString::number(size);
          core.contexto.EnviaTamanhoDaFonte();
          for (int verso = 1; verso <= core.estado.TotalEstrofes; ++verso) {
            if (core.estado.TextoEstrofes.value(verso - 1).isEmpty())
              continue;
            core.letras.ExibeVerso(verso, false);
            auto &answers = (size % quociente == 0 ? whole : between).emplace_back(new TwoPages::Answers);
            answers->verse = QStringLiteral("style %1, %2 pt, %3, verse %4").arg(estilo).arg(size).arg(song).arg(verso);
            pages.Ask(answers);
          }
        }
      }
      pages.Wait();
    }
    const auto differences = [](const std::vector<std::shared_ptr<TwoPages::Answers>> &verses) {
      QStringList found;
      for (const auto &v : verses)
        if (v->projection.isEmpty() || v->projection != v->preview)
          found << v->verse + u": " + QString::fromUtf8(QJsonDocument(v->projection).toJson(QJsonDocument::Compact)) +
                       u" / " + QString::fromUtf8(QJsonDocument(v->preview).toJson(QJsonDocument::Compact));
      return found;
    };
    const QStringList faults = differences(whole);
    const QStringList rounded = differences(between);
    const int compared = int(whole.size());
    qInfo("%d verses at whole points, %d between: %d and %d break differently", compared, int(between.size()),
          int(faults.size()), int(rounded.size()));
    for (const QString &difference : std::as_const(rounded))
      qInfo().noquote() << difference;
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    QVERIFY(compared > 100);
  }

private:
  PageFixture m_pages;
  QList<QPair<int, QString>> m_songs; // kind and name
};

QTEST_MAIN(PreviewTest)
#include "ui_test_preview.moc"
