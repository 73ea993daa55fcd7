#include "themes/FrmBrowseImages.h"

#include "controls/ui/palette.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "themes/ui/exibe_miniaturas.h"
#include "themes/ui/picture_menus.h"
#include "themes/ui/picture_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize Tamanho{1000, 680};
const QString TituloDaCaixa = QStringLiteral("Tolmira");

} // namespace

FrmBrowseImages::FrmBrowseImages(const ThemeDoors &doors, std::function<void(QWidget *dono)> abreInternet)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_abreInternet(std::move(abreInternet)),
      m_galeria(doors.app, doors.store), m_loader(doors.app), m_adder(doors.app, doors.prompt) {
  setObjectName(QStringLiteral("FrmBrowseImages"));
  setMinimumHeight(360); // the width is that of the bottom row
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  // Made in the order in which Tab goes through them.
  MakeGrid();
  MakeTop();
  column->addWidget(m_grade, 1);
  MakeBottom();
  resize(Tamanho);

  connect(&m_adder, &PictureAdder::Andou, this, [this](int feitos, int total) {
    m_estado->setText(tr("Adding %1 of %2…").arg(qMin(feitos + 1, total)).arg(total));
    m_para->setVisible(total > 1);
  });
  connect(&m_adder, &PictureAdder::Terminou, this, &FrmBrowseImages::Adicionadas);
}

// The parts that stand on the loader go before it does.
FrmBrowseImages::~FrmBrowseImages() {
  delete m_preview;
  delete m_grade;
}

