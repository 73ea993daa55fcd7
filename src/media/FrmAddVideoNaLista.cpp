#include "media/FrmAddVideoNaLista.h"

#include "controls/ui/add_dialog.h"
#include "controls/ui/palette.h"
#include "media/video_files.h"
#include "media/video_site.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {
constexpr int FirstWidth = 520;
}

FrmAddVideoNaLista::FrmAddVideoNaLista(const VideoDoors &doors, std::function<void()> abreControle)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors) {
  setObjectName(QStringLiteral("FrmAddVideoNaLista"));
  setWindowTitle(tr("Add videos"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  const auto button = [this](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
  };
  auto *files = new QHBoxLayout;
  files->setSpacing(medidas::Gap);
  m_commandVideo =
      button("CommandVideo", tr("Choose &files…"), tr("Puts videos of this computer into the active agenda"));
  m_commandVideo->setProperty("look", QStringLiteral("main"));
  m_commandControle = button("CommandControle", tr("&Control…"), tr("Opens the control of the video that is on show"));
  files->addWidget(m_commandVideo);
  files->addStretch(1);
  files->addWidget(m_commandControle);
  column->addLayout(files);

  auto *link = new QHBoxLayout;
  link->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setPlaceholderText(tr("Or the link of a web video"));
  m_text1->setAccessibleName(tr("Link of a web video"));
  m_text1->setToolTip(tr("Paste the address of the video here"));
  m_text1->setClearButtonEnabled(true);
  m_command1 = button("Command1", QString(), tr("Puts the link into the active agenda (Enter)"));
  link->addWidget(m_text1, 1);
  link->addWidget(m_command1);
  column->addLayout(link);

  m_label2 = NewAddedLabel(this);
  column->addWidget(m_label2);
  column->addStretch(1);

  connect(m_commandVideo, &QPushButton::clicked, this, &FrmAddVideoNaLista::CommandVideo);
  connect(m_commandControle, &QPushButton::clicked, this, std::move(abreControle));
  connect(m_command1, &QPushButton::clicked, this, &FrmAddVideoNaLista::CommandLink);
  connect(m_text1, &QLineEdit::returnPressed, this, &FrmAddVideoNaLista::CommandLink);
  AtualizaAgenda();
  resize(FirstWidth, sizeHint().height());
}

void FrmAddVideoNaLista::Open() {
  AtualizaAgenda();
  AtualizaControle();
  if (!isVisible()) {
    m_text1->clear();
    m_label2->clear();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_commandVideo->setFocus();
}

void FrmAddVideoNaLista::AtualizaControle() {
  m_commandControle->setEnabled(m_doors.emExibicao() || m_doors.daWebEmExibicao());
}

void FrmAddVideoNaLista::AtualizaAgenda() {
  QString title = m_doors.tituloDaAgenda ? m_doors.tituloDaAgenda() : QString();
  constexpr int Longest = 30; // letters; the button stays of a size
  if (title.size() > Longest)
    title = title.left(Longest - 1) + u'…';
  m_command1->setText(IncludeCaption(title));
}

void FrmAddVideoNaLista::CommandVideo() {
  const QStringList escolhidos = EscolheVideos(m_doors.store, m_doors.prompt);
  QStringList mensagens;
  for (const QString &path : escolhidos) {
    QString mensagem;
    m_doors.console.PorNaLista(NomeDoVideo(path), TipoVideoDaAgenda, path, mensagem);
    // Where one of several was not added, it is said which.
    if (escolhidos.size() > 1 && !mensagem.startsWith(u"Adicionado com sucesso"))
      mensagem = NomeDoVideo(path) + u": " + mensagem;
    if (!mensagens.contains(mensagem))
      mensagens << mensagem;
  }
  m_label2->setText(mensagens.join(u'\n'));
}

void FrmAddVideoNaLista::CommandLink() {
  const QString link = VideoSite(m_doors.store).LinkDe(m_text1->text().trimmed());
  QString mensagem;
  m_doors.console.PorNaLista(link, TipoVideoDaAgenda, link, mensagem);
  m_label2->setText(mensagem);
  if (!link.isEmpty())
    m_text1->clear();
}

void FrmAddVideoNaLista::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmAddVideoNaLista::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

} // namespace tolmira
