#pragma once

#include "themes/picture_adder.h"
#include "themes/picture_gallery.h"
#include "themes/small_copy_loader.h"
#include "themes/ui/theme_doors.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;

namespace tolmira {

class cExibeMiniaturas;
class PictureView;
enum class MarcaDeImagem;

// The gallery of all pictures. It hands the chosen one to whoever opened it.
class FrmBrowseImages : public QWidget {
  Q_OBJECT

public:
  // `abreInternet` opens the search on the web over the gallery; used only when the doors have what it needs.
  explicit FrmBrowseImages(const ThemeDoors &doors, std::function<void(QWidget *dono)> abreInternet = {});
  ~FrmBrowseImages() override;

  // Modal over its client. A gallery that stands open goes over to the new client.
  void Open(const PedidoDeImagem &pedido);
  // Pictures that came into the folder by another window; nothing happens while the gallery is closed.
  void Chegaram(const QStringList &nomes);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void MakeTop();
  void MakeGrid();
  void MakeBottom();
  void ExibireFechar();
  bool Usa(); // hands the selected picture to the client; false when there is none to hand
  void Label17();
  void Adicionadas(const QStringList &nomes);
  void AbreMenu(int index, const QPoint &global);
  void Faz(MarcaDeImagem marca);
  std::function<void(MarcaDeImagem)> FazCom(const QString &nome);
  void Preview();
  void AmpliaSelecionada();
  void FechaPreview();
  void Exclui();
  void AtualizaTitulo();
  void AtualizaBotoes();
  QString Primeira() const; // the first entry of the menus, where the client gives it another text
  QString Acao() const;     // the action label

  ThemeDoors m_doors;
  std::function<void(QWidget *dono)> m_abreInternet;
  PictureGallery m_galeria;
  SmallCopyLoader m_loader;
  PictureAdder m_adder;
  PedidoDeImagem m_pedido;
  QLabel *m_titulo = nullptr;
  QPushButton *m_label17 = nullptr;
  cExibeMiniaturas *m_grade = nullptr;
  PictureView *m_preview = nullptr;
  QLabel *m_estado = nullptr;
  QPushButton *m_para = nullptr;
  QCheckBox *m_chkMoveImagem = nullptr;
  QPushButton *m_ampliar = nullptr;
  QPushButton *m_excluir = nullptr;
  QPushButton *m_acao = nullptr;
};

} // namespace tolmira
