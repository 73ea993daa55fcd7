#pragma once

#include "notices/notice_list.h"
#include "notices/ui/notice_doors.h"

#include <QDialog>
#include <functional>

class QBoxLayout;
class QListWidget;
class QPushButton;

namespace tolmira {

// The list of the ready-made notices.
class FrmListaAvisos : public QDialog {
  Q_OBJECT

public:
  // `usa` takes the notice that was chosen to be sent.
  FrmListaAvisos(const NoticeDoors &doors, std::function<void(const QString &texto)> usa);

  void Open(); // and reads the file

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  QWidget *Vazia(); // what an empty list shows instead
  void MakeButtons(QBoxLayout *column);
  void Mostra(int selecionado);
  // The selected row; -1, and the text that fits, when there is none.
  int Selecionado(const QString &listaVazia, const QString &semSelecao);
  void Usa();
  void Novo();
  void Edita();
  void Exclui();
  void ExcluiTodos();
  void Confirma(bool gravada, int selecionado); // shows the list after a change, or says that it could not be made
  void Diz(const QString &texto);

  NoticeDoors m_doors;
  std::function<void(const QString &)> m_usa;
  ListaDeAvisos m_avisos;
  QListWidget *m_list1;
  QPushButton *m_add = nullptr; // in m_picVazia
  QWidget *m_picVazia;
};

} // namespace tolmira