void FrmBrowseImages::MakeTop() {
  auto *row = new QHBoxLayout;
  m_titulo = new QLabel(this);
  m_titulo->setObjectName(QStringLiteral("LbTitulo"));
  m_titulo->setProperty("look", QStringLiteral("title"));
  row->addWidget(m_titulo, 1);
  m_label17 = new QPushButton(tr("&Add pictures…"), this);
  m_label17->setObjectName(QStringLiteral("Label17"));
  m_label17->setToolTip(tr("Copies pictures into the program. They can also be dropped on the grid"));
  connect(m_label17, &QPushButton::clicked, this, &FrmBrowseImages::Label17);
  row->addWidget(m_label17);
  if (m_abreInternet && m_doors.paginas) {
    auto *internet = new QPushButton(tr("From the &internet…"), this);
    internet->setObjectName(QStringLiteral("CmdInternet"));
    internet->setToolTip(tr("Looks for pictures on the web and takes them into the gallery"));
    connect(internet, &QPushButton::clicked, this, [this] { m_abreInternet(this); });
    row->addWidget(internet);
  }
  static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void FrmBrowseImages::MakeGrid() {
  m_grade = new cExibeMiniaturas(m_galeria, m_loader, this);
  m_grade->setObjectName(QStringLiteral("ExibeMiniaturas1"));
  m_grade->setAccessibleName(tr("Pictures"));
  m_grade->setProperty("look", QStringLiteral("column"));
  m_grade->SetTextoVazio(tr("There are no pictures here yet.\n\nAdd some with “Add pictures…”, or drop files here."));
  connect(m_grade, &cExibeMiniaturas::Mudou, this, &FrmBrowseImages::AtualizaBotoes);
  connect(m_grade, &cExibeMiniaturas::CliqueDuplo, this, &FrmBrowseImages::ExibireFechar);
  connect(m_grade, &cExibeMiniaturas::CliqueDireito, this, &FrmBrowseImages::AbreMenu);
  connect(m_grade, &cExibeMiniaturas::AmpliarPedido, this, &FrmBrowseImages::Preview);
  connect(m_grade, &cExibeMiniaturas::ExcluirPedido, this, &FrmBrowseImages::Exclui);
  connect(m_grade, &cExibeMiniaturas::Soltos, this, [this](const QStringList &paths) { m_adder.Adiciona(paths); });

  m_preview = new PictureView(this);
  m_preview->setObjectName(QStringLiteral("PicViewContainer"));
  m_preview->hide();
  connect(&m_loader, &SmallCopyLoader::Ampliada, this, [this](const QString &nome, const PictureImage &imagem) {
    if (m_preview->isVisible() && nome == m_preview->Nome())
      m_preview->Mostra(nome, imagem);
  });
  connect(m_preview, &PictureView::Fechar, this, &FrmBrowseImages::FechaPreview);
  connect(m_preview, &PictureView::Usar, this, &FrmBrowseImages::ExibireFechar);
  connect(m_preview, &PictureView::Excluir, this, &FrmBrowseImages::Exclui);
  connect(m_preview, &PictureView::Vizinha, this, [this](int delta) {
    const int index = m_grade->IndexSelecionado() + delta;
    if (index < 0 || index >= m_grade->GetTotal())
      return;
    m_grade->SetIndexSelecionado(index);
    AmpliaSelecionada();
  });
  connect(m_preview, &PictureView::MenuPedido, this, [this](const QPoint &global) {
    MenusDeImagem::MenuImg3(this, Primeira(), FazCom(m_preview->Nome()))->popup(global);
  });
}

void FrmBrowseImages::MakeBottom() {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [this](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    return made;
  };
  m_ampliar = button("CmdPreview", tr("&Preview"), tr("Shows the picture large (Space)"));
  m_excluir = button("CmdExcluir", tr("&Delete"), tr("Moves the picture to the trash (Del)"));
  m_estado = new QLabel(this);
  m_estado->setObjectName(QStringLiteral("LbEstado"));
  m_estado->setProperty("look", QStringLiteral("quiet"));
  m_para = button("CmdParar", tr("&Stop"), tr("Adds no more pictures"));
  m_para->hide();
  m_chkMoveImagem = new QCheckBox(tr("The picture &moves slowly"), this);
  m_chkMoveImagem->setObjectName(QStringLiteral("ChkMoveImagem"));
  m_chkMoveImagem->setToolTip(tr("The picture moves slowly on the projection"));
  m_acao = button("CmdAcao", QString(), tr("Uses the chosen picture (Enter)"));
  m_acao->setProperty("look", QStringLiteral("main"));
  row->addWidget(m_ampliar);
  row->addWidget(m_excluir);
  row->addWidget(m_estado, 1);
  row->addWidget(m_para);
  row->addWidget(m_chkMoveImagem);
  row->addWidget(m_acao);
  static_cast<QVBoxLayout *>(layout())->addLayout(row);
  connect(m_ampliar, &QPushButton::clicked, this, &FrmBrowseImages::Preview);
  connect(m_excluir, &QPushButton::clicked, this, &FrmBrowseImages::Exclui);
  connect(m_para, &QPushButton::clicked, this, [this] { m_adder.Para(); });
  connect(m_acao, &QPushButton::clicked, this, &FrmBrowseImages::ExibireFechar);
}

QString FrmBrowseImages::Acao() const {
  if (m_pedido.modo == u"FrmConfigTema")
    return QStringLiteral("Add this image to the Theme %1").arg(m_pedido.numero);
  if (m_pedido.modo == u"FrmSlides")
    return QStringLiteral("Add this image to the slide %1").arg(m_pedido.numero);
  if (m_pedido.modo == u"FrmSlideShow")
    return tr("Add this image to the slide show");
  if (m_pedido.modo == u"FundoPadrao")
    return QStringLiteral("Set this image as Default Background");
  return QStringLiteral("Display this image on the projector");
}

QString FrmBrowseImages::Primeira() const {
  if (m_pedido.modo == u"FundoPadrao")
    return QStringLiteral("Exibir");
  return m_pedido.modo == u"FrmMonitor" ? QString() : QStringLiteral("Escolher");
}

void FrmBrowseImages::Open(const PedidoDeImagem &pedido) {
  m_pedido = pedido;
  QWidget *dono = pedido.dono ? pedido.dono : m_doors.dono;
  if (parentWidget() != dono) {
    hide();
    setParent(dono, Qt::Dialog);
  }
  const QString fundo = QStringLiteral("Change Background Default");
  setWindowTitle(pedido.modo == u"FundoPadrao"  ? fundo
                 : pedido.modo == u"FrmMonitor" ? tr("Picture on the screen")
                                                : Acao());
  m_acao->setText(Acao());
  m_chkMoveImagem->setVisible(pedido.modo == u"FrmMonitor");
  m_chkMoveImagem->setChecked(m_doors.moveImagens && m_doors.moveImagens());
  FechaPreview();
  if (!m_adder.Trabalhando())
    m_estado->clear();
  m_grade->EsqueceTodas(); // files may have changed since it was open
  m_grade->carregaImagensPorData();
  if (m_grade->IndexSelecionado() < 0)
    m_grade->scrollToTop();
  AtualizaTitulo();
  if (!isVisible()) {
    setWindowModality(Qt::WindowModal);
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_grade->setFocus();
}

void FrmBrowseImages::AtualizaTitulo() {
  const QString frente = m_pedido.modo == u"FundoPadrao" ? QStringLiteral("IMAGE GALLERY: ")
                         : m_pedido.modo == u"FrmSlides" ? QStringLiteral("Image Galery: ")
                                                         : QStringLiteral("Image Gallery: ");
  m_titulo->setText(frente + QString::number(m_grade->GetTotal()) + QStringLiteral(" images"));
  AtualizaBotoes();
}

void FrmBrowseImages::AtualizaBotoes() {
  if (!m_excluir) // the grid is made first
    return;
  const bool chosen = m_grade->IndexSelecionado() >= 0;
  m_ampliar->setEnabled(chosen);
  m_excluir->setEnabled(chosen);
}

bool FrmBrowseImages::Usa() {
  const QString nome = m_grade->NomeArquivo();
  if (nome.isEmpty()) {
    m_doors.prompt.Message(MessageKind::Information, TituloDaCaixa, QStringLiteral("First select the image"));
    return false;
  }
  // A picture that somebody put into the folder may have a name that lists and settings cannot keep.
  const QString usavel = TrazParaImagens(m_doors.app, MapStoredPath(m_galeria.Caminho(nome)).text());
  if (usavel.isEmpty()) {
    m_doors.prompt.Message(MessageKind::Warning, TituloDaCaixa,
                           FileExists(m_galeria.Caminho(nome)) ? tr("This file cannot be used as a picture.")
                                                               : QStringLiteral("File not Found"));
    return false;
  }
  const QString path = m_galeria.Caminho(usavel);
  if (m_pedido.modo == u"FrmMonitor")
    return !m_doors.exibeImagem || m_doors.exibeImagem(path, m_chkMoveImagem->isChecked());
  if (const auto usa = m_pedido.usa) // which may ask something, and the window be opened for something else meanwhile
    usa(path);
  return true;
}

void FrmBrowseImages::ExibireFechar() {
  const QPointer<FrmBrowseImages> alive(this);
  if (!Usa() || !alive)
    return;
  if (m_pedido.modo == u"FrmSlideShow") // which takes many
    m_estado->setText(tr("Added: %1").arg(m_grade->NomeArquivo()));
  else
    close();
}

void FrmBrowseImages::Label17() {
  const QPointer<FrmBrowseImages> alive(this);
  const QStringList paths = m_doors.prompt.OpenFiles(tr("Add pictures"), m_galeria.PastaAddImg(), FiltroDeImagens());
  if (!alive || paths.isEmpty())
    return;
  m_galeria.GuardaPastaAddImg(QFileInfo(paths.first()).absolutePath());
  m_adder.Adiciona(paths);
}

void FrmBrowseImages::Adicionadas(const QStringList &nomes) {
  m_para->hide();
  m_estado->setText(nomes.isEmpty()     ? QString()
                    : nomes.size() == 1 ? tr("1 picture added")
                                        : tr("%1 pictures added").arg(nomes.size()));
  for (const QString &nome : nomes)
    m_grade->Esquece(nome);
  m_grade->carregaImagensPorData();
  if (!m_preview->isVisible() && !QApplication::activePopupWidget()) { // an open menu shows which picture it is for
    if (!nomes.isEmpty())
      m_grade->SetIndexSelecionado(m_grade->Modelo().LinhaDe(nomes.last()));
    m_grade->setFocus(); // so that the keys work on the pictures again, also when none could be added
  }
  AtualizaTitulo();
}

void FrmBrowseImages::Chegaram(const QStringList &nomes) {
  if (isVisible() && !m_adder.Trabalhando()) // else what is under way brings the grid up to date
    Adicionadas(nomes);
}

void FrmBrowseImages::AbreMenu(int index, const QPoint &global) {
  QMenu *menu = index < 0 ? MenusDeImagem::MenuImg(this, [this](MarcaDeImagem marca) { Faz(marca); })
                          : MenusDeImagem::MenuImg2(this, Primeira(), FazCom(m_grade->NomeArquivo()));
  menu->popup(global);
}

// While a menu stands open an adding may end and move the selection; what is chosen is meant for the picture under the
// menu.
std::function<void(MarcaDeImagem)> FrmBrowseImages::FazCom(const QString &nome) {
  return [this, nome](MarcaDeImagem marca) {
    const int linha = m_grade->Modelo().LinhaDe(nome);
    if (linha < 0)
      return;
    m_grade->SetIndexSelecionado(linha);
    Faz(marca);
  };
}

void FrmBrowseImages::Faz(MarcaDeImagem marca) {
  switch (marca) {
  case MarcaDeImagem::Add:
    Label17();
    break;
  case MarcaDeImagem::Show:
    ExibireFechar();
    break;
  case MarcaDeImagem::Swap: // the gallery stays, so that another one can be tried
    Usa();
    break;
  case MarcaDeImagem::Preview:
    Preview();
    break;
  case MarcaDeImagem::Delete:
    Exclui();
    break;
  }
}

void FrmBrowseImages::Preview() {
  if (m_grade->IndexSelecionado() < 0) {
    m_doors.prompt.Message(MessageKind::Information, TituloDaCaixa, QStringLiteral("First select the image"));
    return;
  }
  if (!FileExists(m_grade->ItemSelecionado())) {
    m_doors.prompt.Message(MessageKind::Information, TituloDaCaixa, QStringLiteral("File not Found"));
    return;
  }
  m_preview->setGeometry(m_grade->geometry());
  m_grade->setFocusPolicy(Qt::NoFocus); // its keys would choose another picture than the one that is seen
  m_preview->show();
  m_preview->raise();
  m_preview->setFocus();
  AmpliaSelecionada();
}

void FrmBrowseImages::AmpliaSelecionada() {
  m_preview->Espera(m_grade->NomeArquivo());
  m_loader.Amplia(m_grade->NomeArquivo(), m_preview->AreaPx());
}

void FrmBrowseImages::FechaPreview() {
  m_grade->setFocusPolicy(Qt::StrongFocus);
  if (m_preview->isHidden()) // not isVisible(): the whole window may be hidden
    return;
  m_preview->hide();
  m_grade->setFocus();
}

void FrmBrowseImages::Exclui() {
  const QString nome = m_grade->NomeArquivo();
  const QPointer<FrmBrowseImages> alive(this); // the box may outlast the window
  if (nome.isEmpty() || !m_galeria.Exclui(nome, m_doors.prompt) || !alive)
    return;
  m_grade->Retira(m_grade->Modelo().LinhaDe(nome));
  m_estado->clear(); // what was added may be gone
  AtualizaTitulo();
  if (!m_preview->isVisible())
    return;
  if (m_grade->IndexSelecionado() < 0)
    FechaPreview();
  else
    AmpliaSelecionada();
}

void FrmBrowseImages::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && !m_preview->isHidden())
    FechaPreview();
  else if (event->key() == Qt::Key_Escape)
    close();
  else if (auto *button = qobject_cast<QPushButton *>(focusWidget());
           button && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    button->click();
  else
    QWidget::keyPressEvent(event);
}

void FrmBrowseImages::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  m_preview->setGeometry(m_grade->geometry());
  if (m_preview->isVisible())
    m_loader.Amplia(m_preview->Nome(), m_preview->AreaPx());
}

void FrmBrowseImages::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
  // When it is hidden. Window managers lose the focus when a box and the window below it go at the same moment, and
  // what is still being added must not end with the editor that the gallery was open for.
  QTimer::singleShot(0, this, [this] {
    if (isVisible() || !parentWidget())
      return;
    parentWidget()->activateWindow();
    if (m_doors.dono && parentWidget() != m_doors.dono)
      setParent(m_doors.dono, Qt::Dialog);
  });
}

} // namespace tolmira
