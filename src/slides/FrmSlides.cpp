#include "slides/FrmSlides.h"

#include "controls/ui/palette.h"
#include "controls/ui/take_text.h"
#include "display/page_builder.h"
#include "foundation/file_name.h"
#include "foundation/text_utils.h"
#include "slides/ui/slide_fields.h"
#include "slides/ui/slide_preview.h"
#include "themes/picture_folder.h"
#include "themes/ui/picture_strip.h"
#include "themes/ui/theme_look.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSet>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{1200, 700};
constexpr QSize Around{24, 40}; // of the screen, which stays free
constexpr int ExitMs = 1200;    // until the text comes back that went with its effect
enum Answer { SaveIt = 0, DropIt = 1 };

} // namespace

FrmSlides::FrmSlides(const SlideDoors &doors, EstadoSlides &estado)
    : QWidget(doors.dono, Qt::Window), m_doors(doors), m_estado(estado), m_editor(doors.store.App(), doors.prompt),
      m_draft(DraftFolder(doors.store.App()), doors.clock, [this] { return ToJson(m_editor.Draft()); }),
      m_loader(doors.store.App()) {
  setObjectName(QStringLiteral("FrmSlides"));
  resize(FirstSize.boundedTo(screen()->availableSize() - Around));
  auto *rows = new QVBoxLayout(this);
  rows->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Gap);
  MakeTop(rows);
  auto *desk = new QHBoxLayout;
  desk->setSpacing(medidas::Margin);
  desk->addWidget(MakeStrip());
  desk->addWidget(MakeSlide(), 1);
  desk->addWidget(MakeLook());
  rows->addLayout(desk, 1);
  MakeBottom(rows);
  MakeKeys();

  m_timerSaida = m_doors.clock.NewTimer([this] {
    m_timerSaida->Stop();
    m_preview->Mostra(m_editor.Documento(), m_editor.Indice());
  });
  connect(&m_loader, &SmallCopyLoader::Pronta, this, [this](const QString &nome, const PictureImage &imagem) {
    m_copias.insert(nome, imagem);
    m_picPics->SetPicture(nome, imagem.image);
  });
  m_editor.Salvou = [this](const QString &oldName, const QString &newName) { emit Salvou(oldName, newName); };
  m_draft.OnKept = [this](bool kept) {
    if (!kept)
      Tell(tr("The unsaved slides cannot be kept on disk. Save them."));
  };
}

FrmSlides::~FrmSlides() {
  Desmarca();
}

// Once only: a window that has closed goes later, when the next one may be open.
void FrmSlides::Desmarca() {
  if (std::exchange(m_marcado, false))
    m_estado.editorAberto.clear();
}

void FrmSlides::MakeTop(QVBoxLayout *rows) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  auto *caption = new QLabel(tr("&Name"), this);
  m_txtNomeArquivo = new QLineEdit(this);
  m_txtNomeArquivo->setObjectName(QStringLiteral("TxtNomeArquivo"));
  m_txtNomeArquivo->setAccessibleName(tr("Name of the slides"));
  m_txtNomeArquivo->setToolTip(tr("The name under which the slides are saved"));
  m_txtNomeArquivo->setPlaceholderText(tr("Name of the slides"));
  caption->setBuddy(m_txtNomeArquivo);
  row->addWidget(caption);
  row->addWidget(m_txtNomeArquivo, 1);
  const auto button = [this, row](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    return made;
  };
  m_desfazer = button("BtDesfazer", tr("&Undo"), tr("Takes the last change back (Ctrl+Z)"));
  m_refazer = button("BtRefazer", tr("Re&do"), tr("Makes it again (Ctrl+Shift+Z)"));
  rows->addLayout(row);
  connect(m_txtNomeArquivo, &QLineEdit::textChanged, this, [this](const QString &nome) {
    if (m_loading)
      return;
    m_editor.nome = nome;
    Mudou();
  });
  connect(m_desfazer, &QPushButton::clicked, this, [this] {
    m_editor.Desfaz();
    ShowAll();
    Mudou();
  });
  connect(m_refazer, &QPushButton::clicked, this, [this] {
    m_editor.Refaz();
    ShowAll();
    Mudou();
  });
}

