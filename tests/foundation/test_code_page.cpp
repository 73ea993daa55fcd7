#include "foundation/code_page.h"

#include <QtTest>

using namespace tolmira;

Q_DECLARE_METATYPE(tolmira::TextEncoding)

class TestCodePage : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void Decoding_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<TextEncoding>("encoding");
    const TextEncoding ansi = TextEncoding::Windows1252;
    QTest::newRow("empty") << QByteArray() << QString() << ansi;
    QTest::newRow("plain") << QByteArray("a\r\n") << QStringLiteral("a\r\n") << ansi;
    QTest::newRow("accent") << QByteArray("\xC1gua") << QStringLiteral("Água") << ansi;
    QTest::newRow("upper controls") << QByteArray("\x80\x93\x9F") << QStringLiteral("€“Ÿ") << ansi;
    QTest::newRow("undefined bytes") << QByteArray("\x81\x8D\x8F\x90\x9D")
                                     << QStringLiteral(u"\u0081\u008D\u008F\u0090\u009D") << ansi;
    QTest::newRow("nul") << QByteArray("a\0\xE9", 3) << QString(QStringLiteral("a") + QChar(u'\0') + QChar(u'é'))
                         << ansi;
    QTest::newRow("utf-8") << QByteArray("\xC3\x81gua") << QStringLiteral("Água") << TextEncoding::Utf8;
    QTest::newRow("utf-8 with mark") << QByteArray("\xEF\xBB\xBF[Config]\xC3\xA9") << QStringLiteral("[Config]é")
                                     << TextEncoding::Utf8WithMark;
    QTest::newRow("mark twice") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBFx") << QStringLiteral(u"\uFEFFx")
                                << TextEncoding::Utf8WithMark;
    QTest::newRow("utf-8 cut off") << QByteArray("a\xC3\xA9 \xC3") << QStringLiteral("aÃ© Ã") << ansi;
    QTest::newRow("mark before broken utf-8") << QByteArray("\xEF\xBB\xBF\xE9") << QStringLiteral("ï»¿é") << ansi;
  }
  void Decoding() {
    QFETCH(QByteArray, bytes);
    const DecodedText decoded = DecodeText(bytes);
    QTEST(decoded.text, "text");
    QTEST(decoded.encoding, "encoding");
    QCOMPARE(EncodeText(decoded.text, decoded.encoding), bytes);
  }

  void EveryByteSurvives() {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
      bytes.append(static_cast<char>(byte));
    const DecodedText decoded = DecodeText(bytes);
    QCOMPARE(decoded.text.size(), 256);
    QCOMPARE(EncodeText(decoded.text), bytes);
    for (int byte = 0; byte < 256; ++byte)
      QCOMPARE(ByteOfCharacter(CharacterOfByte(static_cast<unsigned char>(byte))), static_cast<unsigned char>(byte));
  }

  void NoCharacterIsLost_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("hebrew") << QStringLiteral("שלום é");
    QTest::newRow("beyond the plane") << QStringLiteral("𝄞 música");
    QTest::newRow("looks like utf-8") << QStringLiteral("Ã©");
    QTest::newRow("looks like a mark") << QStringLiteral("ï»¿x");
    QTest::newRow("begins with a mark") << QStringLiteral(u"\uFEFFש");
    QTest::newRow("control that is not a byte") << QStringLiteral(u"\u0080é");
  }
  void NoCharacterIsLost() {
    QFETCH(QString, text);
    for (const TextEncoding wish : {TextEncoding::Windows1252, TextEncoding::Utf8, TextEncoding::Utf8WithMark})
      QCOMPARE(DecodeText(EncodeText(text, wish)).text, text);
  }

  void Pages_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("windows-1252") << QStringLiteral("é “€”") << QByteArray("\xE9 \x93\x80\x94");
    QTest::newRow("reference") << QStringLiteral("aש") << QByteArray("a&#1513;");
    QTest::newRow("pair") << QStringLiteral("𝄞") << QByteArray("&#119070;");
    QTest::newRow("half a pair") << QString(QChar(0xD834)) << QByteArray("&#65533;");
  }
  void Pages() {
    QFETCH(QString, text);
    QTEST(EncodePage(text), "bytes");
  }

  void MissingCharacterIsAQuestionMark() { QCOMPARE(ByteOfCharacter(u'ש'), static_cast<unsigned char>('?')); }
};

QTEST_GUILESS_MAIN(TestCodePage)
#include "test_code_page.moc"
