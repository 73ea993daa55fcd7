#include "slides/FrmSlideShow.h"

#include "controls/ui/palette.h"
#include "controls/ui/take_text.h"
#include "controls/ui/value_slider.h"
#include "display/show_page.h"
#include "display/ui/web_page_host.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_utils.h"
#include "themes/picture_file.h"
#include "themes/picture_folder.h"

#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{960, 560};
constexpr int SettingsWidth = 272;
constexpr int StepMs = 250;       // of the times
constexpr int LeastStayMs = 1000; // of a picture
constexpr int LongestMs = 32000;
constexpr int PageTimeoutSeconds = 8;
enum Answer { SaveIt = 0, DropIt = 1 };

QString Segundos(int ms) { return NumberText(ms / 1000.0) + QStringLiteral(" s"); }

// The pictures among files and in folders, in their order, and how many were none.
struct Achadas {
  QStringList imagens;
  int outros = 0;
};
Achadas ImagensEm(const QStringList &paths) {
  Achadas achadas;
  for (const QString &path : paths) {
    const QFileInfo info(path);
    if (info.isDir()) {
      for (const QFileInfo &file : QDir(path).entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        if (ExaminePicture(file.filePath()).problem == PictureProblem::None)
          achadas.imagens.append(file.filePath());
    } else if (ExaminePicture(path).problem == PictureProblem::None) {
      achadas.imagens.append(path);
    } else {
      ++achadas.outros;
    }
  }
  return achadas;
}

} // namespace

FrmSlideShow::FrmSlideShow(const ShowDoors &doors)
    : QWidget(doors.dono, Qt::Window), m_doors(doors), m_editor(doors.app, doors.prompt) {
  setObjectName(QStringLiteral("FrmSlideShow"));
  setAcceptDrops(true);
  resize(FirstSize);
  auto *rows = new QVBoxLayout(this);
  rows->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Gap);
  MakeTop(rows);
  auto *desk = new QHBoxLayout;
  desk->setSpacing(medidas::Margin);
  desk->addWidget(MakeGallery(), 1);
  desk->addWidget(MakeSettings());
  rows->addLayout(desk, 1);
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this,
          [this] { Pede(AcaoDoShow::ApenasSalvar); });
}

FrmSlideShow::~FrmSlideShow() = default;

void FrmSlideShow::MakeTop(QBoxLayout *rows) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  auto *caption = new QLabel(tr("&Name"), this);
  m_txtNome = new QLineEdit(this);
  m_txtNome->setObjectName(QStringLiteral("TxtNome"));
  m_txtNome->setAccessibleName(tr("Name of the slide show"));
  m_txtNome->setToolTip(tr("The name under which the show is saved"));
  m_txtNome->setPlaceholderText(tr("Name of the slide show"));
  caption->setBuddy(m_txtNome);
  row->addWidget(caption);
  row->addWidget(m_txtNome, 1);
  const auto button = [this, row](const char *name, const QString &text, const QString &tip, AcaoDoShow acao) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, [this, acao] { Pede(acao); });
    return made;
  };
  m_botaoFlat[0] = button("BotaoFlat1", tr("Sho&w now"), tr("Saves the show and runs it. It needs no name for that"),
                          AcaoDoShow::ExibirAgora);
  m_botaoFlat[1] = button("BotaoFlat2", tr("Add to &agenda"), tr("Saves the show, puts it into the active agenda and closes"),
                          AcaoDoShow::AdicionarNaAgenda);
  button("CmdSalvar", tr("&Save"), tr("Saves the show"), AcaoDoShow::ApenasSalvar);
  button("CmdSalvarESair", tr("Save and &close"), tr("Saves the show and closes the window"), AcaoDoShow::SalvarESair)
      ->setProperty("look", QStringLiteral("main"));
  rows->addLayout(row);
  connect(m_txtNome, &QLineEdit::textChanged, this, [this](const QString &nome) {
    if (m_loading)
      return;
    m_editor.TxtNome = nome;
    Mudou();
  });
}

