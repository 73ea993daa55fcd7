#pragma once

#include "foundation/ui/form_position.h"
#include "slides/document_import.h"

#include <QDialog>
#include <functional>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace tolmira {

class ElidedLabel;

// What the window works with. The references outlive it.
struct ImportDoors {
  const AppFolder &app;
  DocumentImport::Programas programas;
  FormPositions &posicoes;
  std::function<QSize()> telaPx; // of the projection; empty where there is none
  // Takes the finished document, which no file holds yet, with the name to propose for it.
  std::function<void(const SlideDocument &documento, const QString &nome)> abre;
};

// Shows how far the import of a document is, asks for its password, says why it came to nothing. It is not modal: the
// service goes on meanwhile.
class FrmImportar : public QDialog {
  Q_OBJECT

public:
  FrmImportar(const ImportDoors &doors, QWidget *parent);

  // False when one is at work already; its window comes to the front then.
  bool Importa(const QString &path);
  bool Trabalha() const { return m_import.Trabalha(); }
  DocumentImport &Importacao() { return m_import; }

  void reject() override; // Esc, "Stop" and the close button: stops first

protected:
  void hideEvent(QHideEvent *event) override;

private:
  QPushButton *Botao(const char *name, const QString &text, const QString &tip);
  void MakeSenha();
  void Diz(const QString &texto);
  void AoAndar(int prontas, int total);
  void PedeSenha(bool errada);
  void DaSenha();
  void MostraSenha(bool mostra);
  void Acabou(const QString &frase);

  ImportDoors m_doors;
  DocumentImport m_import;
  ElidedLabel *m_arquivo;
  QLabel *m_estado;
  QProgressBar *m_barra;
  QWidget *m_painelSenha = nullptr;
  QLineEdit *m_senha = nullptr;
  QPushButton *m_abrir = nullptr;
  QPushButton *m_parar;
};

} // namespace tolmira
