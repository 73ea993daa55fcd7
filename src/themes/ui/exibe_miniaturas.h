#pragma once

#include "themes/picture_gallery.h"
#include "themes/ui/gallery_model.h"

#include <QColor>
#include <QElapsedTimer>
#include <QListView>
#include <QStringList>

class QTimer;

namespace tolmira {

class SmallCopyLoader;

// The grid of the gallery's pictures. Small copies come page by page as it scrolls, those in sight first.
class cExibeMiniaturas : public QListView {
  Q_OBJECT
  Q_PROPERTY(QString Pattern READ Pattern WRITE SetPattern)
  Q_PROPERTY(int Colunas READ Colunas WRITE SetColunas)
  Q_PROPERTY(int Distancia READ Distancia WRITE SetDistancia)
  Q_PROPERTY(int Borda READ Borda WRITE SetBorda)
  Q_PROPERTY(QColor cordefundo READ cordefundo WRITE Setcordefundo)
  Q_PROPERTY(int IndexSelecionado READ IndexSelecionado WRITE SetIndexSelecionado)
  Q_PROPERTY(QString NomeArquivo READ NomeArquivo)
  Q_PROPERTY(QString ItemSelecionado READ ItemSelecionado)

public:
  cExibeMiniaturas(const PictureGallery &galeria, SmallCopyLoader &loader, QWidget *parent);

  QString Pattern() const { return m_pattern; } // patterns joined by ";"
  void SetPattern(const QString &pattern) { m_pattern = pattern; }
  int Colunas() const; // those there are; 0 is set for as many as fit
  void SetColunas(int colunas);
  int Distancia() const { return m_distancia; } // between two cells, px
  void SetDistancia(int px);
  int Borda() const { return m_borda; } // round the picture in its cell, px
  void SetBorda(int px);
  QColor cordefundo() const { return m_corDeFundo; } // of the cells
  void Setcordefundo(const QColor &cor);

  int IndexSelecionado() const; // -1 for none
  void SetIndexSelecionado(int index);
  QString NomeArquivo() const;     // the bare file name of the selected picture; empty for none
  QString ItemSelecionado() const; // its stored path

  int GetTotal() const;
  void carregaImagens();             // by name
  void carregaImagensPorData();      // the newest first
  void RemovePics();                 // empties the grid; no file is touched
  void Retira(int index);            // the file is gone; its neighbour is selected
  void Esquece(const QString &nome); // the file changed: its small copy is fetched again
  void EsqueceTodas();
  void MoveScroll(int linhas); // scrolls by whole rows; negative is up
  void SetTextoVazio(const QString &text) { m_textoVazio = text; }

  const GalleryModel &Modelo() const { return *m_modelo; }

signals:
  void Clique(int index);
  void CliqueDuplo(int index);                         // Enter as well
  void CliqueDireito(int index, const QPoint &global); // -1 beside the pictures; the menu key as well
  void Mudou();                                        // another picture is selected, or none
  void AmpliarPedido(int index);
  void ExcluirPedido(int index);
  void Soltos(const QStringList &paths); // files of the desktop, dropped on the grid

protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
  void keyPressEvent(QKeyEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void showEvent(QShowEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void paintEvent(QPaintEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dragMoveEvent(QDragMoveEvent *event) override;
  void dragLeaveEvent(QDragLeaveEvent *event) override;
  void dropEvent(QDropEvent *event) override;

private:
  void Carrega(const QStringList &nomes);
  int LarguraInteira() const; // px, with the margin beside the pictures
  void AjustaGrade();
  void PedeVisiveis();
  int LinhasPorPagina() const;
  bool Digitando() const;

  const PictureGallery &m_galeria;
  SmallCopyLoader &m_loader;
  GalleryModel *m_modelo;
  QTimer *m_pede;
  QString m_pattern = PadraoDaGaleria;
  QString m_textoVazio;
  QColor m_corDeFundo;
  int m_colunas = 0;
  int m_distancia;
  int m_borda;
  bool m_soltando = false;  // files are held over the grid
  QElapsedTimer m_digitado; // since the last letter of a name that is being typed
};

} // namespace tolmira
