#pragma once

#include <QImage>
#include <QListWidget>

namespace tolmira {

// PicPics: the pictures of one theme in their order, as small copies. Positions count from 1. It only asks: who owns
// the list changes it and shows it again.
class PictureStrip : public QListWidget {
  Q_OBJECT

public:
  explicit PictureStrip(QWidget *parent);

  void Show(const QStringList &nomes, int escolhida); // bare file names
  void Escolhe(int posicao);                          // without a signal
  void SetPicture(const QString &nome, const QImage &imagem);

signals:
  void Escolhida(int posicao);
  void Movida(int posicao, int paraOnde);
  void Removida(int posicao);

protected:
  void keyPressEvent(QKeyEvent *event) override;

private:
  bool m_filling = false;
};

} // namespace tolmira
