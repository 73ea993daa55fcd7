#include "themes/FrmImageNet.h"

#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"
#include "controls/ui/spoken_role.h"
#include "controls/ui/work_strip.h"
#include "display/ui/web_result_view.h"
#include "foundation/text_utils.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize Tamanho{960, 680};
constexpr int MenorPagina = 160; // px, height

QStringList Temas() {
  return {FrmImageNet::tr("sky"),    FrmImageNet::tr("sea"),    FrmImageNet::tr("mountains"),
          FrmImageNet::tr("forest"), FrmImageNet::tr("sunset"), FrmImageNet::tr("flowers"),
          FrmImageNet::tr("wheat"),  FrmImageNet::tr("light"),  QStringLiteral("abstrato"),
          QStringLiteral("textura")};
}

QString PaginaDeInstrucoes() {
  return QStringLiteral("<html><body><div class='texto'><b>Instructions:</b><ol>") + QStringLiteral("<li>") +
         FrmImageNet::tr("Type what the picture should show, or press one of the themes above.") +
         QStringLiteral("</li><li>") +
         FrmImageNet::tr("Choose a picture with the mouse, or with the arrow keys and Enter, to see it large.") +
         QStringLiteral("</li><li>") +
         FrmImageNet::tr("“Add this Image.” takes it into the gallery, for themes, slides and the screen.") +
         QStringLiteral("</li></ol><p class='quieto'>") +
         QStringLiteral("Warning: Some images downloaded from the internet may contain copyright.") +
         QStringLiteral("</p></div></body></html>");
}

QString Megabytes(qint64 bytes) {
  return QLocale().formattedDataSize(bytes, 1);
}

} // namespace

