#include "captions/FrmLegendas.h"

#include "captions/caption_composer.h"
#include "captions/caption_settings.h"
#include "captions/ui/caption_look.h"
#include "captions/ui/caption_preview.h"
#include "controls/ui/palette.h"
#include "display/ui/web_page_host.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr int IntervaloDoTimer1 = 500; // ms
constexpr int LarguraDasAbas = 430;
constexpr int LarguraDaPorta = 90;

// A port, or nothing yet; the form says what is missing when the server is to start.
class ValidaPorta : public QIntValidator {
public:
  explicit ValidaPorta(QObject *parent) : QIntValidator(0, 65535, parent) {
    QLocale semPontos(QLocale::C);
    semPontos.setNumberOptions(QLocale::RejectGroupSeparator);
    setLocale(semPontos);
  }
  State validate(QString &texto, int &lugar) const override {
    return texto.isEmpty() || QIntValidator::validate(texto, lugar) == Acceptable ? Acceptable : Invalid;
  }
};

const QString ExemploDeLetra = QStringLiteral("I will call<br>Upon Your name");
const QString ExemploDeVersiculo = QStringLiteral(
    "For God so loved the world, that he gave his only begotten Son, that whosoever believeth in him should "
    "not perish, but have everlasting life.");

} // namespace

FrmLegendas::FrmLegendas(const CaptionDoors &doors)
    : QDialog(doors.dono), m_doors(doors), m_preview(new CaptionPreview(doors.store.App(), doors.perfil, this)),
      m_biblia(new CaptionLook(m_temp.Biblia)), m_letras(new CaptionLook(m_temp.Letras)), m_abas(new QTabWidget(this)) {
  setObjectName(QStringLiteral("FrmLegendas"));
  setWindowTitle(tr("Broadcast captions"));
  m_abas->setObjectName(QStringLiteral("Abas"));
  m_abas->setFocusPolicy(Qt::NoFocus); // its bar takes the focus
  m_abas->tabBar()->setAccessibleName(tr("Kind of caption"));
  m_abas->setDocumentMode(true);
  m_abas->setFixedWidth(LarguraDasAbas);
  m_abas->addTab(Page(m_biblia, "Command1"), QStringLiteral("Bible"));
  m_abas->addTab(Page(m_letras, "Command3"), QStringLiteral("Lyrics"));

  auto *side = new QVBoxLayout;
  side->setSpacing(medidas::Margin);
  side->addWidget(m_preview);
  side->addWidget(MakeServer());
  side->addStretch(1);
  auto *close = new QPushButton(tr("Close"), this);
  close->setObjectName(QStringLiteral("Command2"));
  close->setToolTip(tr("Closes the window; what is not saved is lost (Esc)"));
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  side->addWidget(close, 0, Qt::AlignRight);

  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  row->setSpacing(medidas::Margin);
  row->addWidget(m_abas);
  row->addLayout(side, 1);

  connect(m_abas, &QTabWidget::currentChanged, this, &FrmLegendas::MostraPreviaLegenda);
  connect(m_biblia, &CaptionLook::Mudou, this, [this] { MostraPreviaLegenda(Biblia); });
  connect(m_letras, &CaptionLook::Mudou, this, [this] { MostraPreviaLegenda(Letras); });
  m_timer1.setInterval(IntervaloDoTimer1);
  connect(&m_timer1, &QTimer::timeout, this, &FrmLegendas::MostraServidor);
}

QWidget *FrmLegendas::Page(CaptionLook *look, const char *save) {
  auto *page = new QWidget(this);
  auto *column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, medidas::Margin, medidas::Margin);
  column->addWidget(look, 1);
  auto *button = new QPushButton(tr("&Save"), page);
  button->setObjectName(QLatin1String(save));
  button->setProperty("look", QStringLiteral("main"));
  button->setToolTip(tr("Saves the settings of both tabs; the caption on show takes them at once"));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, &FrmLegendas::Salva);
  column->addWidget(button, 0, Qt::AlignRight);
  return page;
}