QWidget *FrmSlides::MakeStrip() {
  auto *panel = new QWidget(this);
  auto *column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  const auto button = [panel](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, panel);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    return made;
  };
  QPushButton *add = button("ImgAddImagem", tr("Add &image…"), tr("Adds a slide with a picture of the gallery"));
  column->addWidget(add);
  m_picPics = new PictureStrip(Qt::Vertical, panel);
  m_picPics->setAccessibleName(tr("Slides"));
  m_picPics->SetEmptyText(tr("No slides yet. Each picture that you add becomes one."));
  m_picPics->setToolTip(tr("A click edits the slide. Drag, or Alt with Up and Down, changes the order; Delete takes a\n"
                           "slide out, its picture stays in the gallery."));
  column->addWidget(m_picPics, 1);
  m_trocar = button("BtTrocarImagem", tr("Chan&ge…"), tr("Gives the slide another picture"));
  m_duplicar = button("BtDuplicar", tr("Copy"), tr("Puts a copy of the slide behind it (Ctrl+D)"));
  m_remover = button("BtRemover", tr("&Remove"), tr("Takes the slide out (Delete, in the list)"));
  auto *pair = new QHBoxLayout;
  pair->setSpacing(medidas::Step);
  pair->addWidget(m_duplicar);
  pair->addWidget(m_remover);
  column->addWidget(m_trocar);
  column->addLayout(pair);
  m_intervalo = new QComboBox(panel);
  m_intervalo->setObjectName(QStringLiteral("ComboIntervalo"));
  m_intervalo->addItems({QStringLiteral("Manual"), QStringLiteral("10 sec"), QStringLiteral("15 sec"),
                         QStringLiteral("20 sec"), QStringLiteral("30 sec"), QStringLiteral("1 min")});
  m_intervalo->setAccessibleName(tr("Time for which each slide stands"));
  m_intervalo->setToolTip(tr("Time for which each slide stands; \"Manual\" waits for a key"));
  auto *interval = new QLabel(tr("N&ext slide"), panel);
  interval->setProperty("look", QStringLiteral("quiet"));
  interval->setBuddy(m_intervalo);
  column->addWidget(interval);
  column->addWidget(m_intervalo);

  connect(add, &QPushButton::clicked, this, &FrmSlides::ImgAddImagem);
  connect(m_trocar, &QPushButton::clicked, this, [this] {
    PedeImagem(m_editor.Indice(), [this](const QString &path) {
      m_editor.TrocaImagem(path);
      ShowAll();
      Mudou();
    });
  });
  connect(m_duplicar, &QPushButton::clicked, this, [this] {
    m_editor.DuplicaSlide(m_editor.Indice());
    ShowAll();
    Mudou();
  });
  const auto remove = [this](int index) {
    m_editor.RemoveSlide(index);
    ShowAll();
    Mudou();
  };
  connect(m_remover, &QPushButton::clicked, this, [this, remove] { remove(m_editor.Indice()); });
  connect(m_picPics, &PictureStrip::Removida, this, remove);
  connect(m_picPics, &PictureStrip::Movida, this, [this](int from, int to) {
    m_editor.MoveSlide(from, to);
    m_naTira.clear(); // the list has moved its row already
    ShowAll();
    Mudou();
  });
  connect(m_picPics, &PictureStrip::Escolhida, this, [this](int index) {
    m_editor.SelecionaSlide(index);
    m_slide->Load();
    Mudou();
  });
  connect(m_intervalo, &QComboBox::activated, this, [this](int posicao) {
    m_editor.DefineIntervalo(posicao);
    Mudou();
  });
  return panel;
}

QWidget *FrmSlides::MakeSlide() {
  auto *panel = new QWidget(this);
  auto *column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  m_preview = new SlidePreview(m_doors, panel);
  column->addWidget(m_preview, 3); // its own limit is the projection's shape
  m_slide = new SlideFields(m_editor, panel);
  column->addWidget(m_slide, 1);
  connect(m_slide, &SlideFields::Mudou, this, [this] {
    ShowStrip();
    Mudou();
  });
  connect(m_slide, &SlideFields::NaoCoube, this,
          [this] { Tell(tr("The text of a slide ends at %1 characters.").arg(MaiorTextoDeSlide)); });
  return panel;
}

QWidget *FrmSlides::MakeLook() {
  auto *panel = new QWidget(this);
  auto *column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  auto *scroll = new QScrollArea(panel);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  m_look = new ThemeLook(m_visual, m_doors.prompt, ThemeLook::Filters::Without, scroll);
  m_look->SetPictures(true);
  scroll->setWidget(m_look);
  scroll->setMinimumWidth(m_look->minimumSizeHint().width() + medidas::Margin);
  column->addWidget(scroll, 1);
  m_fonte = new QLabel(panel);
  m_fonte->setObjectName(QStringLiteral("LbFonte"));
  m_fonte->setProperty("look", QStringLiteral("quiet"));
  m_fonte->setTextFormat(Qt::PlainText);
  m_fonte->setWordWrap(true);
  m_fonte->hide();
  column->addWidget(m_fonte);

  const auto changed = [this] {
    m_editor.DefineVisual(m_visual);
    Mudou();
  };
  connect(m_look, &ThemeLook::TextoMudou, this, changed);
  connect(m_look, &ThemeLook::EfeitoDaImagemMudou, this, changed);
  connect(m_look, &ThemeLook::MovimentoMudou, this, changed);
  connect(m_look, &ThemeLook::EntradaMudou, this, [this, changed] {
    changed();
    m_preview->Entrada();
  });
  connect(m_look, &ThemeLook::SaidaMudou, this, [this, changed] {
    changed();
    m_preview->Saida();
    m_timerSaida->Start(ExitMs);
  });
  return panel;
}

