#include "media/FrmConteudo.h"

#include "controls/ui/add_dialog.h"
#include "controls/ui/palette.h"
#include "controls/ui/plain_tip.h"
#include "controls/ui/row_list.h"
#include "controls/ui/work_strip.h"
#include "foundation/real_path.h"
#include "media/video_files.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize Tamanho{760, 440};
constexpr int AlturaMinima = 300;
constexpr int LarguraDoTitulo = 380;
constexpr int LarguraDoTamanho = 110;
constexpr qsizetype MaiorAgenda = 30; // letters of its title on the button

} // namespace

FrmConteudo::FrmConteudo(ContentDoors doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)),
      m_videos(m_doors.app, m_doors.web,
               {[this](const VideoSugerido &video) {
                  for (int i = 0; i < m_catalogo.videos.size(); ++i)
                    if (m_catalogo.videos[i].arquivo == video.arquivo)
                      MostraEstado(m_list1->topLevelItem(i), video);
                  MostraBotoes();
                },
                [this](const QString &fase, qint64 feito, qint64 total) { m_strip->Advance(fase, feito, total); },
                [this](const QString &frase) {
                  m_strip->End(frase);
                  MostraBotoes();
                }}),
      m_list1(new RowList({tr("Video"), tr("Size"), tr("State")}, this)), m_strip(new WorkStrip(this)),
      m_label2(NewAddedLabel(this)) {
  setObjectName(QStringLiteral("FrmConteudo"));
  setWindowTitle(tr("Suggested videos"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setAccessibleName(tr("Suggested videos"));
  m_list1->setToolTip(tr("The videos of the file Data\\content.dat"));
  m_list1->setColumnWidth(0, LarguraDoTitulo);
  m_list1->setColumnWidth(1, LarguraDoTamanho);
  column->addWidget(m_list1, 1);
  column->addWidget(m_strip);
  column->addWidget(m_label2);
  MakeButtons();
  connect(m_list1, &QTreeWidget::currentItemChanged, this, &FrmConteudo::MostraBotoes);
  connect(m_strip, &WorkStrip::Stopped, this, &FrmConteudo::Para);
  AtualizaAgenda();
  setMinimumHeight(AlturaMinima);
  resize(Tamanho);
}

void FrmConteudo::MakeButtons() {
  const auto button = [this](const char *name, const QString &tip) {
    auto *made = new QPushButton(this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
  };
  m_baixar = button("Command1", tr("Brings the chosen video into the folder Videos, or goes on with it"));
  m_baixar->setText(tr("&Download"));
  m_lista = button("CommandLista", tr("Puts the chosen video into the active agenda"));
  m_lista->setProperty("look", QStringLiteral("main"));
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  row->addWidget(m_baixar);
  row->addStretch(1);
  row->addWidget(m_lista);
  static_cast<QVBoxLayout *>(layout())->addLayout(row);
  connect(m_baixar, &QPushButton::clicked, this, &FrmConteudo::CommandBaixar);
  connect(m_lista, &QPushButton::clicked, this, &FrmConteudo::CommandLista);
}

void FrmConteudo::Open() {
  AtualizaAgenda();
  if (!isVisible()) {
    m_label2->clear();
    m_catalogo = LeCatalogoDeVideos(m_doors.app);
    m_strip->End(
        m_catalogo.recusadas == 0 ? QString()
        : m_catalogo.recusadas == 1
            ? tr("1 line of Data\\content.dat is no video that can be fetched.")
            : tr("%1 lines of Data\\content.dat are no videos that can be fetched.").arg(m_catalogo.recusadas));
    PoeLinhas();
    m_videos.Confere(m_catalogo.videos);
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_list1->setFocus();
}

void FrmConteudo::PoeLinhas() {
  m_list1->clear();
  m_list1->SetEmptyText(tr("No videos are suggested. They are listed in the file Data\\content.dat of the program "
                           "folder."));
  for (const VideoSugerido &video : std::as_const(m_catalogo.videos)) {
    auto *item = new QTreeWidgetItem(m_list1);
    item->setText(0, video.titulo);
    item->setToolTip(0, PlainTip(video.titulo));
    item->setText(1, QLocale().formattedDataSize(video.tamanho, 1));
    item->setToolTip(1, item->text(1));
    MostraEstado(item, video);
  }
  m_list1->setCurrentItem(m_list1->topLevelItem(0));
  MostraBotoes();
}

void FrmConteudo::MostraEstado(QTreeWidgetItem *item, const VideoSugerido &video) {
  QString texto;
  switch (m_videos.Estado(video)) {
  case EstadoDoVideo::NaoEsta:
    texto = tr("not there");
    break;
  case EstadoDoVideo::Parte:
    texto = tr("%1 of it").arg(QLocale().formattedDataSize(m_videos.Veio(video), 1));
    break;
  case EstadoDoVideo::Conferindo:
    texto = tr("being checked…");
    break;
  case EstadoDoVideo::Esta:
    texto = tr("there");
    break;
  case EstadoDoVideo::Outro:
    texto = tr("wrong sum: another file has this name");
    break;
  }
  item->setText(2, texto);
  item->setToolTip(2, texto);
}

const VideoSugerido *FrmConteudo::Atual() const {
  const int row = m_list1->indexOfTopLevelItem(m_list1->currentItem());
  return row >= 0 && row < m_catalogo.videos.size() ? &m_catalogo.videos[row] : nullptr;
}

void FrmConteudo::MostraBotoes() {
  const VideoSugerido *video = Atual();
  const EstadoDoVideo estado = video ? m_videos.Estado(*video) : EstadoDoVideo::Outro;
  const bool falta = estado == EstadoDoVideo::NaoEsta || estado == EstadoDoVideo::Parte;
  m_baixar->setText(estado == EstadoDoVideo::Parte ? tr("Go &on downloading") : tr("&Download"));
  m_baixar->setEnabled(falta && !m_videos.Baixando());
  m_lista->setEnabled(estado == EstadoDoVideo::Esta);
}

void FrmConteudo::CommandBaixar() {
  const VideoSugerido *video = Atual();
  if (!video || m_videos.Baixando())
    return;
  m_strip->Begin(video->titulo);
  m_videos.Baixa(*video);
  MostraBotoes();
}

void FrmConteudo::Para() {
  if (!m_videos.Baixando())
    return;
  m_videos.Para();
  m_strip->End(tr("Stopped. What has come is kept."));
  for (int i = 0; i < m_catalogo.videos.size(); ++i)
    MostraEstado(m_list1->topLevelItem(i), m_catalogo.videos[i]);
  MostraBotoes();
}

void FrmConteudo::CommandLista() {
  const VideoSugerido *video = Atual();
  if (!video || m_videos.Estado(*video) != EstadoDoVideo::Esta)
    return;
  QString mensagem;
  m_doors.console.PorNaLista(video->titulo, TipoVideoDaAgenda, MapStoredPath(m_videos.Caminho(*video)).text(),
                             mensagem);
  m_label2->setText(mensagem);
}

void FrmConteudo::AtualizaAgenda() {
  QString title = m_doors.tituloDaAgenda ? m_doors.tituloDaAgenda() : QString();
  if (title.size() > MaiorAgenda) // the button stays of a size
    title = title.left(MaiorAgenda - 1) + u'…';
  m_lista->setText(IncludeCaption(title));
}

void FrmConteudo::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  if (!event->spontaneous()) {
    Para();
    m_videos.ParaDeConferir();
  }
  QWidget::hideEvent(event);
}

void FrmConteudo::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

} // namespace tolmira
