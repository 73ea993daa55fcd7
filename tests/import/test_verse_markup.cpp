#include "import/verse_markup.h"

#include <QRegularExpression>
#include <QTest>

using namespace tolmira;

class TestVerseMarkup : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void elements_data() {
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("plain");
    const auto row = [](const char *name, const char *entry, const char *plain) {
      QTest::newRow(name) << QString::fromUtf8(entry) << QString::fromUtf8(plain);
    };
    row("numbers of words", R"(In the <w lemma="strong:H7225" morph="x">beginning</w>.)", "In the beginning.");
    row("several numbers", R"(no <w lemma="strong:G1487 G3361">sino</w> por)", "no sino por");
    row("note and what it holds", R"(Go<note n="a">or, <w>come</w><note>x</note></note> home.)", "Go home.");
    row("note that ate its blank", "God<note>x</note><w>created</w>, he<note/> said:<note>y</note>“Go<note>z</note>”",
        "God created, he said: “Go”");
    row("note between speech", R"(only born</q><note>x</note><q marker="" who="Jesus"><w>Son</w>)", "only born Son");
    row("note without end", "He <note>went home.", "He went home.");
    row("headings", R"(<title type="psalm">A <w>Psalm</w> of David.</title> <lg><l>LORD, hear</l></lg>)", "LORD, hear");
    row("speaker", "<speaker>Beloved</speaker> Let him", "Let him");
    row("lines of poetry", R"(Happy,<l eID="1"/> <l level="2" sID="2"/>who walks<lb/>on.)", "Happy, who walks on.");
    row("pilcrow", R"(<milestone type="x-p" marker="¶"/>¶ And  he went.)", "And he went.");
    row("quotation mark of the markup", R"(<q sID="1" marker="“"/>Go,<q eID="1" marker="”"/> he said)",
        "“Go,” he said");
    row("name of God", "the <divineName>L<hi>ord</hi></divineName> God", "the LORD God");
    row("added word with its blanks", "there <transChange type=\"added\">is</transChange> one", "there is one");
    row("added words without", "<w>de Jehová</w><transChange>es</transChange><w>para</w>", "de Jehová es para");
    row("added at the end", "entrado<transChange>Jesús</transChange>, pasó", "entrado Jesús, pasó");
    row("added pronoun of a verb", "<w>tráeme</w><transChange>lo</transChange>, que", "tráemelo, que");
    row("added in brackets", "(<transChange>dijo</transChange>)", "(dijo)");
    row("appendix behind the last chapter", R"(Amen. <chapter eID="Rev.22"/> <div type="glossary"/>Abba: father)",
        "Amen.");
    row("marker of another format", R"(name \nd JEHOVAH\nd* was)", "name JEHOVAH was");
    row("entities", "he &amp; she &lt;x&gt; &#8220;no&#x201D; &unknown; A&B;", "he & she ‹x› “no” &unknown; A&B;");
    row("lone brackets", "3 < 4 and 5 > 4", "3 ‹ 4 and 5 › 4");
    row("characters that nobody sees", "a\u00ADb\u200Bc\u00A0 d\r\ne", "abc d e");
    row("accents of their own", "Jesu\u0301s", "Jesús");
    row("second reading",
        R"(in <seg type="x-variant" subType="x-1">one</seg><seg type="x-variant" subType="x-2">two</seg>.)", "in one.");
    row("other dialect", R"(<sync type="Strongs" value="G1"/>And <scripRef>Mt 1:1</scripRef><div class="sechead">The
        end</div>he)",
        "And he");
    row("nothing but a note", "<note>Some omit this verse.</note> <div/>", "");
    row("cut off", "He went <w lemma=\"str", "He went ‹w lemma=\"str");
  }
  void elements() {
    QFETCH(QString, entry);
    QTEST(PlainVerse(entry, VerseMarkup::Elements), "plain");
  }

  void otherMarkups() {
    QCOMPARE(
        PlainVerse(QStringLiteral("<TS>The love of God<Ts>For<WG1063> God<WG2316><CM> so <RB>loved<RF>cherished<Rf> "
                                  "<FI>the<Fi> world.<CL>"),
                   VerseMarkup::Gbf),
        QStringLiteral("For God so loved the world."));
    QCOMPARE(PlainVerse(QStringLiteral("  plain &amp; text \n"), VerseMarkup::None),
             QStringLiteral("plain &amp; text"));
  }
};

QTEST_GUILESS_MAIN(TestVerseMarkup)
#include "test_verse_markup.moc"