void FrmSlides::MakeBottom(QVBoxLayout *rows) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_modelo = new QPushButton(tr("Save as tem&plate"), this);
  m_modelo->setObjectName(QStringLiteral("BtModelo"));
  m_state = new QLabel(this);
  m_state->setObjectName(QStringLiteral("LbEstado"));
  m_state->setProperty("look", QStringLiteral("quiet"));
  m_state->setTextFormat(Qt::PlainText);
  m_state->setWordWrap(true);
  m_state->setAccessibleName(tr("State of the slides"));
  m_command4 = new QPushButton(tr("&Save"), this);
  m_command4->setObjectName(QStringLiteral("Command4"));
  m_command4->setProperty("look", QStringLiteral("main"));
  m_command4->setToolTip(tr("Writes the slides into the collection (Ctrl+S)"));
  auto *close = new QPushButton(tr("Close"), this);
  close->setObjectName(QStringLiteral("Command5"));
  close->setToolTip(tr("Closes the window (Esc)"));
  row->addWidget(m_modelo);
  row->addWidget(m_state, 1);
  row->addWidget(m_command4);
  row->addWidget(close);
  rows->addLayout(row);
  connect(m_modelo, &QPushButton::clicked, this, &FrmSlides::SalvaModelo);
  connect(m_command4, &QPushButton::clicked, this, [this] { Command4(); });
  connect(close, &QPushButton::clicked, this, &QWidget::close);
}

