#pragma once

#include "controls/ui/entry_drag.h"
#include "songs/ui/song_doors.h"

#include <QWidget>
#include <memory>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tolmira {

class ListMusicas;
class ReadingPane;

// The dialog that finds songs and puts them into the agenda. Stays open for the next one.
class FrmAddMusicaNaLista : public QWidget {
  Q_OBJECT

public:
  explicit FrmAddMusicaNaLista(SongDoors doors);
  ~FrmAddMusicaNaLista() override;

  // Lists and reads the songs while the window is not shown; Open then looks only at what has changed since.
  void Prepare();
  void Open();
  // Reads the songs again and selects the one of that name (without extension). Where the present term does not find
  // it, the whole collection is listed.
  void AtualizaLista(const QString &nome);
  void AtualizaAgenda(); // the add button names the active agenda

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void MakeList();
  void MakeButtons();
  void Command1(); // runs the activation of a row
  void Command2(); // adds the selected song
  void Command3(); // edits it
  void Command4(); // deletes its file
  void AtivaLinha();
  void Adiciona();
  void Mostra(); // on the projection
  void Diz(const QString &text);
  bool TemLinha(const QString &semLinha); // says `semLinha` when no row is selected
  bool TemTexto();                        // false for an empty file, once the operator has heard of it
  int Tipo() const;                       // kind of an agenda entry from the listed folder
  std::optional<EntryDrag> Arrasta();
  static QString NomeInutilizavel();
  void Listado();
  void ShowRow();
  void ShowState();

  SongDoors m_doors;
  QLineEdit *m_text1;
  ListMusicas *m_list;
  ReadingPane *m_leitura;
  QLabel *m_estado;
  QLabel *m_selecionado;
  QLabel *m_label2; // what came of the last add
  QPushButton *m_command1 = nullptr;
  QPushButton *m_command2 = nullptr;
  QPushButton *m_command3 = nullptr;
  QPushButton *m_command4 = nullptr;
  QPushButton *m_mostrar = nullptr;
  QString m_aSelecionar;                       // the song to select when the running search has listed its rows
  std::unique_ptr<PeriodicTimer> m_timer1;     // takes Label2 away
  std::unique_ptr<PeriodicTimer> m_timerBusca; // tells of a search that takes long
};

} // namespace tolmira
