#include "web/cut_text.h"

#include "foundation/code_page.h"
#include "foundation/file_name.h"

#include <QList>
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

// In the order in which they are made.
const QList<std::pair<QString, QString>> &Reparos() {
  static const QList<std::pair<QString, QString>> reparos = [] {
    QList<std::pair<QString, QString>> lista;
    for (const char16_t aspa : {u'\u2018', u'\u2019'})
      lista.append({Forma(aspa), QString(QChar(aspa))});
    for (char16_t letra = 0xa1; letra <= 0xff; ++letra)
      lista.append({Forma(letra), QString(QChar(letra))});
    constexpr std::pair<char16_t, char16_t> Simples[] = {
        {0x103, u'a'}, {0x104, u'A'}, {0x107, u'c'}, {0x108, u'C'}, {0x109, u'c'}};
    for (const auto &[letra, simples] : Simples)
      lista.append({Forma(letra), QString(QChar(simples))});
    return lista;
  }();
  return reparos;
}

} // namespace

QStringView ViewBetween(QStringView text, QStringView from, QStringView to, qsizetype start) {
  const qsizetype begin = text.indexOf(from, start);
  if (begin < 0)
    return {};
  const qsizetype inner = begin + from.size();
  const qsizetype end = text.indexOf(to, inner);
  return end < 0 ? QStringView() : text.sliced(inner, end - inner);
}

QString CutBetween(QStringView text, QStringView from, QStringView to, qsizetype start) {
  return ViewBetween(text, from, to, start).toString();
}

QString FixMojibake(QString text) {
  for (const auto &[forma, letra] : Reparos())
    Troca(text, forma, letra);
  return text;
}

QString LinhaLimpa(QString linha) {
  const auto entre = [](QChar c, char16_t de, char16_t ate) { return c.unicode() >= de && c.unicode() <= ate; };
  for (qsizetype i = 0; i < linha.size(); ++i) {
    const QChar c = linha[i];
    const bool separa = c == u'\t' || c == u'\r' || c == u'\n' || entre(c, 0x2028, 0x2029);
    if (separa) {
      linha[i] = u' ';
    } else if (c.isHighSurrogate() && i + 1 < linha.size() && linha[i + 1].isLowSurrogate()) {
      ++i;
    } else if (c.isSurrogate() || entre(c, 0xfdd0, 0xfdef) || entre(c, 0xfff9, 0xfffb) || entre(c, 0xfffe, 0xffff) ||
               c == QChar::ByteOrderMark || entre(c, 0x202a, 0x202e) || entre(c, 0x2066, 0x2069)) {
      linha[i] = u'\0'; // a control character, as those that go below
    }
  }
  linha.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
  return linha;
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
