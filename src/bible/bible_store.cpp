#include "bible/bible_store.h"

#include "bible/books.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

#include <QDir>
#include <algorithm>

namespace tolmira {
namespace {

const QLatin1String OldPrefix("OLD_");
const QLatin1String Extension(".txt");
constexpr double LastVerse = 1000;

QString Section() {
  return QStringLiteral("Biblias");
}

QString KeyDefault() {
  return QStringLiteral("Default");
}

QString KeyDefaultText() {
  return QStringLiteral("DefaultText");
}

QString KeyOfVersion(int index) {
  return QString::number(index) + u'v';
}

// The "OLD_" files in the order of a folder in which case does not count.
QStringList OldTestamentFiles(const QString &storedFolder) {
  QStringList names;
  for (const QString &name : QDir(MapStoredPath(storedFolder).text()).entryList(QDir::Files)) {
    if (name.startsWith(OldPrefix, Qt::CaseInsensitive) && name.endsWith(Extension, Qt::CaseInsensitive))
      names.append(name);
  }
  std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
    const int order = a.toUpper().compare(b.toUpper());
    return order != 0 ? order < 0 : a < b;
  });
  return names;
}

// Only the prefix changes: a version may have "OLD" in its own name.
QString NewTestamentFile(const QString &oldTestamentFile) {
  if (!oldTestamentFile.startsWith(OldPrefix, Qt::CaseInsensitive))
    return {};
  return u"NEW_" + oldTestamentFile.mid(OldPrefix.size());
}

// Bytes at the end that begin a character of UTF-8 and do not finish it.
qsizetype CutCharacter(const QByteArray &bytes) {
  for (qsizetype back = 1; back <= std::min<qsizetype>(3, bytes.size()); ++back) {
    const auto byte = static_cast<unsigned char>(bytes.at(bytes.size() - back));
    if (byte < 0x80)
      return 0;
    if (byte >= 0xC0)
      return back < (byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2) ? back : 0;
  }
  return 0;
}

// A file that ends inside a character, because it was cut or goes beyond the limit, is no less UTF-8 for that.
QString DecodeVersion(const QByteArray &bytes) {
  DecodedText decoded = DecodeText(bytes);
  if (const qsizetype cut = CutCharacter(bytes); cut > 0 && decoded.encoding == TextEncoding::Windows1252) {
    if (DecodedText whole = DecodeText(bytes.chopped(cut)); whole.encoding != TextEncoding::Windows1252)
      return whole.text;
  }
  return decoded.text;
}

} // namespace

QString NomeCurto(const QString &fileName) {
  return QString(fileName).remove(OldPrefix, Qt::CaseInsensitive).remove(Extension, Qt::CaseInsensitive);
}

VersionText ReadVersionFile(const QString &storedPath) {
  return VersionText(DecodeVersion(ReadFileContent(storedPath, VersionFileLimit).bytes));
}

QString ArquivoDaVersao(const QString &nomeCurto, Testamento testamento) {
  return (testamento == Testamento::Velho ? QStringLiteral("OLD_") : QStringLiteral("NEW_")) + nomeCurto + Extension;
}

BibleStore::BibleStore(const AppFolder &app, const IniStore &store) : m_app(app), m_store(store) {}

QString BibleStore::ReadKey(const QString &key, const QString &fallback) const {
  return m_store.ReadConfig(Section(), key, fallback);
}

// Most starts find everything as it was left, and each write waits for the disk.
void BibleStore::StoreKey(const QString &key, const QString &value) const {
  if (ReadKey(key, QString()) != value)
    m_store.WriteConfig(Section(), key, value);
}

QString BibleStore::NomeDoArquivo(int index) const {
  if (index >= 1 && index <= static_cast<int>(m_versoes.size()))
    return m_versoes[static_cast<size_t>(index - 1)].arquivo;
  return ReadKey(KeyOfVersion(index), QStringLiteral("OLD_KJV"));
}

void BibleStore::BuildVersionMenu() {
  m_versoes.clear();
  m_textos.clear();

  const QString folder = m_app.At(u"\\Bible\\");
  const QStringList files = OldTestamentFiles(folder);
  int chosen = RoundHalfEven(NumericPrefix(ReadKey(KeyDefault(), QStringLiteral("1"))));
  QString defaultText = ReadKey(KeyDefaultText(), NomeDoArquivo(chosen));
  if (!FileExists(folder + defaultText) && !files.isEmpty()) {
    defaultText = BaseNameBefore(files.first(), QStringLiteral("."));
    StoreKey(KeyDefaultText(), defaultText);
  }

  int named = 0;
  for (const QString &file : files) {
    const QString caption = SplitField(file, QStringLiteral("_"), 2).remove(Extension, Qt::CaseInsensitive);
    m_versoes.push_back({file, caption});
    const int index = static_cast<int>(m_versoes.size());
    StoreKey(KeyOfVersion(index), file);
    // A name with its extension, as a choice stores it, does not decide here: then the stored index holds.
    if (BaseNameBefore(file, QStringLiteral(".")).compare(defaultText, Qt::CaseInsensitive) == 0)
      chosen = index;
    if (file.compare(defaultText, Qt::CaseInsensitive) == 0)
      named = index;
  }
  // Where versions were taken away, the stored index may lie behind the last; the stored name then says which was
  // meant.
  if (!files.isEmpty() && (chosen < 1 || chosen > files.size()))
    chosen = std::max(named, 1);

  StoreKey(KeyDefault(), QString::number(chosen));
  StoreKey(KeyDefaultText(), NomeDoArquivo(chosen));
  m_bibliaAtual = chosen;
  LoadVersion(chosen);
  if (VersaoMudou)
    VersaoMudou();
}

