#pragma once

#include "themes/picture_file.h"

#include <QFrame>

namespace tolmira {

// One picture, as large as fits, over the grid of the gallery.
class PictureView : public QFrame {
  Q_OBJECT

public:
  explicit PictureView(QWidget *parent);

  void Espera(const QString &nome); // the picture is on its way
  void Mostra(const QString &nome, const PictureImage &imagem);
  const QString &Nome() const { return m_nome; }
  const QImage &Imagem() const { return m_imagem.image; }
  QSize AreaPx() const; // device pixels that there are for a picture

signals:
  void Fechar();
  void Vizinha(int delta); // the next or previous picture
  void Usar();
  void Excluir();
  void MenuPedido(const QPoint &global);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  QRect Area() const;

  QString m_nome;
  PictureImage m_imagem;
};

} // namespace tolmira
