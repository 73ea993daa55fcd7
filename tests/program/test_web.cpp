#include "remote_program.h"
#include "support/files.h"
#include "support/sites/all_sites.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

// What the program brings from the web, by its own clients and windows, from sites that are played here.
class TestWeb : public QObject {
  Q_OBJECT

private slots:
  void initTestCase() {
    QVERIFY(m_program.Start()); // which fills the folder
    PlayAllSites(m_sites);
    PointAllAt(IniStore(AppFolder(m_folder.path())), m_sites);
  }

  void cleanupTestCase() {
    QVERIFY(m_program.Quit());
    QCOMPARE(m_program.Process().exitCode(), 0);
    QVERIFY2(!m_program.Output().contains("Uncaught"), m_program.Output().constData());
  }

  void lyricsBecomeASong() {
    Click("FrmMonitor", "MnAcoesLetras");
    Set("FrmBusca", "Text1", QStringLiteral("luz na janela"));
    Click("FrmBusca", "Command1");
    QTRY_VERIFY_WITH_TIMEOUT(!Rows("FrmBusca", "List1").isEmpty(), 20000);
    Set("FrmBusca", "List1", 0);
    QTRY_COMPARE_WITH_TIMEOUT(Read("FrmBusca", "Text3"), QStringLiteral("Luz na Janela"), 20000);
    Click("FrmBusca", "CmdAddLista");
    Answer();
    const QString song = QStringLiteral("Luz na Janela (Coro da Vila)");
    QTRY_VERIFY(QFile::exists(m_folder.filePath(u"Lyrics/" + song + u".txt")));
    Click("FrmBusca", "CmdFechar");
    Show(2, song, song);
    QVERIFY(m_program.WaitFor(QStringLiteral("TituloAtual"), song));
    m_program.Do(QStringLiteral("key"), {{QStringLiteral("key"), QStringLiteral("Down")}});
    QVERIFY(m_program.WaitFor(QStringLiteral("EstrofeAtual"), 1));
  }

  void aPictureComesIntoTheGallery() {
    const QDir images(m_folder.filePath(QStringLiteral("Images")));
    const qsizetype before = images.entryList(QDir::Files).size();
    Click("FrmMonitor", "MnAcoesImagens");
    Set("FrmImageNet", "TxtPesquisa", QStringLiteral("sea and sky"));
    Click("FrmImageNet", "CmdPesquisar");
    QTRY_COMPARE_WITH_TIMEOUT(Read("FrmImageNet", "Label1"), QStringLiteral("Page 1"), 20000);
    // The engine draws the table before it takes the keys, and tells of them by and by.
    for (int tries = 0; tries < 10 && !Visible("FrmImageNet", "BtAdicionar"); ++tries) {
      Key("Right");
      Key("Return");
      for (int turn = 0; turn < 20 && !Visible("FrmImageNet", "BtAdicionar"); ++turn)
        QTest::qWait(100);
    }
    Click("FrmImageNet", "BtAdicionar");
    QTRY_COMPARE_WITH_TIMEOUT(images.entryList(QDir::Files).size(), before + 1, 20000);
    Key("Escape");
    Key("Escape");
  }

