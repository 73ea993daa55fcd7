#include "songs/song_finder.h"

#include "foundation/text_fields.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tolmira {

namespace {

constexpr int IntervaloInicial = 30; // ms
constexpr int IntervaloMaior = 400;
constexpr qint64 FatiaMs = 8; // half a frame, so that what is typed and painted finds its place between two slices
constexpr int PausaMs = 1;
constexpr double MaiorInteiro = 32767;

QStringView SemBrancos(QStringView text) {
  while (text.startsWith(u' '))
    text = text.sliced(1);
  while (text.endsWith(u' '))
    text.chop(1);
  return text;
}

// The number behind the letter of a hymnal; 0 when the term does not begin with that letter or no number follows.
int NumeroDoHino(const QString &term, QChar letter) {
  if (!term.startsWith(letter, Qt::CaseInsensitive))
    return 0;
  const double value = NumericPrefix(term.mid(1, 4));
  return std::abs(value) <= MaiorInteiro ? RoundHalfEven(value) : 0;
}

} // namespace

SongFinder::SongFinder(const AppFolder &app, Clock &clock)
    : m_app(app), m_clock(clock), m_path(CaminhoDa(Lyrics)), m_rowsPath(m_path), m_timerFind(clock.NewTimer([this] { TimerFind(); })),
      m_timerFatia(clock.NewTimer([this] { Fatia(); })) {}

QString SongFinder::CaminhoDa(Pasta pasta) const {
  constexpr std::array<QStringView, 3> Nomes = {u"\\Lyrics", u"\\Harpa", u"\\Cantor"};
  return m_app.At(Nomes[pasta]);
}

QString SongFinder::Caminho(int row) const {
  return m_rowsPath + u'\\' + m_rows.at(static_cast<size_t>(row))->Arquivo();
}

void SongFinder::SetTermoBusca(const QString &text) {
  m_termoBusca = text;
  if (Buscando())
    TimerFind();
  else
    m_timerFind->Start(m_intervaloBusca);
}

void SongFinder::CancelaBusca() {
  m_timerFind->Stop();
  Termina();
}

void SongFinder::Termina() {
  m_timerFatia->Stop();
  if (!Buscando())
    return;
  m_search.reset();
  if (AoBuscar)
    AoBuscar();
}

void SongFinder::Abre(Pasta pasta) {
  if (m_pasta != pasta)
    m_rowsTerm.reset(); // the rows are still those of the other folder
  m_pasta = pasta;
  m_path = CaminhoDa(pasta);
}

void SongFinder::TimerFind() {
  CancelaBusca();
  const QString term = m_termoBusca;
  if (const int numH = NumeroDoHino(term, u'h'); numH >= 1)
    return ListaNumero(Harpa, numH);
  if (const int numC = NumeroDoHino(term, u'c'); numC >= 1)
    return ListaNumero(Cantor, numC);

  const QStringView trimmed = SemBrancos(term);
  const bool harpa = trimmed.startsWith(u"h:", Qt::CaseInsensitive);
  if (harpa || trimmed.startsWith(u"c:", Qt::CaseInsensitive)) {
    Abre(harpa ? Harpa : Cantor);
    ListaArquivos(SemBrancos(QStringView(term).sliced(2)).toString(), false);
    return;
  }
  Abre(Lyrics);
  if (trimmed.isEmpty())
    CarregaTudo(false);
  else
    ListaArquivos(term, false);
}

void SongFinder::ListaNumero(Pasta pasta, int number) {
  Abre(pasta);
  Folder().Observe(m_path);
  const QString head = QString::number(number);
  SongRows rows;
  std::copy_if(Folder().Files().begin(), Folder().Files().end(), std::back_inserter(rows),
               [&head](const SongFile *file) { return file->Arquivo().startsWith(head); });
  Lista(std::move(rows), std::nullopt);
}

void SongFinder::CarregaTudo(bool measure) {
  CancelaBusca();
  Abre(Lyrics);
  m_intervaloBusca = IntervaloInicial;
  Folder().Observe(m_path);
  Lista(Folder().Files(), std::nullopt);
  if (measure)
    MedeBusca();
}

// A word that no song holds, so that every text is looked at.
void SongFinder::MedeBusca() {
  Termina();
  ListaArquivos(QStringLiteral("sadsdf"), true);
}

void SongFinder::BuscaDeNovo() {
  m_rowsTerm.reset();
  TimerFind();
}

void SongFinder::ListaArquivos(const QString &term, bool keepRows) {
  m_termoAtual = term.toLower();
  // What the longer term finds, the shorter one has found before.
  const bool narrowing = !keepRows && m_rowsTerm && !m_rowsTerm->isEmpty() &&
                         m_termoAtual.size() > m_rowsTerm->size() && m_termoAtual.startsWith(*m_rowsTerm);
  if (narrowing && m_rows.empty())
    return Lista({}, m_termoAtual);
  const bool longer = narrowing && m_rowsRound == Folder().Round();
  // What the system has not reported of a file comes to light here: whenever the dialog opens.
  Folder().Observe(m_path, keepRows);
  m_search.emplace(Folder(), m_termoAtual, narrowing ? std::optional(m_rows) : std::nullopt, longer);
  m_keepRows = keepRows;
  m_gastoMs = 0;
  if (AoBuscar)
    AoBuscar();
  if (keepRows)
    m_timerFatia->Start(PausaMs); // the list is painted first
  else
    Fatia();
}

void SongFinder::Fatia() {
  m_timerFatia->Stop();
  const qint64 start = m_clock.NowMs();
  const bool more = m_search->Next([this, start] { return m_clock.NowMs() - start >= FatiaMs; });
  m_gastoMs += m_clock.NowMs() - start;
  if (more) {
    m_timerFatia->Start(PausaMs);
    return;
  }
  SongRows rows = m_search->TakeRows();
  Termina();
  if (!m_keepRows)
    return Lista(std::move(rows), m_termoAtual);
  m_intervaloBusca =
      static_cast<int>(std::min<qint64>(std::max<qint64>(m_intervaloBusca, m_gastoMs) + 10, IntervaloMaior));
}

void SongFinder::Lista(SongRows rows, std::optional<QString> term) {
  m_rows = std::move(rows);
  m_rowsPath = m_path;
  m_rowsTerm = std::move(term);
  m_rowsRound = Folder().Round();
  if (AoListar)
    AoListar();
}

void SongFinder::TiraLinha(const SongFile *file) {
  std::erase_if(m_rows, [file](const SongFile *row) { return row == file; });
  if (AoListar)
    AoListar();
  if (Buscando() && !Medindo())
    BuscaDeNovo(); // it would list the file that is gone
}

qint64 SongFinder::TextBytes() const {
  return std::accumulate(m_folders.begin(), m_folders.end(), qint64(0),
                         [](qint64 sum, const SongFolder &folder) { return sum + folder.TextBytes(); });
}

} // namespace tolmira
