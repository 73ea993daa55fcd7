#include "themes/FrmConfigTema.h"

#include "controls/ui/colour_button.h"
#include "controls/ui/palette.h"
#include "display/page_builder.h"
#include "foundation/text_utils.h"
#include "themes/contrast.h"
#include "themes/picture_folder.h"
#include "themes/ui/picture_strip.h"
#include "themes/ui/theme_look.h"
#include "themes/ui/theme_preview.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{1000, 560}; // stands on a screen of 1024x600
constexpr QSize LeastSize{880, 500};
constexpr int ContrastMs = 200;       // after a change; a dragged slider is looked at now and then
constexpr int VideoContrastMs = 1500; // until a video shows something
constexpr int ExitMs = 1200;          // until the sample text comes back
enum Answer { Yes = 0, No = 1 };
enum Kind { Colour, Pictures, Video };

const QString &TipoOf(int kind) {
  return kind == Pictures ? TipoImagem : kind == Video ? TipoVideo : TipoCorDeFundo;
}
int KindOf(const QString &tipo) {
  return tipo == TipoImagem ? Pictures : tipo == TipoVideo ? Video : Colour;
}

QLabel *Sentence(const char *name, QWidget *parent) {
  auto *label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setProperty("look", QStringLiteral("quiet"));
  label->setProperty("state", QStringLiteral("held"));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->hide();
  return label;
}

void Say(QLabel *label, const QString &sentence) {
  label->setText(sentence);
  label->setVisible(!sentence.isEmpty());
}

} // namespace

FrmConfigTema::FrmConfigTema(const ThemeEditorDoors &doors)
    : QWidget(doors.dono, Qt::Window), m_doors(doors),
      m_editor({doors.store, doors.loja, doors.temas, doors.prompt, doors.yielder, doors.tilePx}),
      m_loader(doors.store.App()) {
  setObjectName(QStringLiteral("FrmConfigTema"));
  setMinimumSize(LeastSize);
  resize(FirstSize);

  auto *rows = new QVBoxLayout(this);
  rows->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Gap);
  auto *desk = new QHBoxLayout;
  desk->setSpacing(medidas::Margin);
  auto *left = new QVBoxLayout;
  left->setSpacing(medidas::Gap);
  MakeLeft(left);
  desk->addLayout(left, 3); // of a large window the preview gets more
  auto *scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  m_look = new ThemeLook(m_editor.tema, m_doors.prompt, ThemeLook::Filters::With, scroll);
  scroll->setWidget(m_look);
  scroll->setMinimumWidth(m_look->minimumSizeHint().width() + medidas::Margin);
  desk->addWidget(scroll, 2);
  rows->addLayout(desk, 1);
  MakeButtons(rows);
  WireLook();

  m_timerContraste = m_doors.clock.NewTimer([this] {
    m_timerContraste->Stop();
    ShowContrast();
  });
  m_timerSaida = m_doors.clock.NewTimer([this] {
    m_timerSaida->Stop();
    m_preview->Texto(m_editor.tema, m_editor.GetTextoTema());
  });
  connect(&m_loader, &SmallCopyLoader::Pronta, this, [this](const QString &nome, const PictureImage &imagem) {
    m_copias.insert(nome, imagem);
    m_picPics->SetPicture(nome, imagem.image);
    m_timerContraste->Start(ContrastMs);
  });
}

FrmConfigTema::~FrmConfigTema() = default;

