#include "bible/FrmBaixarBiblia.h"

#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"
#include "controls/ui/plain_tip.h"
#include "controls/ui/row_list.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString Titulo = QStringLiteral("Tolmira");
constexpr QSize Tamanho{800, 460};
constexpr int LarguraMinima = 420;
constexpr int AlturaMinima = 300;
constexpr int LarguraDaVersao = 290;
constexpr int LarguraDaOrigem = 170;
constexpr int LarguraDoProgresso = 140;

QString NomeInteiro(const VersaoOferecida &versao) {
  return versao.titulo.isEmpty() ? versao.nome : QString(versao.titulo + u" (" + versao.nome + u')');
}

void Conserva(QWidget *widget) { // its place while it is hidden
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  widget->hide();
}

} // namespace

FrmBaixarBiblia::FrmBaixarBiblia(BibleDownloadDoors doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)), m_busca(m_doors.endpoints, m_doors.web),
      m_importador(m_doors.importador),
      m_fila(m_doors.app, m_doors.web, m_importador,
             {[this](const QString &texto) { Diz(texto); },
              [this](qint64 veio, qint64 total) {
                m_progress1->setRange(0, total > 0 ? 1000 : 0);
                m_progress1->setValue(total > 0 ? int(1000.0 * double(qMin(veio, total)) / double(total)) : 0);
              },
              [this](const QString &nome, const QString &frase) {
                if (Linha *linha = LinhaDe(nome)) {
                  linha->contado << frase;
                  MostraEstado(*linha);
                }
              },
              [this] { Acabou(); }}),
      m_list1(new RowList({tr("Version"), tr("Where it comes from"), tr("In the program folder")}, this)) {
  setObjectName(QStringLiteral("FrmBaixarBiblia"));
  setWindowTitle(tr("Search Bible versions"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  MakeSearch();
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setAccessibleName(tr("Versions"));
  m_list1->setToolTip(tr("The blank bar marks a version for the download"));
  m_list1->setColumnWidth(0, LarguraDaVersao);
  m_list1->setColumnWidth(1, LarguraDaOrigem);
  m_list1->SetEmptyText(tr("Search for a version by its name or its language."));
  column->addWidget(m_list1, 1);
  MakeButtons();
  connect(m_list1, &QTreeWidget::currentItemChanged, this, &FrmBaixarBiblia::MostraBotoes);
  connect(m_list1, &QTreeWidget::itemChanged, this, &FrmBaixarBiblia::MostraBotoes);
  setMinimumSize(LarguraMinima, AlturaMinima);
  resize(Tamanho);
}

void FrmBaixarBiblia::MakeSearch() {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setPlaceholderText(tr("Name or language of a version"));
  m_text1->setAccessibleName(tr("Term to search for"));
  m_text1->setToolTip(tr("Enter searches the web for versions"));
  m_text1->setClearButtonEnabled(true);
  m_command1 = new QPushButton(this);
  m_command1->setObjectName(QStringLiteral("Command1"));
  m_command1->setToolTip(tr("Asks the web for versions, or stops asking"));
  row->addWidget(m_text1, 1);
  row->addWidget(m_command1);
  static_cast<QVBoxLayout *>(layout())->addLayout(row);
  connect(m_text1, &QLineEdit::returnPressed, this, [this] {
    if (!m_procura)
      Command1();
  });
  connect(m_command1, &QPushButton::clicked, this, &FrmBaixarBiblia::Command1);
}

void FrmBaixarBiblia::MakeButtons() {
  auto *state = new QHBoxLayout;
  state->setSpacing(medidas::Gap);
  m_label1 = new ElidedLabel(this);
  m_label1->setObjectName(QStringLiteral("Label1"));
  m_label1->setProperty("look", QStringLiteral("quiet"));
  m_progress1 = new QProgressBar(this);
  m_progress1->setObjectName(QStringLiteral("Progress1"));
  m_progress1->setAccessibleName(tr("Progress"));
  m_progress1->setTextVisible(false);
  m_progress1->setFixedWidth(LarguraDoProgresso);
  Conserva(m_progress1);
  state->addWidget(m_label1, 1);
  state->addWidget(m_progress1);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_remove = new QPushButton(tr("&Remove…"), this);
  m_remove->setObjectName(QStringLiteral("Command2"));
  m_remove->setToolTip(tr("Takes the chosen version out of the program folder"));
  m_command3 = new QPushButton(this);
  m_command3->setObjectName(QStringLiteral("Command3"));
  m_command3->setProperty("look", QStringLiteral("main"));
  m_command3->setToolTip(tr("Brings the marked versions into the program folder, or stops that"));
  for (QPushButton *button : {m_command1, m_remove, m_command3})
    button->setAutoDefault(false);
  row->addWidget(m_remove);
  row->addStretch(1);
  row->addWidget(m_command3);
  auto *column = static_cast<QVBoxLayout *>(layout());
  column->addLayout(state);
  column->addLayout(row);
  connect(m_remove, &QPushButton::clicked, this, &FrmBaixarBiblia::Remove);
  connect(m_command3, &QPushButton::clicked, this, &FrmBaixarBiblia::Command3);
}

void FrmBaixarBiblia::Open() {
  if (!isVisible()) {
    Diz({});
    MostraLista();
    PegaInstaladas();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
}

void FrmBaixarBiblia::PegaInstaladas() {
  if (m_doors.importador.isEmpty())
    return;
  m_listagem = m_importador.Lista([this](const QList<BibliaInstalada> &instaladas) {
    m_instaladas.clear();
    for (const BibliaInstalada &uma : instaladas)
      if (const QString nome = NomeCurtoDoModulo(uma.modulo); NomeDeVersaoServe(nome))
        m_instaladas.append({nome, uma.descricao, QString(), uma.modulo});
    m_listagem.reset();
    if (!m_fila.Roda())
      MostraLista();
  });
}

void FrmBaixarBiblia::Command1() {
  if (m_procura) {
    m_procura.reset();
    Diz({});
    MostraBotoes();
    return;
  }
  const QString termo = m_text1->text().trimmed();
  if (termo.isEmpty()) {
    m_doors.prompt.Message(MessageKind::Information, Titulo, QStringLiteral("Enter a term to search."));
    m_text1->setFocus();
    return;
  }
  const QUrl endereco = m_busca.Endereco(termo);
  if (!endereco.isValid()) {
    m_doors.prompt.Message(MessageKind::Information, Titulo, m_doors.endpoints.PorQueNao(Endpoint::ListaBiblias));
    return;
  }
  m_lista = endereco;
  Diz(tr("Searching…"));
  m_progress1->setRange(0, 0);
  m_procura = m_busca.Procura(endereco, [this](const auto &lista) { Achou(lista); });
  MostraBotoes();
}

void FrmBaixarBiblia::Achou(const std::optional<ListaDeBiblias> &lista) {
  m_procura.reset();
  const ListaDeBiblias achada = lista.value_or(ListaDeBiblias());
  m_daWeb = achada.versoes;
  Diz(achada.recusadas == 0   ? QString()
      : achada.recusadas == 1 ? tr("1 row of the list was left out.")
                              : tr("%1 rows of the list were left out.").arg(achada.recusadas));
  MostraLista();
  if (!lista)
    m_doors.prompt.Message(
        MessageKind::Warning, Titulo,
        QStringLiteral("Unable to perform the search.\nCheck if you are connected to the internet."));
  else if (m_daWeb.isEmpty())
    m_doors.prompt.Message(MessageKind::Information, Titulo, QStringLiteral("Not Found."));
  else {
    m_list1->setCurrentItem(m_list1->topLevelItem(0)); // from where the keyboard marks
    m_list1->setFocus();
  }
}

// What the web offers first, then what is installed, then what is in the folder and comes from neither. Marks stay.
void FrmBaixarBiblia::MostraLista() {
  QSet<QString> marcadas;
  for (const Linha &linha : m_linhas)
    if (linha.item->checkState(0) == Qt::Checked)
      marcadas.insert(linha.versao.nome.toLower());
  const Linha *antes = LinhaAtual();
  const QString atual = antes ? antes->versao.nome : QString();

  QList<VersaoOferecida> todas = m_daWeb + m_instaladas;
  for (const QString &nome : VersoesNaPasta(m_doors.biblia))
    todas.append({nome, QString(), QString(), QString()});
  QSet<QString> vistas;
  const QSignalBlocker quieto(m_list1);
  m_linhas.clear();
  m_list1->clear();
  for (const VersaoOferecida &versao : std::as_const(todas)) {
    const QString chave = versao.nome.toLower();
    if (vistas.contains(chave))
      continue;
    vistas.insert(chave);
    auto *item = new QTreeWidgetItem(m_list1);
    const QString nome = NomeInteiro(versao);
    item->setText(0, nome);
    item->setToolTip(0, PlainTip(nome));
    item->setText(1, tr("the program folder"));
    if (!versao.endereco.isEmpty() || !versao.modulo.isEmpty()) {
      item->setText(1, versao.modulo.isEmpty() ? tr("the web") : tr("installed on this computer"));
      item->setCheckState(0, marcadas.contains(chave) ? Qt::Checked : Qt::Unchecked);
    }
    m_linhas.append({versao, item, {}});
    MostraEstado(m_linhas.last());
    if (versao.nome == atual)
      m_list1->setCurrentItem(item);
  }
  MostraBotoes();
}

void FrmBaixarBiblia::MostraEstado(const Linha &linha) {
  const QString &nome = linha.versao.nome;
  const ArquivosNaPasta arquivos = OlhaPasta(m_doors.app, nome);
  QStringList partes;
  if (arquivos.velho)
    partes << (arquivos.novo ? tr("Old and New Testament") : tr("Old Testament only"));
  else if (arquivos.novo)
    partes << tr("New Testament only");
  else
    partes << tr("not there");
  if (arquivos.velho && !PodeRemover(nome))
    partes << QString(nome + u" cannot be removed");
  partes += linha.contado;
  const QSignalBlocker quieto(m_list1);
  linha.item->setText(2, partes.join(QStringLiteral(" · ")));
  linha.item->setToolTip(2, partes.join(u'\n'));
}

void FrmBaixarBiblia::Diz(const QString &texto) {
  m_label1->setText(texto);
  m_label1->setToolTip(texto);
}

FrmBaixarBiblia::Linha *FrmBaixarBiblia::LinhaAtual() {
  QTreeWidgetItem *item = m_list1->currentItem();
  for (Linha &linha : m_linhas)
    if (linha.item == item)
      return &linha;
  return nullptr;
}

FrmBaixarBiblia::Linha *FrmBaixarBiblia::LinhaDe(const QString &nome) {
  for (Linha &linha : m_linhas)
    if (linha.versao.nome == nome)
      return &linha;
  return nullptr;
}

void FrmBaixarBiblia::MostraBotoes() {
  const bool roda = m_fila.Roda();
  m_command1->setText(m_procura ? tr("&Stop searching") : tr("&Search"));
  m_command1->setEnabled(!roda);
  m_text1->setEnabled(!roda);
  m_command3->setText(roda ? QStringLiteral("Stop") : QStringLiteral("Start Download"));
  bool marcada = false;
  for (const Linha &linha : std::as_const(m_linhas))
    marcada = marcada || linha.item->checkState(0) == Qt::Checked;
  m_command3->setEnabled(roda || (marcada && !m_procura));
  const Linha *atual = LinhaAtual();
  const ArquivosNaPasta arquivos = atual ? OlhaPasta(m_doors.app, atual->versao.nome) : ArquivosNaPasta();
  m_remove->setEnabled(!roda && (arquivos.velho || arquivos.novo) && PodeRemover(atual->versao.nome));
  m_progress1->setVisible(roda || m_procura);
}

void FrmBaixarBiblia::Command3() {
  if (m_fila.Roda()) {
    ParaTudo();
    Diz(tr("Stopped."));
    VersoesMudaram();
    return;
  }
  QList<VersaoOferecida> marcadas;
  for (Linha &linha : m_linhas) {
    linha.contado.clear();
    MostraEstado(linha);
    if (linha.item->checkState(0) == Qt::Checked)
      marcadas.append(linha.versao);
  }
  if (marcadas.isEmpty())
    return;
  m_fila.Comeca(m_lista, marcadas);
  MostraBotoes();
}

void FrmBaixarBiblia::Acabou() {
  const int trouxe = m_fila.Trouxe();
  QString frase = trouxe == 1 ? tr("1 file was added.") : tr("%1 files were added.").arg(trouxe);
  if (const int faltaram = m_fila.Faltaram(); faltaram > 0)
    frase += u' ' + (faltaram == 1 ? tr("1 could not be had.") : tr("%1 could not be had.").arg(faltaram));
  Diz(frase);
  // What was brought needs no mark any more; what failed keeps it for the next try.
  {
    const QSignalBlocker quieto(m_list1);
    for (const Linha &linha : std::as_const(m_linhas))
      if (linha.item->checkState(0) == Qt::Checked && OlhaPasta(m_doors.app, linha.versao.nome).velho)
        linha.item->setCheckState(0, Qt::Unchecked);
  }
  VersoesMudaram();
}

// The version in force stays, whatever came beside it.
void FrmBaixarBiblia::VersoesMudaram() {
  m_doors.biblia.GuardaEscolha();
  m_doors.versoesMudaram();
  MostraBotoes();
}

void FrmBaixarBiblia::Remove() {
  const Linha *linha = LinhaAtual();
  if (!linha || m_fila.Roda() || !PodeRemover(linha->versao.nome))
    return;
  const QString nome = linha->versao.nome;
  if (m_doors.prompt.Ask(Titulo, u"Do you want to remove " + nome + u'?', {tr("Remove"), tr("Cancel")}) != 0)
    return;
  const bool removida = RemoveVersao(m_doors.app, nome);
  VersoesMudaram();
  Diz(removida ? tr("%1 was removed.").arg(nome) : QString());
  MostraLista();
  if (!removida)
    m_doors.prompt.Message(MessageKind::Warning, Titulo, u"Unable to remove " + nome);
}

void FrmBaixarBiblia::ParaTudo() {
  m_fila.Para();
  m_procura.reset();
  m_listagem.reset();
}

bool FrmBaixarBiblia::PodeFechar() {
  if (!m_fila.Roda())
    return true;
  const QString pergunta = QStringLiteral("Do you want to exit and cancel the download of the items in the queue?");
  return m_doors.prompt.Ask(Titulo, pergunta, {tr("Exit"), tr("Go on")}) == 0;
}

void FrmBaixarBiblia::closeEvent(QCloseEvent *event) {
  if (!PodeFechar()) {
    event->ignore();
    return;
  }
  // What was brought up to here is there; the end of the queue may have come while the question stood.
  const bool rodava = m_fila.Roda();
  ParaTudo();
  if (rodava)
    VersoesMudaram();
  QWidget::closeEvent(event);
}

void FrmBaixarBiblia::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmBaixarBiblia::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

} // namespace tolmira