QWidget *FrmSlideShow::MakeGallery() {
  auto *panel = new QWidget(this);
  auto *column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [panel, row](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, panel);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    return made;
  };
  QPushButton *fromGallery = button("CmdGaleria", tr("Add from &gallery…"), tr("Adds pictures of the program's gallery"));
  fromGallery->setEnabled(m_doors.galeria != nullptr);
  QPushButton *fromFiles =
      button("CmdArquivos", tr("Add &files…"), tr("Adds pictures from anywhere; files and folders can be dropped here too"));
  m_estado = new QLabel(panel);
  m_estado->setObjectName(QStringLiteral("LbEstado"));
  m_estado->setProperty("look", QStringLiteral("quiet"));
  m_estado->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(m_estado, 1);
  column->addLayout(row);
  m_wv = new WebPageHost(QStringLiteral("FrmSlideShow"), panel, m_doors.perfil);
  m_wv->setObjectName(QStringLiteral("PicWV"));
  m_wv->SetInteractive();
  m_wv->setMinimumSize(330, 200);
  m_wv->OnRecovered = [this] { carregaGaleria(); }; // with what was moved and removed since it was written
  m_wv->installEventFilter(this);
  column->addWidget(m_wv, 1);
  auto *keys = new QLabel(tr("Drag a picture to its place. By keys: arrows, Ctrl with an arrow moves, Del removes"), panel);
  keys->setProperty("look", QStringLiteral("quiet"));
  keys->setWordWrap(true);
  column->addWidget(keys);

  connect(fromGallery, &QPushButton::clicked, this, [this] {
    m_doors.galeria(this, [this](const QString &path) { Acrescenta({path}); });
  });
  connect(fromFiles, &QPushButton::clicked, this, &FrmSlideShow::PedeArquivos);
  return panel;
}

void FrmSlideShow::MakeTime(QGridLayout *grid, const char *name, const QString &caption, const QString &tip, int least,
                            qint16 ShowEditor::*valor) {
  const int row = grid->rowCount();
  auto *label = new QLabel(caption, this);
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(name));
  slider->setRange(least / StepMs, LongestMs / StepMs);
  slider->setAccessibleName(QString(caption).remove(u'&'));
  slider->setToolTip(tip);
  label->setBuddy(slider);
  auto *value = new QLabel(this);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("32.75 s ")));
  grid->addWidget(label, row, 0);
  grid->addWidget(slider, row, 1);
  grid->addWidget(value, row, 2);
  m_tempos.append({slider, valor});
  // A time from a file that the slider has no place for stays as it is until the slider is moved.
  connect(slider, &ValueSlider::valueChanged, this, [this, value, valor](int posicao) {
    if (!m_loading)
      m_editor.*valor = static_cast<qint16>(posicao * StepMs);
    value->setText(Segundos(m_editor.*valor));
    if (!m_loading)
      Mudou();
  });
}

QPlainTextEdit *FrmSlideShow::MakeText(QBoxLayout *column, const char *name, const QString &caption,
                                       QString ShowEditor::*texto) {
  auto *label = new QLabel(caption, this);
  auto *box = new QPlainTextEdit(this);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(QString(caption).remove(u'&'));
  box->setToolTip(QString(caption).remove(u'&'));
  box->setTabChangesFocus(true);
  box->setMinimumHeight(44);
  label->setBuddy(box);
  column->addWidget(label);
  column->addWidget(box, 1);
  connect(box, &QPlainTextEdit::textChanged, this, [this, box, texto] {
    if (m_loading)
      return;
    // What is longer would not come back from the file.
    if (TextoParaOShow(TypedText(*box)).size() > MaiorTextoDoShow) {
      m_loading = true;
      TakeText(box, m_editor.*texto);
      m_loading = false;
      m_estado->setText(tr("A text can have %1 characters").arg(MaiorTextoDoShow));
      return;
    }
    m_editor.*texto = TypedText(*box);
    Mudou();
  });
  return box;
}