QWidget *FrmLegendas::MakeServer() {
  auto *box = new QFrame(this);
  box->setObjectName(QStringLiteral("PicServidor"));
  auto *column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);
  const auto button = [this](const char *name, const QString &text, const QString &tip, QBoxLayout *row, auto slot) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, slot);
    row->addWidget(made);
    return made;
  };

  auto *start = new QHBoxLayout;
  start->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setAccessibleName(tr("Port"));
  m_text1->setToolTip(tr("The port that the broadcast tool asks at, best between 49152 and 65535"));
  m_text1->setMaxLength(5);
  m_text1->setValidator(new ValidaPorta(m_text1));
  m_text1->setFixedWidth(LarguraDaPorta);
  connect(m_text1, &QLineEdit::returnPressed, this, &FrmLegendas::BotaoFlat1);
  auto *port = new QLabel(tr("Po&rt"), this);
  port->setBuddy(m_text1);
  start->addWidget(port);
  start->addWidget(m_text1);
  m_botaoFlat1 = button("BotaoFlat1", QStringLiteral("Start Server"), tr("Starts or stops handing out the captions"),
                        start, &FrmLegendas::BotaoFlat1);
  start->addStretch(1);
  button("BotaoFlat3", tr("&How to"), tr("How to set up the broadcast tool"), start, &FrmLegendas::BotaoFlat3);
  column->addLayout(start);

  m_optionFlat1 = new QCheckBox(tr("S&tart with the program"), this);
  m_optionFlat1->setObjectName(QStringLiteral("OptionFlat1"));
  m_optionFlat1->setToolTip(tr("Starts the server with the program, and again after a failure"));
  connect(m_optionFlat1, &QCheckBox::clicked, this, &FrmLegendas::OptionFlat1);
  column->addWidget(m_optionFlat1);

  m_labelFalha = new QLabel(tr("This port cannot be used. Choose another one."), this);
  m_labelFalha->setObjectName(QStringLiteral("LabelFalha"));
  m_labelFalha->setProperty("look", QStringLiteral("quiet"));
  m_labelFalha->hide();
  column->addWidget(m_labelFalha);

  m_picServer = new QFrame(this);
  m_picServer->setObjectName(QStringLiteral("PicServer"));
  auto *address = new QHBoxLayout(m_picServer);
  address->setContentsMargins(0, 0, 0, 0);
  address->setSpacing(medidas::Gap);
  m_labelServer = new QLabel(m_picServer);
  m_labelServer->setObjectName(QStringLiteral("LabelServer"));
  m_labelServer->setAccessibleName(tr("Address of the captions"));
  m_labelServer->setToolTip(tr("Where the broadcast tool finds the captions"));
  m_labelServer->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  address->addWidget(m_labelServer, 1);
  button("BotaoFlat2", tr("&Copy"), tr("Copies the address, for the broadcast tool"), address,
         [this] { QGuiApplication::clipboard()->setText(m_labelServer->text()); });
  column->addWidget(m_picServer);
  return box;
}

