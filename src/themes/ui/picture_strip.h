#pragma once

#include <QImage>
#include <QListWidget>

namespace tolmira {

// PicPics: pictures in their order, as small copies in a row or a column. Positions count from 1. It only asks: who
// owns the list changes it and shows it again.
class PictureStrip : public QListWidget {
  Q_OBJECT

public:
  explicit PictureStrip(Qt::Orientation direcao, QWidget *parent);

  // By names of pictures, bare or with their paths; `legendas`, if any, are written over the pictures.
  void Show(const QStringList &nomes, int escolhida, const QStringList &legendas = {});
  void MudaLegenda(int posicao, const QString &legenda);
  void Escolhe(int posicao); // without a signal
  void SetEmptyText(const QString &text) { m_emptyText = text; } // what an empty strip says
  void SetPicture(const QString &nome, const QImage &imagem);

signals:
  void Escolhida(int posicao);
  void Movida(int posicao, int paraOnde);
  void Removida(int posicao);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  void Grava(QListWidgetItem *cell, const QString &legenda);

  const Qt::Orientation m_direcao;
  QString m_emptyText;
  bool m_filling = false;
};

} // namespace tolmira