void FrmConfigTema::MakeLeft(QVBoxLayout *column) {
  m_preview = new ThemePreview(m_doors, this);
  column->addWidget(m_preview, 100); // before the empty room at the foot; its own limit is the projection's shape
  m_amostra = new QLineEdit(this);
  m_amostra->setObjectName(QStringLiteral("TextoAmostra"));
  m_amostra->setPlaceholderText(tr("Another sample text"));
  m_amostra->setAccessibleName(tr("Sample text of the preview"));
  m_amostra->setToolTip(tr("A text to try the theme with; it is not kept"));
  connect(m_amostra, &QLineEdit::textChanged, this, [this](const QString &texto) {
    m_editor.textoDoOperador = texto;
    m_preview->Texto(m_editor.tema, m_editor.GetTextoTema());
  });
  column->addWidget(m_amostra);
  MakeKinds(column);
  m_fonte = Sentence("LbFonte", this);
  m_contraste = Sentence("LbContraste", this);
  column->addWidget(m_fonte);
  column->addWidget(m_contraste);
  column->addStretch(1);
}

void FrmConfigTema::MakeKinds(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Step);
  auto *group = new QButtonGroup(this);
  const QString captions[] = {tr("&Background colour"), tr("&Pictures"), tr("&Video")};
  for (int kind = Colour; kind <= Video; ++kind) {
    QPushButton *&button = m_checkTipo[kind];
    button = new QPushButton(captions[kind], this);
    button->setObjectName(QStringLiteral("CheckTipo%1").arg(kind));
    button->setCheckable(true);
    button->setAccessibleName(QString(captions[kind]).remove(u'&'));
    button->setToolTip(tr("What stands behind the text"));
    group->addButton(button, kind);
    row->addWidget(button, 1);
    connect(button, &QPushButton::clicked, this, [this, kind] { AtivaTipoSelecionado(TipoOf(kind)); });
  }
  column->addLayout(row);
  m_pages = new QStackedWidget(this);
  m_pages->addWidget(MakeColourPage());
  m_pages->addWidget(MakePicturePage());
  m_pages->addWidget(MakeVideoPage());
  m_pages->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  column->addWidget(m_pages);
}

QWidget *FrmConfigTema::MakeColourPage() {
  auto *page = new QWidget(this);
  auto *row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->setAlignment(Qt::AlignTop);
  m_cor = new ColourButton("SelectColorsBack", tr("Background colour"), page);
  row->addWidget(m_cor);
  row->addWidget(new QLabel(tr("Background colour"), page));
  row->addStretch(1);
  connect(m_cor, &QPushButton::clicked, this, [this] {
    const std::optional<qint32> chosen = m_doors.prompt.PickColour(tr("Background colour"), m_editor.tema.CordeFundo);
    if (!chosen)
      return;
    m_editor.tema.CordeFundo = *chosen;
    m_cor->SetColour(*chosen);
    m_preview->CorDeFundo(m_editor.tema);
    Mudou();
  });
  return page;
}

