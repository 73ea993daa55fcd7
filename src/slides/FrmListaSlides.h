#pragma once

#include "slides/ui/slide_doors.h"

#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

// The list of the slide documents: adds them to the agenda, shows, edits and deletes them. Stays open for the next one.
class FrmListaSlides : public QWidget {
  Q_OBJECT

public:
  // The editor, of which there is one.
  struct Editor {
    std::function<void()> novo;
    std::function<void(const QString &path)> edita;
    std::function<void()> importa;
  };
  FrmListaSlides(const SlideDoors &doors, const EstadoSlides &estado, Editor editor);
  ~FrmListaSlides() override;

  void Open();
  void AtualizaLista(const QString &nome = {}); // and selects that one; without a name the selection stays
  void AtualizaAgenda();                        // the add button names the active agenda

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void changeEvent(QEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void MakeButtons(QVBoxLayout *column);
  void Mostra(const QString &selecionado);
  QString Texto() const; // the selected name, or empty
  bool TemSelecao();     // says so when there is none
  bool EditorFechado();  // says so when it stands open
  void Command2();       // adds the selected one
  void Command3();       // edits it
  void Command4();       // deletes its file
  void Exibe();
  void Diz(const QString &text);

  SlideDoors m_doors;
  const EstadoSlides &m_estado;
  Editor m_editor;
  QStringList m_nomes;
  QLineEdit *m_text1;
  QListWidget *m_list1;
  QLabel *m_quantos;
  QLabel *m_label2; // what came of the last add
  QPushButton *m_command2 = nullptr;
  std::unique_ptr<PeriodicTimer> m_timer1; // takes Label2 away
};

} // namespace tolmira
