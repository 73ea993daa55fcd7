#pragma once

#include "bible/bible_download.h"
#include "bible/ui/bible_download_doors.h"

#include <QWidget>

class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeWidgetItem;

namespace tolmira {

class ElidedLabel;
class RowList;

// Lists the versions of the Bible that the web offers for a term, those that are installed on the computer as SWORD
// modules and those that are in the program folder; brings the marked ones and removes one.
class FrmBaixarBiblia : public QWidget {
  Q_OBJECT

public:
  explicit FrmBaixarBiblia(BibleDownloadDoors doors);
  void Open();

protected:
  void closeEvent(QCloseEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  struct Linha {
    VersaoOferecida versao;
    QTreeWidgetItem *item;
    QStringList contado; // what came of its files
  };
  bool PodeFechar(); // during a download that is the operator's to say
  void MakeSearch();
  void MakeButtons();
  void Command1(); // "Search", or stops it
  void Command3(); // "Start Download", or "Stop"
  void Remove();
  void Achou(const std::optional<ListaDeBiblias> &lista);
  void PegaInstaladas();
  void MostraLista();
  void MostraEstado(const Linha &linha);
  void MostraBotoes();
  void Diz(const QString &texto);
  void Acabou();
  void ParaTudo();
  void VersoesMudaram();
  Linha *LinhaAtual();
  Linha *LinhaDe(const QString &nome);

  BibleDownloadDoors m_doors;
  BuscaDeBiblias m_busca;
  ImportadorDeBiblias m_importador;
  FilaDeBiblias m_fila;
  QLineEdit *m_text1;
  QPushButton *m_command1;
  RowList *m_list1;
  ElidedLabel *m_label1;
  QProgressBar *m_progress1;
  QPushButton *m_remove;
  QPushButton *m_command3;
  QList<VersaoOferecida> m_daWeb;
  QList<VersaoOferecida> m_instaladas;
  QList<Linha> m_linhas;
  QUrl m_lista; // where the versions of the web came from
  std::unique_ptr<WebTask> m_procura;
  std::unique_ptr<WebTask> m_listagem;
};

} // namespace tolmira
