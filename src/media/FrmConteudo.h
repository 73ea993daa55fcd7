#pragma once

#include "media/suggested_videos.h"
#include "media/ui/content_doors.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidgetItem;

namespace tolmira {

class RowList;
class WorkStrip;

// The videos that Data\content.dat suggests: brings them into the folder Videos, one at a time, and puts those that are
// there into the agenda. Closing stops a download, which goes on from there the next time.
class FrmConteudo : public QWidget {
  Q_OBJECT

public:
  explicit FrmConteudo(ContentDoors doors);
  void Open();
  void AtualizaAgenda();

protected:
  void hideEvent(QHideEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  void MakeButtons();
  void PoeLinhas();
  void MostraEstado(QTreeWidgetItem *item, const VideoSugerido &video);
  void MostraBotoes();
  void CommandBaixar(); // "Download", or "Stop"
  void CommandLista();
  void Para();
  const VideoSugerido *Atual() const;

  ContentDoors m_doors;
  VideosSugeridos m_videos;
  CatalogoDeVideos m_catalogo;
  RowList *m_list1;
  WorkStrip *m_strip;
  QLabel *m_label2;
  QPushButton *m_baixar;
  QPushButton *m_lista;
};

} // namespace tolmira
