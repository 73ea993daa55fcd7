#include "web/cut_text.h"

#include "foundation/code_page.h"
#include "foundation/file_name.h"

#include <QStringList>

namespace tolmira {

namespace {

// The two characters that a letter beyond ASCII becomes when its UTF-8 is read as windows-1252.
QString Forma(char16_t letra) {
  const QByteArray bytes = QString(QChar(letra)).toUtf8();
  QString forma;
  for (const char byte : bytes)
    forma += QChar(CharacterOfByte(static_cast<unsigned char>(byte)));
  return forma;
}

} // namespace

QString CutBetween(QStringView text, QStringView from, QStringView to, qsizetype start) {
  const qsizetype begin = text.indexOf(from, start);
  if (begin < 0)
    return {};
  const qsizetype inner = begin + from.size();
  const qsizetype end = text.indexOf(to, inner);
  return end < 0 ? QString() : text.sliced(inner, end - inner).toString();
}

QString FixMojibake(QString text) {
  text.replace(Forma(0x2018), QStringLiteral("‘"));
  text.replace(Forma(0x2019), QStringLiteral("’"));
  for (char16_t letra = 0xa1; letra <= 0xff; ++letra)
    text.replace(Forma(letra), QString(QChar(letra)));
  const struct {
    char16_t letra;
    QChar simples;
  } simples[] = {{0x103, u'a'}, {0x104, u'A'}, {0x107, u'c'}, {0x108, u'C'}, {0x109, u'c'}};
  for (const auto &caso : simples)
    text.replace(Forma(caso.letra), QString(caso.simples));
  return text;
}

QString NomeSeguro(const QString &nome) {
  QString seguro = nome;
  seguro.replace(u'\\', u'/');
  seguro = TidyFileName(seguro.sliced(seguro.lastIndexOf(u'/') + 1));
  for (const QString &proibido : ForbiddenInFileName(seguro))
    seguro.remove(proibido);
  while (seguro.startsWith(u'.') || seguro.startsWith(u' '))
    seguro.remove(0, 1);
  while (seguro.endsWith(u'.') || seguro.endsWith(u' '))
    seguro.chop(1);
  static const QStringList dispositivos = {QStringLiteral("con"), QStringLiteral("prn"), QStringLiteral("aux"),
                                           QStringLiteral("nul")};
  const QString base = seguro.section(u'.', 0, 0).trimmed().toLower();
  const bool numerado = base.size() == 4 && (base.startsWith(u"com") || base.startsWith(u"lpt")) && base[3].isDigit();
  if (dispositivos.contains(base) || numerado)
    seguro.prepend(u'_');
  const qsizetype ponto = seguro.lastIndexOf(u'.');
  const QString extensao = ponto > 0 && seguro.size() - ponto <= 12 ? seguro.sliced(ponto) : QString();
  QString resto = seguro.chopped(extensao.size());
  while (!resto.isEmpty() && (resto + extensao).toUtf8().size() > 200)
    resto.chop(resto.size() > 1 && resto.back().isLowSurrogate() ? 2 : 1);
  return resto.isEmpty() ? QString() : resto + extensao;
}

} // namespace tolmira
