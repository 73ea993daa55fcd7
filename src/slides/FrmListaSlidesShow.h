#pragma once

#include "slides/ui/show_doors.h"

#include <QWidget>
#include <functional>

class QLabel;
class QListWidget;
class QPushButton;

namespace tolmira {

// The list of the slide shows: adds them to the agenda, shows, edits and deletes them. Stays open for the next one.
class FrmListaSlidesShow : public QWidget {
  Q_OBJECT

public:
  // The editor, of which there is one.
  struct Editor {
    std::function<bool()> aberto;
    std::function<void()> novo;
    std::function<void(const QString &path)> edita;
  };
  FrmListaSlidesShow(const ShowDoors &doors, Editor editor);

  void Open();
  void AtualizaLista(const QString &nome = {}); // and selects that one; without a name the selection stays
  void AtualizaAgenda();                        // the add button names the active agenda

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void changeEvent(QEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  QString Path() const;    // of the selected show
  QString Texto() const;   // its name, or empty
  bool TemSelecao(const QString &semSelecao);
  bool EditorFechado();    // says so when it stands open
  void Adiciona();
  void Exibe();
  void Edita();
  void Exclui();
  void Diz(const QString &text);

  ShowDoors m_doors;
  Editor m_editor;
  QListWidget *m_list1;
  QLabel *m_label2; // what came of the last add
  QLabel *m_keys = nullptr;
  QPushButton *m_command2 = nullptr;
};

} // namespace tolmira