QWidget *FrmSlideShow::MakeSettings() {
  auto *panel = new QWidget(this);
  panel->setFixedWidth(SettingsWidth);
  auto *column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  auto *times = new QGridLayout;
  times->setSpacing(medidas::Step);
  MakeTime(times, "sliderTempo", tr("S&tays"), tr("How long each picture stays"), LeastStayMs, &ShowEditor::Tempo);
  MakeTime(times, "sliderIntervalo", tr("Comes &in"), tr("How long a picture takes to come in"), 0,
           &ShowEditor::TempoIntevalo);
  MakeTime(times, "sliderIntervaloSaida", tr("Goes &out"), tr("How long a picture takes to go"), 0,
           &ShowEditor::TempoIntevaloSaida);
  column->addLayout(times);

  auto *caption = new QLabel(tr("&Music, played in a loop"), panel);
  column->addWidget(caption);
  auto *music = new QHBoxLayout;
  music->setSpacing(medidas::Step);
  m_audio = new QLineEdit(panel);
  m_audio->setObjectName(QStringLiteral("TxtAudio"));
  m_audio->setAccessibleName(tr("File of the music"));
  m_audio->setToolTip(tr("The file of the music; empty for none"));
  m_audio->setPlaceholderText(tr("No music"));
  m_audio->setClearButtonEnabled(true);
  caption->setBuddy(m_audio);
  auto *choose = new QPushButton(tr("C&hoose…"), panel);
  choose->setObjectName(QStringLiteral("CmdAudio"));
  choose->setToolTip(tr("Chooses the file of the music"));
  music->addWidget(m_audio, 1);
  music->addWidget(choose);
  column->addLayout(music);
  m_textoInicio = MakeText(column, "textoInicio", tr("Text &before the pictures"), &ShowEditor::textoInicio);
  m_textoFim = MakeText(column, "textoFim", tr("Text at the &end"), &ShowEditor::textoFim);

  connect(m_audio, &QLineEdit::textChanged, this, [this](const QString &path) {
    if (m_loading)
      return;
    m_editor.audio = path;
    Mudou();
  });
  connect(choose, &QPushButton::clicked, this, &FrmSlideShow::PedeAudio);
  return panel;
}

bool FrmSlideShow::CarregarSlide(const QString &path) {
  if (!m_editor.CarregarSlide(path))
    return false;
  m_loading = true;
  m_txtNome->setText(m_editor.TxtNome);
  for (const Tempo &tempo : std::as_const(m_tempos)) {
    tempo.slider->setValue((m_editor.*tempo.valor + StepMs / 2) / StepMs);
    emit tempo.slider->valueChanged(tempo.slider->value()); // its text, also where the place is the same
  }
  m_audio->setText(m_editor.audio);
  m_audio->setCursorPosition(0);
  m_textoInicio->setPlainText(m_editor.textoInicio);
  m_textoFim->setPlainText(m_editor.textoFim);
  m_loading = false;
  carregaGaleria();
  return true;
}

void FrmSlideShow::Open() {
  if (!isVisible()) {
    m_doors.posicoes.RestoreFormPosition(*this, false);
    m_txtNome->setFocus();
  }
  show();
  raise();
  activateWindow();
}

PageObject *FrmSlideShow::WV() const { return m_wv->WV(); }

void FrmSlideShow::carregaGaleria() {
  Mudou();
  if (!m_wv->CriaBrowser())
    return;
  PageObject *page = m_wv->WV();
  page->AoNavegar = [this](const QString &uri, bool &cancel) {
    cancel = true;
    // A box must not stand inside the page's own call.
    QTimer::singleShot(0, this, [this, uri] { Recebe(LeRespostaDaGaleria(uri, m_editor.Imagens())); });
  };
  const QString pagina = tolmira::carregaGaleria(m_doors.app, m_editor.Imagens(), m_wv->height());
  if (pagina.isEmpty())
    return;
  page->Navigate(pagina, PageTimeoutSeconds);
}

void FrmSlideShow::Acrescenta(const QStringList &imagens) {
  const auto primeira = m_editor.Imagens().size();
  m_editor.Adiciona(imagens);
  carregaGaleria();
  if (PageObject *page = m_wv->WV())
    page->ExecuteScript(QStringLiteral("window.VaiPara && VaiPara(%1)").arg(primeira));
}

void FrmSlideShow::PedeArquivos() {
  AdicionaArquivos(m_doors.prompt.OpenFiles(tr("Add pictures"), QString(), FiltroDeImagens()));
}

void FrmSlideShow::AdicionaArquivos(const QStringList &paths) {
  if (paths.isEmpty())
    return;
  const Achadas achadas = ImagensEm(paths);
  if (!achadas.imagens.isEmpty())
    Acrescenta(achadas.imagens);
  if (achadas.outros > 0)
    m_estado->setText(achadas.outros == 1 ? tr("1 file is no picture") : tr("%1 files are no pictures").arg(achadas.outros));
}

