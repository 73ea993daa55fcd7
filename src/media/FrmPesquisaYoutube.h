#pragma once

#include "media/ui/video_doors.h"
#include "media/video_site.h"
#include "media/web_video_search.h"
#include "web/side_threads.h"

#include <QWidget>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace tolmira {

class SiteView;
class WebPageHost;
class WorkStrip;

// The search for web videos: each result can be played at once or put into the agenda. It stays open for the next one.
// What the site asks before it shows videos is answered here, in the site's own page, so that it never comes to the
// projection.
class FrmPesquisaYoutube : public QWidget {
  Q_OBJECT

public:
  explicit FrmPesquisaYoutube(const VideoDoors &doors);
  ~FrmPesquisaYoutube() override;

  void Open();
  PageObject *WV() const; // of the results; null before the first search

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeSearch(QVBoxLayout *column);
  void MakePages(QVBoxLayout *column);
  void Pesquisar1();
  void Veio(const QString &pagina);
  void Terminou(); // the search, in whatever way
  void Mostra(const QString &dados);
  void Escolheu(const QString &endereco);
  void AbreSite(bool aberto);
  void Diz(const QString &texto);
  QPushButton *Button(const char *name, const QString &text, const QString &tip);

  VideoDoors m_doors;
  VideoSite m_site;
  QLineEdit *m_pesquisar1 = nullptr;
  QPushButton *m_cmdPesquisar = nullptr;
  QPushButton *m_cmdSite = nullptr;
  QPushButton *m_cmdVoltar = nullptr;
  QStackedWidget *m_paginas = nullptr;
  QLabel *m_dica = nullptr;
  WebPageHost *m_wv = nullptr;
  SiteView *m_siteView = nullptr;
  QLabel *m_label2 = nullptr;
  WorkStrip *m_strip = nullptr;
  SideThreads m_fios; // for reading the results
  std::unique_ptr<WebTask> m_task;
};

} // namespace tolmira
