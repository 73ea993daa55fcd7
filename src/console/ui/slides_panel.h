#pragma once

#include "console/ui/console_parts.h"
#include "themes/picture_file.h"

#include <QAbstractListModel>
#include <QCache>
#include <QListView>

class QTimer;

namespace tolmira {

class SmallCopyLoader;

// The slides of the document on show, and as many small copies of their pictures as memory is given for.
class SlideListModel : public QAbstractListModel {
  Q_OBJECT

public:
  explicit SlideListModel(QObject *parent);

  void SetDocumento(const SlideDocument &documento);
  const Slide &SlideDe(int linha) const { return m_slides[linha]; }
  void Recebe(const QString &caminho, const PictureImage &imagem);
  // Null while it has not come, and for a slide without a picture; owned by the model, until the next Recebe.
  const PictureImage *Copia(int linha) const { return m_copias.object(m_slides[linha].Imagem); }

  int rowCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;

private:
  QList<Slide> m_slides;
  QCache<QString, PictureImage> m_copias; // costs in KiB
};

// ControlSlides1: a tile for each slide of the document on show, in place of the strip. A tile is drawn: its picture
// (PicSlide), its title (LbTitulo) and the beginning of its text (LbTexto). A click goes to the slide.
class SlidesPanel : public QListView {
  Q_OBJECT

public:
  SlidesPanel(ConsoleParts parts, QWidget *parent);
  void Atualiza();

protected:
  void resizeEvent(QResizeEvent *event) override;

private:
  void PedeVisiveis();
  void AjustaGrade();
  void MostraEscolhido();

  ConsoleParts m_parts;
  SlideListModel *m_modelo;
  SmallCopyLoader *m_loader;
  QTimer *m_pede;
  QString m_caminho;
  int m_leitura = 0;
  int m_escolhido = 0;
};

} // namespace tolmira
