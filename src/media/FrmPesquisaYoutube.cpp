#include "media/FrmPesquisaYoutube.h"

#include "controls/ui/add_dialog.h"
#include "controls/ui/palette.h"
#include "controls/ui/work_strip.h"
#include "display/ui/web_page_host.h"
#include "media/ui/site_view.h"
#include "media/video_files.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString Titulo = QStringLiteral("Tolmira");
constexpr QSize FirstSize{620, 560};
constexpr QSize LeastPage{400, 220};
constexpr int PageTimeoutSeconds = 8;
constexpr int MenorTermo = 2;

} // namespace

FrmPesquisaYoutube::FrmPesquisaYoutube(const VideoDoors &doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_site(doors.store) {
  setObjectName(QStringLiteral("FrmPesquisaYoutube"));
  setWindowTitle(tr("Web videos"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  MakeSearch(column);
  MakePages(column);
  m_label2 = NewAddedLabel(this);
  column->addWidget(m_label2);
  m_strip = new WorkStrip(this);
  column->addWidget(m_strip);
  connect(m_strip, &WorkStrip::Stopped, this, [this] {
    m_task.reset();
    m_cmdPesquisar->setEnabled(true);
    m_strip->End(tr("The search was stopped."));
  });
  resize(FirstSize);
}

FrmPesquisaYoutube::~FrmPesquisaYoutube() = default;

QPushButton *FrmPesquisaYoutube::Button(const char *name, const QString &text, const QString &tip) {
  auto *made = new QPushButton(text, this);
  made->setObjectName(QLatin1String(name));
  made->setToolTip(tip);
  made->setAutoDefault(false);
  return made;
}

void FrmPesquisaYoutube::MakeSearch(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_pesquisar1 = new QLineEdit(this);
  m_pesquisar1->setObjectName(QStringLiteral("Pesquisar1"));
  m_pesquisar1->setAccessibleName(tr("Words to search for"));
  m_pesquisar1->setPlaceholderText(tr("Title, singer or words"));
  m_pesquisar1->setToolTip(tr("What the video is called or who sings it (Enter searches)"));
  m_pesquisar1->setClearButtonEnabled(true);
  m_pesquisar1->setMaxLength(200);
  m_cmdPesquisar = Button("CmdPesquisar", tr("&Search"), tr("Searches the site for videos (Enter)"));
  m_cmdPesquisar->setProperty("look", QStringLiteral("main"));
  m_cmdSite =
      Button("CmdSite", tr("&Open the site"),
             tr("The site's own pages, to accept its cookies or to sign in; the projection shows nothing of it"));
  m_cmdSite->setCheckable(true);
  m_cmdVoltar = Button("CmdVoltar", tr("Bac&k"), tr("Back to the site's page before"));
  m_cmdVoltar->hide();
  row->addWidget(m_pesquisar1, 1);
  row->addWidget(m_cmdPesquisar);
  row->addWidget(m_cmdVoltar);
  row->addWidget(m_cmdSite);
  column->addLayout(row);
  connect(m_pesquisar1, &QLineEdit::returnPressed, this, &FrmPesquisaYoutube::Pesquisar1);
  connect(m_cmdPesquisar, &QPushButton::clicked, this, &FrmPesquisaYoutube::Pesquisar1);
  connect(m_cmdSite, &QPushButton::toggled, this, &FrmPesquisaYoutube::AbreSite);
  connect(m_cmdVoltar, &QPushButton::clicked, this, [this] { m_siteView->Volta(); });
}

void FrmPesquisaYoutube::MakePages(QVBoxLayout *column) {
  m_paginas = new QStackedWidget(this);
  m_paginas->setMinimumSize(LeastPage);
  m_dica = new QLabel(tr("Search for a video to play it on the projection or to put it into the agenda."), m_paginas);
  m_dica->setObjectName(QStringLiteral("LabelDica"));
  m_dica->setProperty("look", QStringLiteral("quiet"));
  m_dica->setAlignment(Qt::AlignCenter);
  m_dica->setWordWrap(true);
  m_wv = new WebPageHost(QStringLiteral("FrmPesquisaYoutube"), m_paginas, m_doors.perfil);
  m_wv->setObjectName(QStringLiteral("WV"));
  m_wv->SetInteractive();
  m_wv->SetForeign();
  m_siteView = new SiteView(
      m_doors.perfil, [this](const QUrl &url) { return m_site.PodeNoDialogo(url); }, m_paginas);
  m_siteView->setObjectName(QStringLiteral("SiteView"));
  for (QWidget *page :
       {static_cast<QWidget *>(m_dica), static_cast<QWidget *>(m_wv), static_cast<QWidget *>(m_siteView)})
    m_paginas->addWidget(page);
  column->addWidget(m_paginas, 1);
  connect(m_siteView, &SiteView::Endereco, this, [this](const QUrl &url) { Diz(url.host()); });
  connect(m_siteView, &SiteView::Recusado, this, [this](const QUrl &url) {
    Diz(tr("Only pages of the site open here, and not %1.").arg(url.host().isEmpty() ? url.scheme() : url.host()));
  });
  connect(m_siteView, &SiteView::Falhou, this, [this] { Diz(tr("The page could not be loaded.")); });
}

void FrmPesquisaYoutube::Open() {
  if (!isVisible()) {
    m_pesquisar1->clear();
    Diz(QString());
    m_strip->End();
    m_paginas->setCurrentWidget(m_dica);
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_pesquisar1->setFocus();
  m_pesquisar1->selectAll();
}

PageObject *FrmPesquisaYoutube::WV() const {
  return m_wv->WV();
}

void FrmPesquisaYoutube::Diz(const QString &texto) {
  m_label2->setText(texto);
}

void FrmPesquisaYoutube::Pesquisar1() {
  if (m_strip->IsBusy())
    return;
  const QString termo = m_pesquisar1->text().trimmed();
  const auto say = [this](const QString &text) { m_doors.prompt.Message(MessageKind::Information, Titulo, text); };
  if (termo.size() < MenorTermo) {
    say(QStringLiteral("Enter the search term or paste the link for the video."));
    return;
  }
  const QUrl endereco = m_site.Busca(termo);
  if (!endereco.isValid()) {
    say(m_site.PorQueNao());
    return;
  }
  Diz(QString());
  PageFetcher *paginas = m_doors.paginas ? m_doors.paginas() : nullptr;
  if (!paginas) {
    Veio(QString());
    return;
  }
  m_cmdPesquisar->setEnabled(false);
  m_strip->Begin(tr("Searching…"));
  m_task = paginas->FetchPage(
      QStringLiteral("pesquisayoutube"), endereco, MarcaDosResultados.toString(),
      [this](const QString &pagina) { Veio(pagina); },
      [this](int round) {
        if (round > 1)
          m_strip->Advance(tr("Searching, try %1 of %2…").arg(round).arg(PageFetcher::Rodadas), 0, 0);
      });
}

void FrmPesquisaYoutube::Veio(const QString &pagina) {
  const std::unique_ptr<WebTask> ended = std::move(m_task); // whose report this is
  if (pagina.isEmpty()) {
    Terminou();
    m_doors.prompt.Message(MessageKind::Warning, Titulo,
                           QStringLiteral("Unable to perform the search.\r\nCheck your internet connection."));
    return;
  }
  m_task = m_fios.Comeca([this, pagina](const std::atomic<bool> &, const SideThreads::Avisa &) -> SideThreads::Relato {
    return [this, dados = DadosDaPesquisa(pagina)](SideThreads::Ouvintes &) { Mostra(dados); };
  });
}

void FrmPesquisaYoutube::Terminou() {
  m_strip->End();
  m_cmdPesquisar->setEnabled(true);
}

void FrmPesquisaYoutube::Mostra(const QString &dados) {
  const std::unique_ptr<WebTask> ended = std::move(m_task); // whose report this is
  Terminou();
  const QString caminho = MontaPaginaDaPesquisa(m_doors.store.App(), dados, m_site.Inicio().toString());
  if (caminho.isEmpty() || !m_wv->CriaBrowser()) {
    Diz(tr("The page of the results could not be written."));
    return;
  }
  PageObject *page = m_wv->WV();
  page->AoNavegar = [this](const QString &uri, bool &cancel) {
    cancel = true;
    // A box must not stand inside the page's own call.
    QTimer::singleShot(0, this, [this, uri] { Escolheu(uri); });
  };
  m_cmdSite->setChecked(false);
  m_paginas->setCurrentWidget(m_wv);
  page->Navigate(caminho, PageTimeoutSeconds);
}

void FrmPesquisaYoutube::Escolheu(const QString &endereco) {
  const EscolhaDeVideo escolha = LeEscolhaDeVideo(endereco);
  if (escolha.acao == EscolhaDeVideo::Acao::Nada)
    return;
  const QString link = m_site.Embed(escolha.id);
  const QString titulo = escolha.titulo.isEmpty() ? link : escolha.titulo;
  if (escolha.acao == EscolhaDeVideo::Acao::Tocar) {
    m_doors.console.exibirVideoDaWeb(titulo, link);
    return;
  }
  QString mensagem;
  m_doors.console.PorNaLista(titulo, TipoVideoDaAgenda, link, mensagem);
  Diz(mensagem);
}

void FrmPesquisaYoutube::AbreSite(bool aberto) {
  m_cmdVoltar->setVisible(aberto);
  Diz(QString());
  if (!aberto) {
    m_siteView->Fecha();
    m_paginas->setCurrentWidget(m_wv->WV() ? static_cast<QWidget *>(m_wv) : m_dica);
    return;
  }
  const QUrl inicio = m_site.Inicio();
  if (!inicio.isValid()) {
    m_cmdSite->setChecked(false);
    m_doors.prompt.Message(MessageKind::Information, Titulo, m_site.PorQueNao());
    return;
  }
  m_paginas->setCurrentWidget(m_siteView);
  m_siteView->Abre(inicio);
}

void FrmPesquisaYoutube::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmPesquisaYoutube::closeEvent(QCloseEvent *event) {
  m_task.reset();
  Terminou();
  m_cmdSite->setChecked(false);
  RemovePaginaDaPesquisa(m_doors.store.App());
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::closeEvent(event);
}

} // namespace tolmira