void FrmSlides::MakeKeys() {
  const auto key = [this](const QKeySequence &sequence, bool repeats, const std::function<void()> &way) {
    auto *shortcut = new QShortcut(sequence, this);
    shortcut->setAutoRepeat(repeats);
    connect(shortcut, &QShortcut::activated, this, way);
  };
  key(QKeySequence(Qt::CTRL | Qt::Key_S), false, [this] { Command4(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_Z), true, [this] { m_desfazer->click(); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), true, [this] { m_refazer->click(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_Y), true, [this] { m_refazer->click(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_D), false, [this] { m_duplicar->click(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), true,
      [this] { m_picPics->setCurrentRow(std::min(m_picPics->currentRow() + 1, m_picPics->count() - 1)); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), true,
      [this] { m_picPics->setCurrentRow(std::max(m_picPics->currentRow() - 1, 0)); });
}

bool FrmSlides::LoadSlide(const QString &path) {
  if (!m_editor.LoadSlide(path))
    return false;
  ShowAll();
  Mudou();
  return true;
}

void FrmSlides::LoadDraft(const QString &id, const SlideDraft &draft) {
  const bool changed = DocumentHasChanged(draft);
  m_editor.LoadDraft(draft);
  m_draft.Adopt(id);
  ShowAll();
  Mudou();
  Tell(changed ? tr("These slides were not saved yet. Their file was changed since.")
               : tr("These slides were not saved yet."));
}

void FrmSlides::TomaImagens(const QStringList &imagens, const QString &nome) {
  m_editor.AddImages(imagens);
  m_editor.nome = nome;
  ShowAll();
  Mudou();
}

void FrmSlides::Open() {
  if (!isVisible()) {
    m_doors.posicoes.RestoreFormPosition(*this, false);
    (m_editor.Documento().Count() > 0 ? static_cast<QWidget *>(m_picPics) : m_txtNomeArquivo)->setFocus();
  }
  show();
  m_estado.editorAberto = QStringLiteral("true");
  m_marcado = true;
  raise();
  activateWindow();
}

void FrmSlides::PedeImagem(int numero, const std::function<void(const QString &path)> &usa) {
  const auto toma = [this, usa](const QString &path) {
    m_copias.remove(path); // the gallery may have got another picture of that name
    m_naTira.clear();
    usa(path);
  };
  if (m_doors.galeria) {
    m_doors.galeria(numero, this, toma);
    return;
  }
  const QString path = m_doors.prompt.OpenFile(BoxTitle, QString(), FiltroDeImagens());
  if (!path.isEmpty())
    toma(path);
}

void FrmSlides::ImgAddImagem() {
  PedeImagem(m_editor.Documento().Count() + 1, [this](const QString &path) {
    m_editor.AddImage(path);
    ShowAll();
    Mudou();
    m_slide->FocusTitle();
  });
}

QString FrmSlides::Legenda(int index) const {
  const QString titulo = m_editor.Documento().Em(index).Titulo.simplified();
  return QString::number(index) + (titulo.isEmpty() ? QString() : QString(u"  " + titulo));
}

// Filled anew only when its pictures or their order have changed.
void FrmSlides::ShowStrip() {
  const SlideDocument &documento = m_editor.Documento();
  QStringList nomes;
  QStringList semCopia;
  QStringList legendas;
  for (int i = 1; i <= documento.Count(); ++i) {
    nomes.append(documento.Em(i).Imagem);
    legendas.append(Legenda(i));
    if (!nomes.last().isEmpty() && !m_copias.contains(nomes.last()))
      semCopia.append(nomes.last());
  }
  if (nomes == m_naTira) {
    for (int i = 1; i <= documento.Count(); ++i)
      m_picPics->MudaLegenda(i, legendas[i - 1]);
    m_picPics->Escolhe(m_editor.Indice());
    return;
  }
  const QStringList antes = std::exchange(m_naTira, nomes);
  m_picPics->Show(nomes, m_editor.Indice(), legendas);
  QSet<QString> novos(nomes.begin(), nomes.end());
  novos.subtract({antes.begin(), antes.end()}); // the strip keeps the pictures of the others
  for (const QString &nome : std::as_const(novos))
    m_picPics->SetPicture(nome, m_copias.value(nome).image);
  m_loader.Deseja(semCopia);
}

void FrmSlides::ShowAll() {
  m_visual = m_editor.Documento().visual;
  m_look->Load();
  m_intervalo->setCurrentIndex(m_editor.Documento().Intervalo);
  m_loading = true;
  TakeText(m_txtNomeArquivo, m_editor.nome);
  m_loading = false;
  ShowStrip();
  m_slide->Load();
}

void FrmSlides::Mudou() {
  const SlideDocument &documento = m_editor.Documento();
  const bool tem = m_editor.Indice() > 0;
  Tell({});
  m_slide->ShowValues();
  for (QWidget *control : {m_remover, m_trocar, m_duplicar, m_command4})
    control->setEnabled(tem);
  m_modelo->setToolTip(tem ? tr("New slides begin with the look of these; a new document follows")
                           : tr("Without slides: new ones begin with the program's own look again"));
  m_desfazer->setEnabled(m_editor.PodeDesfazer());
  m_refazer->setEnabled(m_editor.PodeRefazer());
  setWindowTitle(m_editor.Titulo() + QStringLiteral("[*]"));
  setWindowModified(m_editor.Alterado());
  const QString &fonte = documento.visual.Font_Name;
  const bool instalada = FonteInstalada(fonte) == fonte;
  m_fonte->setText(
      instalada ? QString() : tr("The font '%1' is not installed here; another one is shown in its place.").arg(fonte));
  m_fonte->setVisible(!instalada);
  m_timerSaida->Stop();
  m_preview->Mostra(documento, m_editor.Indice());
  if (m_editor.Alterado())
    m_draft.Changed();
  else
    m_draft.Forget();
}

void FrmSlides::Tell(const QString &text) {
  m_state->setText(text);
}

bool FrmSlides::Command4() {
  if (m_asking)
    return false;
  m_asking = true;
  const bool saved = m_editor.SalvarSlide();
  m_asking = false;
  ShowAll(); // the name without what no file name should hold
  Mudou();
  if (saved)
    Tell(tr("Saved as %1").arg(FileNameOf(m_editor.Path())));
  else
    (m_editor.Documento().Count() > 0 ? static_cast<QWidget *>(m_txtNomeArquivo) : m_picPics)->setFocus();
  return saved;
}

bool FrmSlides::PodeLargar() {
  if (!m_editor.Alterado())
    return true;
  const QString nome = TidyFileName(m_editor.nome);
  m_asking = true;
  const int answer = m_doors.prompt.Ask(
      BoxTitle, tr("The slides of '%1' are not saved. Save them?").arg(nome.isEmpty() ? tr("New slides") : nome),
      {tr("Save"), tr("Don't save"), tr("Cancel")});
  m_asking = false;
  return answer == SaveIt ? Command4() : answer == DropIt;
}

// The template takes the place of the document in the window, so the document is looked after first.
void FrmSlides::SalvaModelo() {
  if (m_asking)
    return;
  if (!PodeLargar())
    return;
  const bool tem = m_editor.Documento().Count() > 0;
  if (!m_editor.SalvarModelo())
    return;
  ShowAll();
  Mudou();
  Tell(tem ? tr("New slides begin with this look.") : tr("New slides begin with the program's own look again."));
  m_txtNomeArquivo->setFocus();
}

void FrmSlides::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmSlides::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmSlides::closeEvent(QCloseEvent *event) {
  if (m_asking || !PodeLargar()) {
    event->ignore();
    return;
  }
  m_draft.Forget();
  Desmarca();
  event->accept();
  emit Closed();
}

} // namespace tolmira
