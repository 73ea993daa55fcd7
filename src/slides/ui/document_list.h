#pragma once

#include "console/presentation.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

// The list of the documents of one kind: adds them to the agenda, shows, edits and deletes them. Stays open for the
// next one.
class DocumentList : public QWidget {
  Q_OBJECT

public:
  // What the kind brings along. All that it refers to outlives the window.
  struct Kind {
    QString name; // of the window, for its place and for who looks for it
    QString title;
    int number = 0;  // of an agenda entry
    QString none;    // there are no documents
    QString one;     // there is one
    QString many;    // there are %1
    QString refusal; // the editor stands open
    struct {
      QString add;
      QString edit;
      QString remove;
    } noSelection;
    bool keepsFocus = true; // when an entry was shown; otherwise the window that opens for it has it

    std::function<QStringList()> names;                 // without folder and extension
    std::function<QString(const QString &name)> path;   // stored
    std::function<QString(const QString &name)> target; // of an agenda entry
    std::function<bool()> editorOpen;
    std::function<void()> create;
    std::function<void(const QString &path)> edit;
    std::function<void()> import; // may be empty
  };
  struct Doors {
    Presentation &console;
    FormPositions &positions;
    UserPrompt &prompt;
    std::function<QString()> agendaTitle; // may be empty
    QWidget *owner = nullptr;
  };
  DocumentList(Doors doors, Kind kind);

  void Open();
  void AtualizaLista(const QString &nome = {}); // and selects that one; without a name the selection stays
  void AtualizaAgenda();                        // the add button names the active agenda

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void changeEvent(QEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void MakeTop(QVBoxLayout *column);
  void MakeList(QVBoxLayout *column);
  void MakeButtons(QVBoxLayout *column);
  void Mostra(const QString &selecionado);
  QString Texto() const; // the selected name, or empty
  bool TemSelecao(const QString &semSelecao);
  bool EditorFechado(); // says so when it stands open
  void Adiciona();
  void Exibe();
  void Edita();
  void Exclui();
  void Diz(const QString &text);

  Doors m_doors;
  Kind m_kind;
  QStringList m_nomes;
  QLineEdit *m_text1 = nullptr;
  QListWidget *m_list1 = nullptr;
  QLabel *m_quantos = nullptr;
  QLabel *m_label2 = nullptr; // what came of the last add
  QPushButton *m_command2 = nullptr;
  QTimer m_timer1; // takes Label2 away
};

} // namespace tolmira
