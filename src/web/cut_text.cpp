#include "web/cut_text.h"

#include "foundation/code_page.h"
#include "foundation/file_name.h"

#include <QStringList>
#include <utility>

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

// As QString::replace does, in one go through the text.
void Troca(QString &text, const QString &de, const QString &para) {
  qsizetype found = text.indexOf(de);
  if (found < 0)
    return;
  QString result;
  result.reserve(text.size());
  qsizetype at = 0;
  for (; found >= 0; found = text.indexOf(de, at)) {
    result += QStringView(text).sliced(at, found - at);
    result += para;
    at = found + de.size();
  }
  result += QStringView(text).sliced(at);
  text = std::move(result);
}

constexpr qsizetype MaiorNome = 200; // bytes

// What would make two names look alike, or turn the order of the letters.
bool Invisivel(QChar c) {
  switch (c.category()) {
  case QChar::Other_Format:
  case QChar::Other_NotAssigned:
  case QChar::Other_PrivateUse:
  case QChar::Separator_Line:
  case QChar::Separator_Paragraph:
    return true;
  default:
    return false;
  }
}

// Without blanks and dots at either end, nor a "-" at the beginning, which programs take for an option.
QString SemBordas(const QString &nome) {
  qsizetype first = 0;
  qsizetype last = nome.size();
  while (first < last && (nome[first].isSpace() || nome[first] == u'.' || nome[first] == u'-'))
    ++first;
  while (last > first && (nome[last - 1].isSpace() || nome[last - 1] == u'.'))
    --last;
  return nome.sliced(first, last - first);
}

// Names under which some system keeps a device in every folder.
bool EhDispositivo(const QString &nome) {
  static const QStringList dispositivos = {QStringLiteral("con"), QStringLiteral("prn"),    QStringLiteral("aux"),
                                           QStringLiteral("nul"), QStringLiteral("conin$"), QStringLiteral("conout$")};
  const QString base = nome.section(u'.', 0, 0).trimmed().toLower();
  const bool numerado =
      base.size() == 4 && (base.startsWith(u"com") || base.startsWith(u"lpt")) && base[3].digitValue() >= 0;
  return dispositivos.contains(base) || numerado;
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
  Troca(text, Forma(0x2018), QStringLiteral("‘"));
  Troca(text, Forma(0x2019), QStringLiteral("’"));
  for (char16_t letra = 0xa1; letra <= 0xff; ++letra)
    Troca(text, Forma(letra), QString(QChar(letra)));
  const struct {
    char16_t letra;
    QChar simples;
  } simples[] = {{0x103, u'a'}, {0x104, u'A'}, {0x107, u'c'}, {0x108, u'C'}, {0x109, u'c'}};
  for (const auto &caso : simples)
    Troca(text, Forma(caso.letra), QString(caso.simples));
  return text;
}

QString NomeSeguro(const QString &nome) {
  QString seguro = nome;
  seguro.replace(u'\\', u'/');
  seguro = TidyFileName(seguro.sliced(seguro.lastIndexOf(u'/') + 1));
  seguro.removeIf([](QChar c) { return Invisivel(c); });
  for (const QString &proibido : ForbiddenInFileName(seguro))
    seguro.remove(proibido);
  seguro = SemBordas(seguro);
  const qsizetype ponto = seguro.lastIndexOf(u'.');
  QString extensao = ponto > 0 && seguro.size() - ponto <= 12 ? seguro.sliced(ponto) : QString();
  QString resto = SemBordas(seguro.chopped(extensao.size()));
  resto.truncate(MaiorNome); // characters, before each costs a count of bytes
  while (!resto.isEmpty() && (resto + extensao).toUtf8().size() > MaiorNome)
    resto.chop(resto.size() > 1 && resto.back().isLowSurrogate() ? 2 : 1);
  if (!resto.isEmpty() && resto.back().isHighSurrogate())
    resto.chop(1);
  resto = SemBordas(resto);
  if (resto.isEmpty())
    return {};
  return (EhDispositivo(resto) ? QStringLiteral("_") : QString()) + resto + extensao;
}

} // namespace tolmira