QWidget *FrmConfigTema::MakePicturePage() {
  auto *page = new QWidget(this);
  auto *rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(medidas::Step);
  m_picPics = new PictureStrip(Qt::Horizontal, page);
  rows->addWidget(m_picPics);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Step);
  const auto button = [this, row, page](const char *name, const QString &caption, const QString &tip) {
    auto *made = new QPushButton(caption, page);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    return made;
  };
  QPushButton *add = button("BtAdicionarImagem", tr("&Add…"), tr("Adds a picture to the theme"));
  m_remove = button("BtRemoverImagem", tr("&Remove"), tr("Takes the chosen picture out of the theme; its file stays"));
  m_command8 = button("Command8", tr("&Next"), tr("Shows the next picture above"));
  row->addStretch(1);
  m_picIntervalo = new QWidget(page);
  m_picIntervalo->setObjectName(QStringLiteral("PicIntervalo"));
  auto *interval = new QHBoxLayout(m_picIntervalo);
  interval->setContentsMargins(0, 0, 0, 0);
  interval->setSpacing(medidas::Step);
  auto *caption = new QLabel(tr("Chan&ge every"), m_picIntervalo);
  m_intervalo = new QComboBox(m_picIntervalo);
  m_intervalo->setObjectName(QStringLiteral("ComboIntervalo"));
  m_intervalo->setAccessibleName(tr("Time for which each picture stands"));
  m_intervalo->setToolTip(tr("Time for which each picture stands"));
  m_intervalo->addItems({QStringLiteral("None"), QStringLiteral("10 sec"), QStringLiteral("15 sec"),
                         QStringLiteral("20 sec"), QStringLiteral("30 sec"), QStringLiteral("60 sec")});
  caption->setBuddy(m_intervalo);
  interval->addWidget(caption);
  interval->addWidget(m_intervalo);
  row->addWidget(m_picIntervalo);
  rows->addLayout(row);

  connect(add, &QPushButton::clicked, this, &FrmConfigTema::PedeImagem);
  connect(m_command8, &QPushButton::clicked, this, &FrmConfigTema::Command8);
  const auto remove = [this](int posicao) {
    m_editor.RemoveImagem(posicao);
    ShowPictures();
    Monta();
  };
  connect(m_remove, &QPushButton::clicked, this, [this, remove] { remove(m_picPics->currentRow() + 1); });
  connect(m_picPics, &PictureStrip::Removida, this, remove);
  connect(m_picPics, &PictureStrip::Movida, this, [this](int posicao, int paraOnde) {
    m_editor.MoveImagem(posicao, paraOnde);
    ShowPictures();
    Monta();
  });
  connect(m_picPics, &PictureStrip::Escolhida, this, [this](int posicao) {
    m_editor.DefineImagem(posicao);
    m_preview->GotoSlideImage(posicao);
  });
  connect(m_intervalo, &QComboBox::activated, this, [this](int posicao) {
    m_editor.DefinePicIntervalo(posicao);
    m_preview->Intervalo(posicao);
    Mudou();
  });
  return page;
}

QWidget *FrmConfigTema::MakeVideoPage() {
  auto *page = new QWidget(this);
  auto *row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Step);
  row->setAlignment(Qt::AlignTop);
  m_textVideo = new QLineEdit(page);
  m_textVideo->setObjectName(QStringLiteral("TextVideo"));
  m_textVideo->setAccessibleName(tr("Path of the video"));
  m_textVideo->setPlaceholderText(tr("No video chosen"));
  m_textVideo->setToolTip(tr("The video file that runs behind the text"));
  row->addWidget(m_textVideo, 1);
  auto *choose = new QPushButton(tr("C&hoose…"), page);
  choose->setObjectName(QStringLiteral("CommandVideo"));
  choose->setToolTip(tr("Chooses a video file"));
  row->addWidget(choose);
  connect(choose, &QPushButton::clicked, this, &FrmConfigTema::PedeVideo);
  connect(m_textVideo, &QLineEdit::textEdited, this, [this](const QString &path) {
    m_editor.DefineTextVideo(path);
    Mudou();
  });
  connect(m_textVideo, &QLineEdit::editingFinished, this, [this] {
    if (m_editor.tema.Tipo == TipoVideo && m_editor.tema.Video != m_editor.TextVideo() && m_editor.CheckTipo(TipoVideo))
      Monta();
  });
  return page;
}

void FrmConfigTema::MakeButtons(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  row->addStretch(1);
  auto *save = new QPushButton(tr("&Save"), this);
  save->setObjectName(QStringLiteral("Command4"));
  save->setProperty("look", QStringLiteral("main"));
  save->setToolTip(tr("Saves the theme and closes the window (Enter)"));
  auto *cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName(QStringLiteral("Command5"));
  cancel->setToolTip(tr("Closes the window; the theme stays as it was (Esc)"));
  row->addWidget(save);
  row->addWidget(cancel);
  column->addLayout(row);
  connect(save, &QPushButton::clicked, this, &FrmConfigTema::Command4);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
}