void FrmSlideShow::PedeAudio() {
  const QString path = m_doors.prompt.OpenFile(
      tr("Music of the slide show"), QString(),
      tr("Music (*.mp3 *.m4a *.aac *.ogg *.oga *.opus *.flac *.wav *.wma *.mid);;All files (*)"));
  if (!path.isEmpty())
    m_audio->setText(path);
}

// The order that counts is the one on the page. A page that cannot answer (its template was changed, say) leaves the one
// that it was made of.
void FrmSlideShow::Pede(AcaoDoShow acao) {
  if (!m_editor.Pede(acao))
    return;
  const auto semPagina = [this] { Recebe({RespostaDaGaleria::Lista, m_editor.Imagens()}); };
  PageObject *page = m_wv->WV();
  if (!page) {
    semPagina();
    return;
  }
  page->Evaluate(QStringLiteral("typeof GetLista === 'function' ? (GetLista(), 1) : 0"),
                 [this, semPagina](const QString &json) {
                   if (json.toDouble() != 1)
                     QTimer::singleShot(0, this, semPagina);
                 });
}

void FrmSlideShow::Recebe(const RespostaDaGaleria &resposta) {
  if (m_asking)
    return;
  m_asking = true;
  const PassoDoEditor passo = m_editor.Recebe(resposta);
  m_asking = false;
  Mudou();
  if (!passo.gravado.isEmpty() && IsSameFile(passo.gravado, m_editor.Path()))
    emit Salvou(FileNameWithoutExtension(passo.gravado, QStringLiteral(".")));
  if (!passo.adiciona.isEmpty()) {
    QString message;
    m_doors.console.PorNaLista(FileNameWithoutExtension(passo.adiciona, QStringLiteral(".")), TipoSlideShow, passo.adiciona,
                               message);
  }
  if (passo.fecha)
    close();
  if (!passo.exibe.isEmpty())
    m_doors.console.ShowEntry(TipoSlideShow, 0, FileNameWithoutExtension(passo.exibe, QStringLiteral(".")), passo.exibe);
}

void FrmSlideShow::Mudou() {
  setWindowTitle(m_editor.Titulo() + QStringLiteral("[*]"));
  setWindowModified(m_editor.Alterado());
  const auto quantas = m_editor.Imagens().size();
  for (QPushButton *button : m_botaoFlat)
    button->setVisible(quantas > 0);
  m_estado->setText(quantas == 0 ? QString() : quantas == 1 ? tr("1 picture") : tr("%1 pictures").arg(quantas));
}

void FrmSlideShow::dragEnterEvent(QDragEnterEvent *event) {
  if (event->mimeData()->hasUrls())
    event->acceptProposedAction();
}

void FrmSlideShow::dropEvent(QDropEvent *event) {
  QStringList paths;
  for (const QUrl &url : event->mimeData()->urls())
    if (url.isLocalFile())
      paths.append(url.toLocalFile());
  AdicionaArquivos(paths);
  event->acceptProposedAction();
}

bool FrmSlideShow::eventFilter(QObject *watched, QEvent *event) {
  if (watched == m_wv && event->type() == QEvent::Resize && m_wv->WV())
    m_wv->WV()->ExecuteScript(
        QStringLiteral("window.Altura && Altura(%1)").arg(static_cast<QResizeEvent *>(event)->size().height()));
  return QWidget::eventFilter(watched, event);
}

void FrmSlideShow::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmSlideShow::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmSlideShow::closeEvent(QCloseEvent *event) {
  if (m_asking) {
    event->ignore();
    return;
  }
  if (m_editor.Alterado()) {
    m_asking = true; // whoever else wants to close this window shall wait
    const int answer = m_doors.prompt.Ask(BoxTitle, tr("Save the changes to this slide show?"),
                                          {tr("Yes"), tr("No"), tr("Cancel")});
    const bool leaves =
        answer == SaveIt ? !m_editor.GravaSlideShow(AcaoDoShow::ApenasSalvar).isEmpty() : answer == DropIt;
    m_asking = false;
    if (!leaves) {
      event->ignore();
      return;
    }
    if (answer == SaveIt)
      emit Salvou(m_editor.TxtNome.trimmed());
  }
  event->accept();
  emit Closed();
}

} // namespace tolmira
