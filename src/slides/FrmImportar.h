#pragma once

#include "foundation/ui/form_position.h"
#include "slides/document_import.h"
#include "slides/ui/slide_doors.h"

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
  const IniStore &store;
  UserPrompt &prompt;
  FormPositions &posicoes;
  std::function<DocumentImport::Programas()> programas; // asked each time: LibreOffice may have been installed since
  std::function<QSize()> telaPx;                        // of the projection; empty where there is no projector
  std::function<bool()> editorAberto;                   // the editor that takes the pages stands open already
};

// Shows how far the import of a document is, asks for its password, says why it came to nothing. It is not modal: the
// service goes on meanwhile, and the end of an import asks nothing and brings nothing to the front of it.
class FrmImportar : public QDialog {
  Q_OBJECT

public:
  FrmImportar(const ImportDoors &doors, QWidget *parent);

  // Asks for a document and imports it; `pronto` gets its pages. While one is at work its window comes to the front.
  // Pages that still wait for somebody are offered first.
  void Pergunta(const AbreImagens &pronto);
  void Importa(const QString &path, const AbreImagens &pronto);
  bool Trabalha() const { return m_import.Trabalha(); }

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
  void Terminou();
  void Entrega();      // the pages to whoever asked for them
  void EsperaEditor(); // the pages wait until it is free
  void Espera(const QString &frase);
  void Acabou(const QString &frase);

  ImportDoors m_doors;
  DocumentImport m_import;
  AbreImagens m_pronto;
  QStringList m_imagens; // that nobody has taken yet
  QString m_nome;
  ElidedLabel *m_arquivo;
  QLabel *m_estado;
  QProgressBar *m_barra;
  QWidget *m_painelSenha = nullptr;
  QLineEdit *m_senha = nullptr;
  QPushButton *m_abrir = nullptr;
  QPushButton *m_parar;
};

} // namespace tolmira