void BibleStore::GuardaEscolha() const {
  const QStringList files = OldTestamentFiles(m_app.At(u"\\Bible\\"));
  const QString inForce = NomeDoArquivo(m_bibliaAtual);
  const auto place = files.indexOf(inForce);
  if (files.isEmpty())
    return;
  StoreKey(KeyDefault(), QString::number(place < 0 ? 1 : place + 1));
  StoreKey(KeyDefaultText(), files.at(place < 0 ? 0 : place));
}

QString BibleStore::LegendaAtual() const {
  const bool exists = m_bibliaAtual >= 1 && m_bibliaAtual <= static_cast<int>(m_versoes.size());
  return exists ? m_versoes[static_cast<size_t>(m_bibliaAtual - 1)].legenda : QString();
}

void BibleStore::LoadVersion(int index) {
  const QString file = NomeDoArquivo(index);
  if (Texto(index, false).IsEmpty()) {
    const QString folder = m_app.At(u"\\Bible\\");
    Textos &textos = m_textos[index];
    textos.velho = ReadVersionFile(folder + file);
    if (const QString other = NewTestamentFile(file); !other.isEmpty())
      textos.novo = ReadVersionFile(folder + other);
  }
  m_versaoBiblia = NomeCurto(file);
}

bool BibleStore::ChooseVersion(int index) {
  if (index == m_bibliaAtual || index < 1 || index > static_cast<int>(m_versoes.size()))
    return false;
  m_bibliaAtual = index;
  StoreKey(KeyDefault(), QString::number(index));
  StoreKey(KeyDefaultText(), NomeDoArquivo(index));
  LoadVersion(index);
  if (VersaoMudou)
    VersaoMudou();
  return true;
}

const VersionText &BibleStore::Texto(int index, bool novoTestamento) const {
  static const VersionText none;
  const auto found = m_textos.find(index);
  if (found == m_textos.end())
    return none;
  return novoTestamento ? found->second.novo : found->second.velho;
}

QString BibleStore::GetVerse(QString &reference) {
  QString wanted = reference.trimmed();
  const int book = BookNumber(wanted);
  if (book == 0)
    return {};
  const qsizetype nameLength = BookName(book).size();
  const double chapter = NumericPrefix(wanted.mid(nameLength));
  if (chapter == 0)
    return {};
  // "16e18" is verse 16 and no power of ten.
  if (const qsizetype exponent = wanted.indexOf(u'e', nameLength + 2); exponent >= 0)
    wanted[exponent] = u'/';

  const VersionText &text = Texto(m_bibliaAtual, book > OldTestamentBooks);
  const qsizetype behindHeader = text.BehindHeader(book, NumberText(chapter));
  if (behindHeader < 0)
    return {};
  m_capitulo = text.ChapterLines(behindHeader);

  double verse = NumericPrefix(wanted.mid(wanted.indexOf(u':') + 1, 4));
  if (verse == LastVerse) {
    verse = static_cast<double>(m_capitulo.size() - 2);
    reference = SplitField(reference.trimmed(), QStringLiteral(":"), 1) + u':' + NumberText(verse);
  }
  const int line = static_cast<int>(std::clamp(verse, 0.0, 1e9));
  const QStringView found = text.VerseLine(behindHeader, line);
  return found.trimmed().isEmpty() ? QString() : found.toString();
}

QString BibleStore::ElementoDoCapitulo(const QString &reference, int step, int lowest) {
  const double current = NumericPrefix(SplitField(reference, QStringLiteral(":"), 2));
  const int verse = RoundHalfEven(current + step);
  if (verse < lowest || verse >= m_capitulo.size())
    return {};
  m_refAtual = SplitField(reference, QStringLiteral(":"), 1) + u':' + QString::number(verse);
  return TextoDoVersiculo(m_capitulo.at(verse));
}

QString BibleStore::NextVerse(const QString &reference) {
  return ElementoDoCapitulo(reference, 1, 0);
}

QString BibleStore::PreviousVerse(const QString &reference) {
  return ElementoDoCapitulo(reference, -1, 1);
}

QList<int> BibleStore::CapitulosDoLivro(int livro) const {
  return Texto(m_bibliaAtual, livro > OldTestamentBooks).Chapters(livro);
}

QStringList BibleStore::VersiculosDoCapitulo(int livro, int capitulo) const {
  QStringList verses;
  for (const QStringView line : Texto(m_bibliaAtual, livro > OldTestamentBooks).VerseLines(livro, capitulo))
    verses.append(TextBehindNumber(line).toString());
  return verses;
}

QString TextoDoVersiculo(const QString &linha) {
  return TextBehindNumber(linha).toString();
}

} // namespace tolmira