FrmImageNet::FrmImageNet(const ImageNetDoors &doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_busca(doors.paginas, doors.endpoints),
      m_adder(doors.app, doors.paginas.Cliente()) {
  setObjectName(QStringLiteral("FrmImageNet"));
  setWindowTitle(tr("Pictures from the internet"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  MakeTop(column);
  m_folhas = new QStackedWidget(this);
  m_folhas->addWidget(MakeResults());
  m_folhas->addWidget(MakePreview());
  column->addWidget(m_folhas, 1);
  MakeBottom(column);
  resize(Tamanho);

  connect(&m_busca, &WebPictureSearch::Andou, this, [this](int rodada, int rodadas) {
    m_andamento->Advance(tr("Looking for “%1”… (try %2 of %3)").arg(m_termo).arg(rodada).arg(rodadas), rodada - 1,
                         rodadas);
  });
  connect(&m_busca, &WebPictureSearch::Mostrou, this, &FrmImageNet::Mostra);
  // Not from inside the key or button that asked, which may go while the box stands open.
  connect(
      &m_busca, &WebPictureSearch::NaoConfigurada, this,
      [this](const QString &motivo) {
        AcabaBusca({});
        Diz(MessageKind::Information, motivo);
      },
      Qt::QueuedConnection);
  connect(&m_adder, &WebPictureAdder::Andou, this, [this](qint64 veio, qint64 total) {
    m_dl1->Advance(total > 0  ? tr("Downloading… %1 of %2").arg(Megabytes(veio), Megabytes(total))
                   : veio > 0 ? tr("Downloading… %1").arg(Megabytes(veio))
                              : tr("Downloading…"),
                   veio, total);
  });
  connect(&m_adder, &WebPictureAdder::Pergunta, this, &FrmImageNet::Pergunta);
  connect(&m_adder, &WebPictureAdder::Terminou, this, &FrmImageNet::Adicionada);
}

QPushButton *FrmImageNet::Botao(const char *name, const QString &text, const QString &tip) {
  auto *made = new QPushButton(text, this);
  made->setObjectName(QLatin1String(name));
  made->setToolTip(tip);
  return made;
}

void FrmImageNet::MakeTop(QBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_txtPesquisa = new QLineEdit(this);
  m_txtPesquisa->setObjectName(QStringLiteral("TxtPesquisa"));
  m_txtPesquisa->setAccessibleName(tr("What to look for"));
  m_txtPesquisa->setPlaceholderText(tr("What the picture should show"));
  m_txtPesquisa->setToolTip(tr("Enter looks for pictures of it on the web"));
  m_txtPesquisa->setMaxLength(static_cast<int>(MaiorTermo));
  connect(m_txtPesquisa, &QLineEdit::returnPressed, this, &FrmImageNet::PesquisaDigitada);
  auto *pesquisar = Botao("CmdPesquisar", tr("Sea&rch"), tr("Looks for pictures on the web (Enter)"));
  pesquisar->setProperty("look", QStringLiteral("main"));
  connect(pesquisar, &QPushButton::clicked, this, &FrmImageNet::PesquisaDigitada);
  m_pesquisam.append(pesquisar);
  row->addWidget(m_txtPesquisa, 1);
  row->addWidget(pesquisar);
  column->addLayout(row);

  auto *dica = new QLabel(QStringLiteral("<b>Dica:</b> ") +
                              tr("two or three plain words find most, such as “sea at night” or “field of wheat”."),
                          this);
  dica->setObjectName(QStringLiteral("LbDica"));
  dica->setProperty("look", QStringLiteral("quiet"));
  column->addWidget(dica);

  auto *temas = new QHBoxLayout;
  temas->setSpacing(medidas::Step);
  int n = 0;
  for (const QString &tema : Temas()) {
    auto *botao =
        Botao(qPrintable(QStringLiteral("BtTema%1").arg(n++)), tema, tr("Looks for pictures of “%1”").arg(tema));
    connect(botao, &QPushButton::clicked, this, [this, tema] { Pesquisa(tema); });
    temas->addWidget(botao, 1);
    m_pesquisam.append(botao);
  }
  column->addLayout(temas);
}

QWidget *FrmImageNet::MakeResults() {
  auto *folha = new QWidget(this);
  auto *column = new QVBoxLayout(folha);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  m_wb = new WebResultView(folha);
  SetSpokenRole(m_wb, QAccessible::Pane);
  m_wb->setObjectName(QStringLiteral("WB"));
  m_wb->setAccessibleName(tr("Pictures found"));
  m_wb->setMinimumHeight(MenorPagina);
  // A box must not stand open inside the page's own report.
  connect(m_wb, &WebResultView::Clicou, this, &FrmImageNet::Clicou, Qt::QueuedConnection);
  column->addWidget(m_wb, 1);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_command2[0] = Botao("Command20", tr("&Previous"), tr("The previous page of pictures"));
  m_command2[1] = Botao("Command21", tr("&Next"), tr("The next page of pictures"));
  m_label1 = new QLabel(folha);
  m_label1->setObjectName(QStringLiteral("Label1"));
  m_label1->setAlignment(Qt::AlignCenter);
  m_label1->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Page 99999")));
  m_andamento = new WorkStrip(folha);
  m_andamento->setObjectName(QStringLiteral("Andamento"));
  row->addWidget(m_command2[0]);
  row->addWidget(m_label1);
  row->addWidget(m_command2[1]);
  row->addWidget(m_andamento, 1);
  column->addLayout(row);
  connect(m_command2[0], &QPushButton::clicked, this, [this] { Vizinha(-1); });
  connect(m_command2[1], &QPushButton::clicked, this, [this] { Vizinha(1); });
  connect(m_andamento, &WorkStrip::Stopped, this, [this] {
    m_busca.Para();
    AcabaBusca(tr("Stopped."));
    m_txtPesquisa->setFocus();
  });
  return folha;
}

QWidget *FrmImageNet::MakePreview() {
  auto *folha = new QWidget(this);
  folha->setObjectName(QStringLiteral("PicPreview"));
  auto *column = new QVBoxLayout(folha);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  m_imagem = new WebResultView(folha);
  SetSpokenRole(m_imagem, QAccessible::Pane);
  m_imagem->setObjectName(QStringLiteral("WBPreview"));
  m_imagem->setAccessibleName(tr("Preview of the picture"));
  m_imagem->setMinimumHeight(MenorPagina);
  column->addWidget(m_imagem, 1);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  auto *voltar = Botao("CmdVoltar", tr("&Back to the results"), tr("Shows the other pictures again (Esc)"));
  connect(voltar, &QPushButton::clicked, this, &FrmImageNet::FechaPreview);
  m_nome = new ElidedLabel(folha);
  m_nome->setObjectName(QStringLiteral("LbNome"));
  m_nome->setProperty("look", QStringLiteral("quiet"));
  m_btAdicionar =
      Botao("BtAdicionar", QStringLiteral("Add this Image."), tr("Takes this picture into the gallery (Enter)"));
  m_btAdicionar->setProperty("look", QStringLiteral("main"));
  connect(m_btAdicionar, &QPushButton::clicked, this, &FrmImageNet::BtAdicionarClick);
  row->addWidget(voltar);
  row->addWidget(m_nome, 1);
  row->addWidget(m_btAdicionar);
  column->addLayout(row);
  return folha;
}

void FrmImageNet::MakeBottom(QBoxLayout *column) {
  m_picFrmPergunta = new QFrame(this);
  m_picFrmPergunta->setObjectName(QStringLiteral("PicFrmPergunta"));
  m_picFrmPergunta->setProperty("look", QStringLiteral("hint"));
  auto *row = new QHBoxLayout(m_picFrmPergunta);
  row->setSpacing(medidas::Gap);
  m_lbPergunta = new ElidedLabel(m_picFrmPergunta);
  m_lbPergunta->setObjectName(QStringLiteral("LbPergunta"));
  m_manterOsDois = Botao("ManterOsDois", tr("&Keep both"), tr("Gives the new picture another name"));
  auto *cancelar = Botao("Cancelar", tr("&Cancel"), tr("Does not add the new picture (Esc)"));
  row->addWidget(m_lbPergunta, 1);
  row->addWidget(m_manterOsDois);
  row->addWidget(cancelar);
  m_picFrmPergunta->hide();
  column->addWidget(m_picFrmPergunta);
  connect(m_manterOsDois, &QPushButton::clicked, this, [this] {
    m_picFrmPergunta->hide();
    m_dl1->Begin(tr("Adding…"));
    m_adder.ManterOsDois();
  });
  connect(cancelar, &QPushButton::clicked, this, [this] { m_adder.Cancelar(); });

  m_dl1 = new WorkStrip(this);
  m_dl1->setObjectName(QStringLiteral("DL1"));
  auto *para = m_dl1->findChild<QPushButton *>();
  para->setObjectName(QStringLiteral("ImgDownCancel"));
  para->setText(tr("S&top the download"));
  connect(m_dl1, &WorkStrip::Stopped, this, [this] { m_adder.ImgDownCancel(); });
  column->addWidget(m_dl1);
}

void FrmImageNet::Open(QWidget *dono) {
  QWidget *sobre = dono ? dono : m_doors.dono;
  if (parentWidget() != sobre) {
    hide();
    setParent(sobre, Qt::Dialog);
  }
  if (!isVisible()) {
    setWindowModality(dono ? Qt::WindowModal : Qt::NonModal);
    m_doors.posicoes.RestoreFormPosition(*this, false);
    if (m_wb->Vazia())
      MostraInstrucoes();
  }
  show();
  raise();
  activateWindow();
  m_txtPesquisa->setFocus();
  m_txtPesquisa->selectAll();
}

void FrmImageNet::MostraInstrucoes() {
  m_naTela = {PaginaDeInstrucoes(), {}, false, false};
  m_label1->clear();
  for (QPushButton *command2 : m_command2)
    command2->setEnabled(false);
  m_dl1->End();
  m_folhas->setCurrentIndex(0);
  MostraEm(m_wb, m_naTela.pagina);
}

bool FrmImageNet::MostraEm(WebResultView *onde, const QString &pagina) {
  using Rede = WebResultView::RedePropria;
  const bool mostra = onde->Mostra(pagina, m_busca.RedePropria() ? Rede::Aberta : Rede::Fechada);
  if (!mostra)
    m_andamento->End(tr("The pictures cannot be shown: the page engine cannot be started here."));
  return mostra;
}

void FrmImageNet::PesquisaDigitada() {
  Pesquisa(m_txtPesquisa->text());
}

void FrmImageNet::Pesquisa(const QString &termo) {
  if (m_busca.Buscando())
    return;
  if (termo.trimmed().isEmpty()) {
    m_txtPesquisa->setFocus();
    return;
  }
  m_txtPesquisa->setText(termo);
  m_termo = termo.trimmed();
  ComecaBusca();
  m_busca.pesquisarImagens(termo, 0);
}

void FrmImageNet::Vizinha(int delta) {
  m_termo = m_termoNaTela;
  if (m_busca.Vizinha(delta))
    ComecaBusca();
  else
    m_andamento->End(tr("This is the first page."));
}

void FrmImageNet::ComecaBusca() {
  FechaPreview();
  for (QPushButton *botao : m_pesquisam)
    botao->setEnabled(false);
  for (QPushButton *command2 : m_command2)
    command2->setEnabled(false);
  m_andamento->Begin(tr("Looking for “%1”…").arg(m_termo));
}

void FrmImageNet::AcabaBusca(const QString &desfecho) {
  for (QPushButton *botao : m_pesquisam)
    botao->setEnabled(true);
  m_command2[0]->setEnabled(m_naTela.anterior);
  m_command2[1]->setEnabled(m_naTela.proxima);
  m_label1->setText(m_naTela.Label1);
  m_andamento->End(desfecho);
}

void FrmImageNet::Mostra(const ResultadoDaBusca &resultado) {
  m_naTela = resultado;
  m_termoNaTela = m_termo;
  const qsizetype quantas = m_busca.Imagens().size();
  AcabaBusca(quantas > 0 ? tr("%1 pictures of “%2”").arg(quantas).arg(m_termo) : QString());
  const bool digitaOutra = m_txtPesquisa->hasFocus() && m_txtPesquisa->text().trimmed() != m_termo;
  if (MostraEm(m_wb, resultado.pagina) && quantas > 0 && !digitaOutra)
    m_wb->setFocus();
  else if (quantas == 0)
    m_txtPesquisa->setFocus(); // for another try
}

void FrmImageNet::Clicou(const QString &id) {
  const ImagemDaWeb *imagem = m_busca.Imagem(id);
  if (!imagem)
    return;
  if (m_adder.Trabalhando())
    Diz(MessageKind::Information, QStringLiteral("Please wait for the current download to finish."));
  else
    AbrePreview(*imagem);
}

void FrmImageNet::AbrePreview(const ImagemDaWeb &imagem) {
  m_escolhida = imagem;
  if (m_busca.Buscando()) { // who looks at a picture no longer waits for others
    m_busca.Para();
    AcabaBusca({});
  }
  const QString texto = tr("%1, from %2").arg(imagem.nome, QUrl(imagem.endereco).host());
  m_nome->setText(texto);
  m_nome->setToolTip(EscapeHtml(imagem.endereco)); // as plain text it might be taken for markup
  m_dl1->End();
  m_folhas->setCurrentIndex(1);
  MostraEm(m_imagem, PaginaDaPrevia(imagem));
  m_btAdicionar->setFocus();
}

bool FrmImageNet::EmPreview() const {
  return m_folhas->currentIndex() == 1;
}

void FrmImageNet::FechaPreview() {
  if (!EmPreview())
    return;
  m_folhas->setCurrentIndex(0);
  m_wb->setFocus();
}

void FrmImageNet::BtAdicionarClick() {
  if (m_adder.Trabalhando()) {
    Diz(MessageKind::Information, QStringLiteral("Please wait for the current download to finish."));
    return;
  }
  m_dl1->Begin(tr("Downloading…"));
  m_adder.AdicionarImagem(m_escolhida);
}

void FrmImageNet::Pergunta(const QString &nome) {
  m_dl1->End();
  const QString texto = tr("The gallery has another picture of the name “%1”.").arg(nome);
  m_lbPergunta->setText(texto);
  m_lbPergunta->setToolTip(texto);
  m_picFrmPergunta->show();
  if (!m_txtPesquisa->hasFocus()) // what is being typed must not become an answer
    m_manterOsDois->setFocus();
}

void FrmImageNet::Adicionada(const FimDaAdicao &fim) {
  const QWidget *foco = focusWidget();
  const bool daAdicao = !foco || foco == this || m_picFrmPergunta->isAncestorOf(foco) || m_dl1->isAncestorOf(foco);
  m_picFrmPergunta->hide();
  m_dl1->End(fim.texto);
  if (daAdicao && isVisible())
    (EmPreview() ? static_cast<QWidget *>(m_btAdicionar) : m_wb)->setFocus();
  if (!fim.nome.isEmpty() && m_doors.adicionada)
    m_doors.adicionada(fim.nome);
  if (fim.falhou && isVisible())
    Diz(MessageKind::Warning, fim.texto);
}

void FrmImageNet::Diz(MessageKind kind, const QString &texto) {
  m_doors.prompt.Message(kind, QStringLiteral("Tolmira"), texto);
}

void FrmImageNet::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && m_picFrmPergunta->isVisible())
    m_adder.Cancelar();
  else if (event->key() == Qt::Key_Escape && EmPreview())
    FechaPreview();
  else if (event->key() == Qt::Key_Escape)
    close();
  else if (auto *button = qobject_cast<QPushButton *>(focusWidget());
           button && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    button->click();
  else
    QWidget::keyPressEvent(event);
}

void FrmImageNet::closeEvent(QCloseEvent *event) {
  m_busca.Para();
  m_adder.Desiste();
  m_picFrmPergunta->hide();
  AcabaBusca({});
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::closeEvent(event);
  // Not inside the key press that the page has handed on. The engine's processes are not kept for a closed window.
  QTimer::singleShot(0, this, [this] {
    if (isVisible())
      return;
    m_wb->Esvazia();
    m_imagem->Esvazia();
  });
}

} // namespace tolmira