void FrmConfigTema::WireLook() {
  connect(m_look, &ThemeLook::TextoMudou, this, [this] {
    m_preview->Texto(m_editor.tema, m_editor.GetTextoTema());
    Mudou();
  });
  connect(m_look, &ThemeLook::FiltrosMudaram, this, [this] {
    m_preview->Filtros(m_editor.tema);
    Mudou();
  });
  connect(m_look, &ThemeLook::MovimentoMudou, this, [this] {
    m_preview->Movimento(m_editor.tema);
    Mudou();
  });
  connect(m_look, &ThemeLook::EfeitoDaImagemMudou, this, [this] {
    m_preview->EfeitoDaImagem(m_editor.tema);
    Command8();
    Mudou();
  });
  connect(m_look, &ThemeLook::EntradaMudou, this, [this] {
    m_preview->Entrada(m_editor.tema, m_editor.GetTextoTema());
    Mudou();
  });
  connect(m_look, &ThemeLook::SaidaMudou, this, [this] {
    m_preview->Saida(m_editor.tema, m_editor.GetTextoTema());
    m_timerSaida->Start(ExitMs);
    Mudou();
  });
}

void FrmConfigTema::SetIndex(int n) {
  m_editor.SetIndex(n);
  LoadForm();
}

void FrmConfigTema::LoadForm() {
  m_look->Load();
  m_cor->SetColour(m_editor.tema.CordeFundo);
  m_textVideo->setText(m_editor.TextVideo());
  m_intervalo->setCurrentIndex(m_editor.PicIntervalo());
  ShowKind();
  Monta();
}

void FrmConfigTema::Open() {
  if (!isVisible()) {
    m_doors.posicoes.RestoreFormPosition(*this, false);
    m_checkTipo[KindOf(m_editor.tema.Tipo)]->setFocus();
  }
  show();
  raise();
  activateWindow();
}

void FrmConfigTema::AtivaTipoSelecionado(const QString &tipo) {
  const bool monta = m_editor.CheckTipo(tipo);
  m_textVideo->setText(m_editor.TextVideo());
  ShowKind();
  if (monta)
    Monta();
  Mudou();
}

void FrmConfigTema::ShowKind() {
  const int kind = KindOf(m_editor.tema.Tipo);
  m_checkTipo[kind]->setChecked(true);
  m_pages->setCurrentIndex(kind);
  m_look->SetPictures(kind == Pictures);
  ShowPictures();
}

void FrmConfigTema::ShowPictures() {
  QStringList nomes;
  QStringList semCopia;
  for (const QString &imagem : m_editor.Imagens()) {
    nomes.append(FileNameOf(imagem));
    if (!m_copias.contains(nomes.last()))
      semCopia.append(nomes.last());
  }
  m_picPics->Show(nomes, m_editor.Imagem());
  for (const QString &nome : nomes)
    m_picPics->SetPicture(nome, m_copias.value(nome).image);
  m_loader.Deseja(semCopia);
  m_picIntervalo->setVisible(m_editor.PicIntervaloVisible());
  m_command8->setEnabled(nomes.size() > 1);
  m_remove->setEnabled(!nomes.isEmpty());
}

void FrmConfigTema::PedeImagem() {
  if (m_doors.galeria) {
    m_doors.galeria(m_editor.Index(), this, [this](const QString &path) { AdicionarAoTema(path); });
    return;
  }
  const QString path = m_doors.prompt.OpenFile(BoxTitle, QString(), FiltroDeImagens());
  if (!path.isEmpty())
    AdicionarAoTema(path);
}

bool FrmConfigTema::AdicionarAoTema(const QString &path) {
  if (!m_editor.AdicionarAoTema(path))
    return false;
  m_copias.remove(FileNameOf(m_editor.Imagens().last())); // there may have been another picture of that name
  ShowKind();
  Monta();
  return true;
}

void FrmConfigTema::PedeVideo() {
  if (!m_editor.CommandVideo())
    return;
  m_textVideo->setText(m_editor.TextVideo());
  ShowKind();
  Monta();
}

void FrmConfigTema::Command8() {
  const int posicao = m_editor.ProximaImagem();
  if (m_editor.tema.Tipo != TipoImagem || posicao == 0)
    return;
  m_picPics->Escolhe(posicao);
  m_preview->GotoSlideImage(posicao);
}