void FrmLegendas::Open() {
  if (!isVisible()) {
    m_falhou = false;
    CarregaLegendaTemp();
    MostraServidor();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  m_timer1.start();
  show();
  raise();
  activateWindow();
}

PageObject *FrmLegendas::WV() const {
  return m_preview->PicWV()->WV();
}

void FrmLegendas::CarregaLegendaTemp() {
  CarregaLegendas(m_doors.store, m_temp);
  m_biblia->Mostra();
  m_letras->Mostra();
  m_text1->setText(QString::number(m_temp.Porta));
  m_optionFlat1->setChecked(m_temp.StartOnLoad);
  MostraPreviaLegenda(m_abas->currentIndex());
}

void FrmLegendas::MostraPreviaLegenda(int aba) {
  m_preview->Mostra(aba == Letras ? ComposeLegendaLetra(m_temp.Letras, ExemploDeLetra)
                                  : ComposeLegendaBiblia(m_temp.Biblia, ExemploDeVersiculo, QStringLiteral("John 3:16"),
                                                         QStringLiteral("KJV")));
}

void FrmLegendas::Salva() {
  if (const quint16 porta = PortaDoTexto(m_text1->text()); porta > 0) {
    m_temp.Porta = porta;
    m_text1->setText(QString::number(porta));
  }
  if (!SalvarLegenda(m_doors.store, m_temp)) {
    DizQueNaoGravou();
    return;
  }
  m_doors.legenda.Biblia = m_temp.Biblia;
  m_doors.legenda.Letras = m_temp.Letras;
  if (m_doors.salvas)
    m_doors.salvas();
}

void FrmLegendas::DizQueNaoGravou() {
  m_doors.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"), tr("The settings could not be saved."));
}

void FrmLegendas::OptionFlat1(bool ligado) {
  if (!GravaStartOnLoad(m_doors.store, ligado)) {
    m_optionFlat1->setChecked(!ligado);
    DizQueNaoGravou();
    return;
  }
  m_temp.StartOnLoad = m_doors.legenda.StartOnLoad = ligado;
}

void FrmLegendas::BotaoFlat1() {
  m_falhou = false;
  if (m_doors.servidor.EmServico()) {
    m_doors.servidor.Desliga();
  } else {
    const QString titulo = QStringLiteral("Caption Server for OBS");
    QString erro;
    if (!m_doors.servidor.Liga(m_text1->text(), erro)) {
      m_doors.prompt.Message(
          MessageKind::Information, titulo,
          QStringLiteral("Enter the port number (between 49152 and 65535) and then click 'Start Server'"));
    } else {
      m_temp.Porta = m_doors.legenda.Porta;
      m_text1->setText(QString::number(m_temp.Porta));
      m_falhou = !m_doors.servidor.Ligado();
      if (!erro.isEmpty())
        m_doors.prompt.Message(MessageKind::Warning, titulo, erro);
    }
  }
  MostraServidor();
}

// The numbers jump while the server runs, because the port is chosen by then.
void FrmLegendas::BotaoFlat3() {
  const QString porta =
      QStringLiteral("1) Enter the port number (between 49152 and 65535) and then click 'Start Server'");
  const QString fonte = QStringLiteral("In OBS, add a new source of type 'Browser'");
  const QString endereco = u"In the URL field, enter: " + m_doors.legenda.Url;
  const QStringList fim{
      QStringLiteral("4) Configure the resolution by entering the Width and Height of your broadcast screen."),
      QStringLiteral("If there is an issue, try changing the port number (between 49152 and 65535)"),
      QStringLiteral("Always choose ports that are not being used by other applications and ensure the firewall allows "
                     "connections on the chosen port.")};
  const QStringList linhas = m_doors.servidor.EmServico() ? QStringList{u"1) " + fonte, u"2) " + endereco}
                                                          : QStringList{porta, u"2) " + fonte, u"3) " + endereco};
  m_doors.prompt.Message(MessageKind::Information, QStringLiteral("Caption Server for Broadcast"),
                         (linhas + fim).join(u'\n'));
}

void FrmLegendas::MostraServidor() {
  const bool ligado = m_doors.servidor.EmServico();
  m_botaoFlat1->setText(ligado ? QStringLiteral("Stop Server") : QStringLiteral("Start Server"));
  SetLook(m_botaoFlat1, "state", ligado ? QStringLiteral("live") : QString());
  m_text1->setEnabled(!ligado);
  m_labelServer->setText(m_doors.legenda.Url);
  m_picServer->setVisible(ligado);
  m_labelFalha->setVisible(m_falhou && !ligado);
}

void FrmLegendas::hideEvent(QHideEvent *event) {
  if (!event->spontaneous()) {
    m_timer1.stop();
    m_doors.posicoes.SaveFormPosition(*this, false);
  }
  QDialog::hideEvent(event);
}

} // namespace tolmira
