#include "make_media/scenes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>

namespace {

QDir Sample() {
  return QDir(qEnvironmentVariable("TOLMIRA_SOURCE_DIR") + u"/assets/sample");
}

// The lines of a file of the service, whose bytes are the code page's; its few accents read right as Latin-1.
QStringList Lines(const QString &path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return {};
  return QString::fromLatin1(file.readAll()).split(QStringLiteral("\r\n"));
}

} // namespace

// What a new program folder begins with has to be right as it stands: nobody looks at it before the first service.
class StarterServiceTest : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void songsSurviveTheReader_data();
  void songsSurviveTheReader();
  void hymnsHaveTheirLayout_data();
  void hymnsHaveTheirLayout();
  void agendasNameSongsThatAreThere();
  void themesNameMediaThatAreMade();
  void picturesAreDimEnoughForWhiteText_data();
  void picturesAreDimEnoughForWhiteText();
  void pictureIsTheSameEveryTime();
  void videoLoopCloses();
};

void StarterServiceTest::songsSurviveTheReader_data() {
  QTest::addColumn<QString>("path");
  for (const char *folder : {"Lyrics", "Harpa", "Cantor"}) {
    const QDir dir(Sample().filePath(QLatin1String(folder)));
    const QStringList names = dir.entryList(QDir::Files);
    for (const QString &name : names)
      QTest::newRow(qPrintable(name)) << dir.filePath(name);
  }
}

// The reader joins a line that begins with a small letter to the one before it, and drops double blanks.
void StarterServiceTest::songsSurviveTheReader() {
  QFETCH(QString, path);
  QFile file(path);
  QVERIFY(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
  QCOMPARE(bytes.count('\r'), bytes.count("\r\n"));
  QVERIFY(!bytes.endsWith("\r\n") && !bytes.startsWith("\r\n"));
  QVERIFY(!bytes.contains("\r\n\r\n\r\n"));
  const bool ascii = std::all_of(bytes.cbegin(), bytes.cend(), [](char c) { return static_cast<uchar>(c) < 0x80; });
  QVERIFY2(ascii || QString::fromUtf8(bytes).contains(QChar::ReplacementCharacter), "UTF-8 in a file of the code page");
  const QStringList lines = Lines(path);
  for (const QString &line : lines) {
    QCOMPARE(line, line.trimmed());
    QVERIFY2(!line.contains(QLatin1String("  ")), qPrintable(line));
    QVERIFY2(line.isEmpty() || !line.at(0).isLower(), qPrintable(line));
    QVERIFY2(line.size() <= 48, qPrintable(line));
  }
}

void StarterServiceTest::hymnsHaveTheirLayout_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<bool>("chorus");
  QTest::newRow("Harpa with chorus") << QStringLiteral("Harpa/12 Rocha e Fonte.txt") << true;
  QTest::newRow("Harpa") << QStringLiteral("Harpa/27 Semeador.txt") << false;
  QTest::newRow("Cantor with chorus") << QStringLiteral("Cantor/8 Voz de Muitas \u00C1guas.txt") << true;
  QTest::newRow("Cantor") << QStringLiteral("Cantor/31 Lantern of the Morning.txt") << false;
}

// The chorus is repeated only where the numbers and the capitals stand exactly so.
void StarterServiceTest::hymnsHaveTheirLayout() {
  QFETCH(QString, path);
  QFETCH(bool, chorus);
  const QStringList stanzas = Lines(Sample().filePath(path)).join(u'\n').split(QStringLiteral("\n\n"));
  QVERIFY(stanzas.size() >= 3);
  QCOMPARE(stanzas.at(1) == stanzas.at(1).toUpper(), chorus);
  for (int i = 0, number = 1; i < stanzas.size(); ++i) {
    if (chorus && i == 1)
      continue;
    QVERIFY2(stanzas.at(i).startsWith(QString::number(number) + u'.'), qPrintable(stanzas.at(i)));
    ++number;
  }
}