void FrmConfigTema::Monta() {
  m_preview->Monta(m_editor.tema, m_editor.GetTextoTema());
  if (m_editor.tema.Tipo == TipoImagem && m_editor.Imagem() > 1)
    m_preview->GotoSlideImage(m_editor.Imagem());
  m_timerContraste->Stop(); // the new page has to show something first
  Mudou();
}

void FrmConfigTema::MaiusculasMudaram(bool maiusculas) {
  m_editor.MaiusculasMudaram(maiusculas);
  m_look->Load();
  m_preview->Texto(m_editor.tema, m_editor.GetTextoTema());
  Mudou();
}

void FrmConfigTema::Mudou() {
  setWindowTitle(m_editor.Titulo() + QStringLiteral("[*]"));
  setWindowModified(m_editor.Alterado());
  const QString &fonte = m_editor.tema.Font_Name;
  Say(m_fonte, FonteInstalada(fonte) == fonte
                   ? QString()
                   : tr("The font '%1' is not installed here; another one is shown in its place.").arg(fonte));
  if (!m_timerContraste->IsActive()) // a drag is looked at now and then
    m_timerContraste->Start(m_editor.tema.Tipo == TipoVideo ? VideoContrastMs : ContrastMs);
}

// The worst of all pictures counts: the text has to be read over each of them.
double FrmConfigTema::LeastContrastOf() const {
  const TemaRecord &tema = m_editor.tema;
  if (tema.Tipo == TipoVideo)
    return TextContrast(m_preview->AoLadoDoTexto(), tema);
  if (tema.Tipo != TipoImagem)
    return TextContrast(BehindText(tema), tema);
  double least = TextContrast({}, tema);
  for (const QString &imagem : m_editor.Imagens()) {
    const PictureImage copia = m_copias.value(FileNameOf(imagem));
    least = std::min(least, TextContrast(BehindText(copia.image, copia.size, m_preview->TamanhoDoTelao(), tema), tema));
  }
  return least;
}

void FrmConfigTema::ShowContrast() {
  Say(m_contraste, LeastContrastOf() < LeastContrast
                       ? QStringLiteral("The text is hard to read from afar on this background.")
                       : QString());
}

bool FrmConfigTema::Salva() {
  if (m_saving)
    return false;
  m_saving = true;
  if (m_editor.tema.Tipo == TipoVideo)
    m_editor.DefineTextVideo(m_textVideo->text());
  m_timerSaida->Stop();
  const QStringList before = m_editor.Imagens();
  const bool saved =
      m_editor.SalvarDados([this] { return m_preview->Retrato(m_editor.tema, m_editor.GetTextoTema()); });
  m_saving = false;
  if (saved && m_doors.salvo)
    m_doors.salvo(m_editor.Index());
  if (!saved && m_editor.Imagens() != before) { // some have gone
    ShowKind();
    Monta();
  }
  return saved;
}

void FrmConfigTema::Command4() {
  if (Salva())
    close();
}

void FrmConfigTema::keyPressEvent(QKeyEvent *event) {
  const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
  if (plain && event->key() == Qt::Key_Escape) {
    close();
  } else if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    if (auto *button = qobject_cast<QPushButton *>(focusWidget()))
      button->click();
    else
      Command4();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void FrmConfigTema::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmConfigTema::closeEvent(QCloseEvent *event) {
  if (m_saving) {
    event->ignore();
    return;
  }
  if (m_editor.Alterado()) {
    m_saving = true; // the box stands open, and whoever else wants to close this window shall wait
    const int answer = m_doors.prompt.Ask(BoxTitle, tr("Save the changes to theme %1?").arg(m_editor.Index()),
                                          {tr("Yes"), tr("No"), tr("Cancel")});
    m_saving = false;
    if (answer == Yes ? !Salva() : answer != No) {
      event->ignore();
      return;
    }
  }
  event->accept();
  emit Closed();
}

} // namespace tolmira
