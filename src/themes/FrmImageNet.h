#pragma once

#include "foundation/app_folder.h"
#include "foundation/seams.h"
#include "foundation/ui/form_position.h"
#include "themes/web_picture_adder.h"
#include "themes/web_picture_search.h"

#include <QWidget>
#include <functional>

class QBoxLayout;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace tolmira {

class ElidedLabel;
class WebResultView;
class WorkStrip;

// What the window works with. All of it outlives it.
struct ImageNetDoors {
  const AppFolder &app;
  PageFetcher &paginas;
  const Endpoints &endpoints;
  FormPositions &posicoes;
  UserPrompt &prompt;
  QWidget *dono = nullptr;                             // the console's window
  std::function<void(const QString &nome)> adicionada; // a picture came into the gallery; may be empty
};

// Looks for pictures on the web and takes the chosen ones into the gallery.
class FrmImageNet : public QWidget {
  Q_OBJECT

public:
  explicit FrmImageNet(const ImageNetDoors &doors);

  // Modal over `dono`, or beside the console when that is null.
  void Open(QWidget *dono = nullptr);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeTop(QBoxLayout *column);
  QWidget *MakeResults();
  QWidget *MakePreview();
  void MakeBottom(QBoxLayout *column);
  QPushButton *Botao(const char *name, const QString &text, const QString &tip);
  void Pesquisa(const QString &termo);
  void PesquisaDigitada();
  void Vizinha(int delta);
  void ComecaBusca();
  void AcabaBusca(const QString &desfecho);
  void Mostra(const ResultadoDaBusca &resultado);
  bool MostraEm(WebResultView *onde, const QString &pagina);
  void MostraInstrucoes();
  void Clicou(const QString &id);
  void AbrePreview(const ImagemDaWeb &imagem);
  void FechaPreview();
  void BtAdicionarClick();
  void Pergunta(const QString &nome);
  void Adicionada(const FimDaAdicao &fim);
  bool EmPreview() const;
  void Diz(MessageKind kind, const QString &texto);

  ImageNetDoors m_doors;
  WebPictureSearch m_busca;
  WebPictureAdder m_adder;
  ResultadoDaBusca m_naTela;
  ImagemDaWeb m_escolhida;
  QString m_termo;       // being searched
  QString m_termoNaTela; // of the page on show, which the next and the previous one go on with
  QLineEdit *m_txtPesquisa = nullptr;
  QList<QPushButton *> m_pesquisam; // begin a search, and rest while one is under way
  QStackedWidget *m_folhas = nullptr;
  WebResultView *m_wb = nullptr;
  QPushButton *m_command2[2] = {};
  QLabel *m_label1 = nullptr;
  WorkStrip *m_andamento = nullptr; // of the search
  WebResultView *m_imagem = nullptr;
  ElidedLabel *m_nome = nullptr;
  QPushButton *m_btAdicionar = nullptr;
  QFrame *m_picFrmPergunta = nullptr;
  QLabel *m_lbPergunta = nullptr;
  QPushButton *m_manterOsDois = nullptr;
  WorkStrip *m_dl1 = nullptr; // of the download
};

} // namespace tolmira