void StarterServiceTest::agendasNameSongsThatAreThere() {
  for (const char *name : {"Data/agenda1.dat", "Data/agenda2.dat"}) {
    QStringList lines = Lines(Sample().filePath(QLatin1String(name)));
    QVERIFY(lines.size() > 3);
    QVERIFY(lines.takeLast().isEmpty());
    int lastKind = 0;
    for (const QString &line : std::as_const(lines)) {
      const QStringList fields = line.split(QStringLiteral("|#|"));
      QCOMPARE(fields.size(), 3);
      const int kind = fields.at(0).toInt();
      QVERIFY2(kind >= lastKind && kind <= 6, qPrintable(line));
      lastKind = kind;
      const QString file = fields.at(2) + u".txt";
      if (kind == 2)
        QVERIFY2(QFile::exists(Sample().filePath(u"Lyrics/" + file)), qPrintable(line));
      if (kind == 3)
        QVERIFY2(QFile::exists(Sample().filePath(u"Harpa/" + file)) ||
                     QFile::exists(Sample().filePath(u"Cantor/" + file)),
                 qPrintable(line));
      if (kind == 5)
        QVERIFY2(QFile::exists(Sample().filePath(u"Slides/" + fields.at(2))), qPrintable(line));
      if (kind == 6)
        QVERIFY2(QFile::exists(Sample().filePath(QString(fields.at(2)).remove(QStringLiteral("(APP)\\")).replace(u'\\', u'/'))),
                 qPrintable(line));
    }
  }
}

void StarterServiceTest::themesNameMediaThatAreMade() {
  QStringList made;
  for (const auto &scene : tolmira::media::Scenes())
    made << scene.file;
  for (const char *name : {"Slides/Welcome.sld", "SlideShow/Morning Light.sw"})
    for (const QString &line : Lines(Sample().filePath(QLatin1String(name))))
      if (line.startsWith(u"Imagem"))
        QVERIFY2(made.contains(line.section(QStringLiteral("(APP)\\Images\\"), 1)), qPrintable(line));
  int themes = 0;
  QStringList kinds;
  const QStringList lines = Lines(Sample().filePath(QStringLiteral("Data/Themes.ini")));
  for (const QString &line : lines) {
    if (line.startsWith(u'['))
      QCOMPARE(line, u"[Tema-" + QString::number(++themes) + u']');
    const QString key = line.section(u'=', 0, 0);
    const QString value = line.section(u'=', 1);
    if (key == QLatin1String("Tipo") && !kinds.contains(value))
      kinds << value;
    if (key == QLatin1String("vid"))
      QVERIFY2(value.isEmpty() || value == QLatin1String("(APP)\\Videos\\luzes.mp4|"), qPrintable(value));
    if (key == QLatin1String("img")) {
      const QStringList names = value.split(u'|', Qt::SkipEmptyParts);
      for (const QString &name : names)
        QVERIFY2(made.contains(name), qPrintable(name));
    }
  }
  QCOMPARE(themes, 16);
  kinds.sort();
  QCOMPARE(kinds, QStringList({QStringLiteral("CorDeFundo"), QStringLiteral("Imagem"), QStringLiteral("Video")}));
}

void StarterServiceTest::picturesAreDimEnoughForWhiteText_data() {
  QTest::addColumn<int>("index");
  const auto &scenes = tolmira::media::Scenes();
  for (std::size_t i = 0; i < scenes.size(); ++i)
    QTest::newRow(qPrintable(scenes[i].file)) << static_cast<int>(i);
}

void StarterServiceTest::picturesAreDimEnoughForWhiteText() {
  QFETCH(int, index);
  const QImage picture = tolmira::media::Scenes()[static_cast<std::size_t>(index)].paint(QSize(320, 180));
  double sum = 0;
  int bright = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      const int grey = qGray(picture.pixel(x, y));
      sum += grey;
      bright += grey > 160 ? 1 : 0;
    }
  const double pixels = 320.0 * 180.0;
  QVERIFY2(sum / pixels < 90, qPrintable(QString::number(sum / pixels)));
  QVERIFY2(sum / pixels > 12, "the picture is all but black");
  QVERIFY2(bright / pixels < 0.03, qPrintable(QString::number(bright / pixels)));
}

void StarterServiceTest::pictureIsTheSameEveryTime() {
  const auto &scene = tolmira::media::Scenes().front();
  QCOMPARE(scene.paint(QSize(320, 180)), scene.paint(QSize(320, 180)));
}

void StarterServiceTest::videoLoopCloses() {
  const QImage first = tolmira::media::LoopFrame(QSize(320, 180), 0);
  const QImage last = tolmira::media::LoopFrame(QSize(320, 180), 1);
  const QImage middle = tolmira::media::LoopFrame(QSize(320, 180), 0.5);
  int apart = 0;
  for (int y = 0; y < first.height(); ++y)
    for (int x = 0; x < first.width(); ++x)
      apart = qMax(apart, qAbs(qGray(first.pixel(x, y)) - qGray(last.pixel(x, y))));
  QVERIFY2(apart <= 1, qPrintable(QString::number(apart)));
  QVERIFY(first != middle);
}

QTEST_GUILESS_MAIN(StarterServiceTest)
#include "test_starter_service.moc"