  void aVersionOfTheBibleComesIntoTheMenu() {
    Click("FrmMonitor", "MnBuscaVersoes");
    Set("FrmBaixarBiblia", "Text1", QStringLiteral("harbour"));
    Click("FrmBaixarBiblia", "Command1");
    QTRY_VERIFY_WITH_TIMEOUT(RowOf("FrmBaixarBiblia", "List1", QStringLiteral("Harbour")) >= 0, 20000);
    Set("FrmBaixarBiblia", "List1", RowOf("FrmBaixarBiblia", "List1", QStringLiteral("Harbour")));
    Key("Space");
    Click("FrmBaixarBiblia", "Command3");
    for (const char *file : {"Bible/OLD_HARBOUR.txt", "Bible/NEW_HARBOUR.txt"})
      QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_folder.filePath(QLatin1String(file))), 20000);
    Key("Escape");
  }

  void aVideoOfTheWebRunsUntilTheNextItem() {
    const QString link = m_sites.Host() + QStringLiteral("/embed/Still_Water1");
    Show(4, QStringLiteral("Still water"), link);
    QVERIFY(m_program.WaitFor(QStringLiteral("TipoAtual"), QStringLiteral("Youtube")));
    QTRY_COMPARE_WITH_TIMEOUT(m_program.Eval(QStringLiteral("display"), QStringLiteral("location.href")),
                              QString(link + QStringLiteral("?autoplay=1")), 20000);
    const QString running =
        QStringLiteral("document.querySelector('video') && !document.querySelector('video').paused");
    QTRY_COMPARE_WITH_TIMEOUT(m_program.Eval(QStringLiteral("display"), running), QStringLiteral("true"), 20000);
    Click("FrmYoutubeCtrl", "ImagePlay");
    QTRY_COMPARE_WITH_TIMEOUT(m_program.Eval(QStringLiteral("display"), running), QStringLiteral("false"), 20000);
    Show(2, QStringLiteral("Quiet Water"), QStringLiteral("Quiet Water"));
    QVERIFY(m_program.WaitFor(QStringLiteral("TipoAtual"), QStringLiteral("Louvor")));
    m_program.Do(QStringLiteral("key"), {{QStringLiteral("key"), QStringLiteral("Down")}});
    QTRY_VERIFY(m_program.Eval(QStringLiteral("display"), QStringLiteral("location.href")).contains(u"file:"));
    QTRY_VERIFY(m_program.Window(QStringLiteral("FrmYoutubeCtrl")).isEmpty());
  }

private:
  void Click(const char *window, const char *control) {
    const QJsonObject answer = m_program.Do(QStringLiteral("click"), With(window, control));
    QVERIFY2(answer.value(QStringLiteral("ok")).toBool(), qPrintable(answer.value(QStringLiteral("error")).toString()));
  }
  void Set(const char *window, const char *control, const QJsonValue &value) {
    QJsonObject with = With(window, control);
    with.insert(QStringLiteral("value"), value);
    const QJsonObject answer = m_program.Do(QStringLiteral("set"), with);
    QVERIFY2(answer.value(QStringLiteral("ok")).toBool(), qPrintable(answer.value(QStringLiteral("error")).toString()));
  }
  QJsonObject Control(const char *window, const char *control) {
    const QJsonObject answer =
        m_program.Do(QStringLiteral("controls"), {{QStringLiteral("window"), QLatin1String(window)}});
    for (const QJsonValue &one : answer.value(QStringLiteral("controls")).toArray())
      if (one.toObject().value(QStringLiteral("name")) == QLatin1String(control))
        return one.toObject();
    return {};
  }
  QString Read(const char *window, const char *control) {
    return m_program.Do(QStringLiteral("read"), With(window, control)).value(QStringLiteral("text")).toString();
  }
  QJsonArray Rows(const char *window, const char *control) {
    return m_program.Do(QStringLiteral("read"), With(window, control)).value(QStringLiteral("items")).toArray();
  }
  bool Visible(const char *window, const char *control) {
    return Control(window, control).value(QStringLiteral("visible")).toBool();
  }
  int RowOf(const char *window, const char *control, const QString &text) {
    const QJsonArray rows = Rows(window, control);
    for (qsizetype i = 0; i < rows.size(); ++i)
      if (rows[i].toString().contains(text))
        return static_cast<int>(i);
    return -1;
  }
  void Key(const char *key) { m_program.Do(QStringLiteral("key"), {{QStringLiteral("key"), QLatin1String(key)}}); }
  void Answer() {
    const QJsonObject answer =
        m_program.Do(QStringLiteral("answer"), {{QStringLiteral("button"), QStringLiteral("OK")}});
    QVERIFY2(answer.value(QStringLiteral("ok")).toBool(), qPrintable(answer.value(QStringLiteral("error")).toString()));
  }
  void Show(int kind, const QString &label, const QString &target) {
    m_program.Do(
        QStringLiteral("show"),
        {{QStringLiteral("kind"), kind}, {QStringLiteral("label"), label}, {QStringLiteral("target"), target}});
  }
  static QJsonObject With(const char *window, const char *control) {
    return {{QStringLiteral("window"), QLatin1String(window)}, {QStringLiteral("control"), QLatin1String(control)}};
  }

  QTemporaryDir m_folder;
  SiteServer m_sites;
  RemoteProgram m_program{m_folder.path()};
};

QTEST_GUILESS_MAIN(TestWeb)
#include "test_web.moc"
