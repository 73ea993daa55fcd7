#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "songs/song_search.h"

#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace tolmira {

// What the list of songs does, without its widget: it lists one folder and narrows the list to what is typed. A term is
// a part of a file name or of a text, a hymn's number ("h301", "c12"), or such a term in a hymnal ("h:", "c:").
// Searches run in slices from a timer, and a new term ends the one that runs.
class SongFinder {
public:
  SongFinder(const AppFolder &app, Clock &clock);

  std::function<void()> AoListar; // the rows are others, or their folder is
  std::function<void()> AoBuscar; // Buscando has changed

  // The text as typed. The search begins when TimerFind ticks, at once where one is running.
  void SetTermoBusca(const QString &text);
  const QString &TermoBusca() const { return m_termoBusca; }

  // Lists all of Lyrics. With `measure` the speed of a search is taken afterwards.
  void CarregaTudo(bool measure);
  // Sets the delay of TimerFind by what a search costs; the rows stay.
  void MedeBusca();
  // The search for the present term once more, over all files.
  void BuscaDeNovo();
  void CancelaBusca(); // the one that runs and the one that waits for TimerFind

  const QString &Path() const { return m_rowsPath; } // of the folder listed, as stored paths are
  const SongRows &List1() const { return m_rows; }
  QString Caminho(int row) const;                                           // stored path of a row's file
  void TiraLinha(const SongFile *file);                                     // it was deleted
  QString TermoDasLinhas() const { return m_rowsTerm.value_or(QString()); } // what the rows were found by; lower case
  bool Buscando() const { return m_search.has_value(); }
  bool Medindo() const { return Buscando() && m_keepRows; }
  int IntervaloBusca() const { return m_intervaloBusca; } // ms

  qint64 TextBytes() const;

private:
  enum Pasta { Lyrics, Harpa, Cantor };

  QString CaminhoDa(Pasta pasta) const;
  SongFolder &Folder() { return m_folders[m_pasta]; }
  void Abre(Pasta pasta);
  void TimerFind();
  void ListaNumero(Pasta pasta, int number);
  void ListaArquivos(const QString &term, bool keepRows);
  void Termina(); // the search that runs, if one does
  void Fatia(); // the next slice of the search
  void Lista(SongRows rows, std::optional<QString> term);

  AppFolder m_app;
  Clock &m_clock;
  std::array<SongFolder, 3> m_folders;
  Pasta m_pasta = Lyrics;
  QString m_path;     // of the folder that is being searched
  QString m_rowsPath; // of the folder that the rows are from: another one until a search in m_path has ended
  SongRows m_rows;
  std::optional<QString> m_rowsTerm; // the rows are all that this term finds in the folder
  quint32 m_rowsRound = 0;           // the folder's search that found them
  QString m_termoBusca;
  QString m_termoAtual;
  int m_intervaloBusca = 30;
  std::optional<SongSearch> m_search; // while it runs
  bool m_keepRows = false;            // the search only measures
  qint64 m_gastoMs = 0;               // time that it has taken
  std::unique_ptr<PeriodicTimer> m_timerFind;
  std::unique_ptr<PeriodicTimer> m_timerFatia;
};

} // namespace tolmira
