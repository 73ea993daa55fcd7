#include "console/ui/console_menus.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QResizeEvent>

namespace tolmira {

namespace {

QString DicaDasLetras() {
  return QObject::tr("Searches the lyrics sites for songs and saves them");
}

} // namespace

ConsoleMenus::ConsoleMenus(ConsoleParts parts, Ways ways, QWidget *parent)
    : QMenuBar(parent), m_parts(parts), m_ways(std::move(ways)) {
  setObjectName(QStringLiteral("Menu"));
  MakeFile();
  MakeActions();
  MakeScreen();
  MakeBible();
  MakeGo();
  MakeHelp();
  MakeCorner();
}

// An entry of the sheet of keys, with its text and key.
QAction *ConsoleMenus::Entry(QMenu *menu, Comando comando, std::function<void()> way) {
  const Atalho &atalho = AtalhoDe(comando);
  QAction *action = menu->addAction(atalho.texto, this, std::move(way));
  action->setShortcut(atalho.tecla);
  return action;
}

QMenu *ConsoleMenus::Menu(const char *name, const QString &title) {
  QMenu *menu = addMenu(title);
  menu->setObjectName(QLatin1String(name));
  menu->setToolTipsVisible(true);
  return menu;
}

// An entry that opens a window by the mouse or by the menu's own keys alone.
QAction *ConsoleMenus::Action(QMenu *menu, const char *name, const QString &text, const QString &tip,
                              std::function<void()> way) {
  QAction *action = menu->addAction(text, this, std::move(way));
  action->setObjectName(QLatin1String(name));
  action->setToolTip(tip);
  return action;
}

void ConsoleMenus::MakeFile() {
  QMenu *menu = Menu("MnArquivo", tr("&File"));
  Action(menu, "MnBaixarLetras", QStringLiteral("Download lyrics from the internet"), DicaDasLetras(),
         [this] { m_ways.downloadLyrics(); });
  QAction *newSong = Entry(menu, Comando::NovaLetra, [this] { m_ways.newSong(); });
  newSong->setObjectName(QStringLiteral("MnNovaLetra"));
  newSong->setAutoRepeat(false);
  menu->addSeparator();
  // No key of its own: a slip of the hand must not end a service.
  QAction *quit = menu->addAction(tr("E&xit"), this, [this] { m_ways.close(); });
  quit->setObjectName(QStringLiteral("MnSair"));
}

void ConsoleMenus::MakeActions() {
  QMenu *menu = Menu("MnAcoes", tr("&Actions"));
  Action(menu, "MnAcoesLetras", QStringLiteral("Download Lyrics from the Internet"), DicaDasLetras(),
         [this] { m_ways.downloadLyrics(); });
  Action(menu, "MnAcoesImagens", QStringLiteral("Download Images from the Internet"),
         tr("Searches pictures for backgrounds and adds them to the gallery"), [this] { m_ways.downloadPictures(); });
  Action(menu, "MnAcoesVideos", QStringLiteral("Download Videos from the Internet"),
         tr("Fetches the videos that are suggested for this program folder"), [this] { m_ways.downloadVideos(); });
}

void ConsoleMenus::MakeScreen() {
  QMenu *menu = Menu("MnTela", tr("S&creen"));
  m_states = new QActionGroup(this);
  for (int i = 0; i < 5; ++i) {
    QAction *state = Entry(menu, static_cast<Comando>(static_cast<int>(Comando::Estado0) + i), [this, i] {
      m_parts.controles.SetScreenState(i);
      Atualiza(); // a state that was refused must not stay ticked
    });
    state->setObjectName(QStringLiteral("MnTela%1").arg(i));
    state->setCheckable(true);
    state->setAutoRepeat(false);
    state->setToolTip(ScreenControls::DicaDoEstado(i));
    m_states->addAction(state);
  }
  menu->addSeparator();
  QAction *picture = Entry(menu, Comando::Imagem, [this] { m_ways.pictureOnScreen(); });
  picture->setObjectName(QStringLiteral("MnImagem"));
  picture->setAutoRepeat(false);
  picture->setToolTip(tr("Shows one picture of the gallery behind the text, in place of the theme's"));
  m_mnVideo = Entry(menu, Comando::Video, [this] { m_ways.videoControl(); });
  m_mnVideo->setObjectName(QStringLiteral("MnVideo"));
  m_mnVideo->setAutoRepeat(false);
  m_mnVideo->setToolTip(tr("Opens the control of the video that is on show"));
  m_mnCameras = Entry(menu, Comando::Cameras, [this] { m_ways.cameras(); });
  m_mnCameras->setObjectName(QStringLiteral("MnCameras"));
  m_mnCameras->setAutoRepeat(false);
  m_mnCameras->setToolTip(tr("Puts the picture of a camera behind the text of a song or a passage"));
  menu->addSeparator();
  m_mnProjecao = menu->addMenu(tr("&Projection on"));
  m_mnProjecao->setObjectName(QStringLiteral("MnProjecao"));
  FillScreens();
}

void ConsoleMenus::FillScreens() {
  m_telas = m_parts.console.painel.telas;
  m_mnProjecao->clear();
  m_mnProjecao->setEnabled(!m_telas.empty());
  for (size_t i = 0; i < m_telas.size(); ++i) {
    const int index = static_cast<int>(i);
    QString caption = m_telas[i].texto;
    QAction *action = m_mnProjecao->addAction(caption.replace(u'&', QStringLiteral("&&")));
    action->setObjectName(QStringLiteral("MnProjecao%1").arg(index));
    action->setCheckable(true);
    action->setChecked(m_telas[i].marcada);
    action->setEnabled(m_telas[i].presente);
    // Behind the menu's own doing: the choice makes its entries anew.
    connect(
        action, &QAction::triggered, this,
        [this, index] {
          m_telas.clear();
          m_ways.chooseScreen(index);
        },
        Qt::QueuedConnection);
  }
}

void ConsoleMenus::MakeBible() {
  QMenu *menu = Menu("MnBiblia", tr("B&ible")); // Alt+B is the button of the add bar
  m_mnIb = menu->addMenu(tr("&Version"));
  m_mnIb->setObjectName(QStringLiteral("mn_ib"));
  m_mnIb->setToolTipsVisible(true);
  menu->addSeparator();
  Entry(menu, Comando::Referencia, [this] { m_ways.toReference(); })->setAutoRepeat(false);
  menu->addAction(tr("&Add a passage to the agenda…"), this, [this] { m_ways.addBible(); });
  Entry(menu, Comando::NavegaBiblia, [this] { m_ways.browseBible(); })->setAutoRepeat(false);
  Entry(menu, Comando::ProcuraBiblia, [this] { m_ways.searchBible(); })->setAutoRepeat(false);
  FillVersions();
}

void ConsoleMenus::FillVersions() {
  m_legendas.clear();
  m_mnIb->clear();
  delete m_versoes;
  m_versoes = new QActionGroup(this);
  for (const BibleVersion &version : m_parts.biblia.Versoes()) {
    m_legendas.append(version.legenda);
    const int index = static_cast<int>(m_legendas.size());
    QString caption = version.legenda;
    QAction *action = m_mnIb->addAction(caption.replace(u'&', QStringLiteral("&&")));
    action->setObjectName(QStringLiteral("mn_ib%1").arg(index));
    action->setCheckable(true);
    m_versoes->addAction(action);
    connect(action, &QAction::triggered, this, [this, index] {
      m_parts.leitura.TrocaVersao(index);
      Atualiza(); // the tick goes by what came of it
    });
  }
  m_mnIb->addSeparator();
  Action(m_mnIb, "MnBuscaVersoes", QStringLiteral("Search versions"),
         tr("Adds Bible versions from the internet or from this computer, or removes some"),
         [this] { m_ways.searchVersions(); });
}

void ConsoleMenus::MakeGo() {
  QMenu *menu = Menu("MnIr", tr("&Go"));
  Entry(menu, Comando::ProximaEntrada, [this] { m_ways.choose(1); });
  Entry(menu, Comando::EntradaAnterior, [this] { m_ways.choose(-1); });
  Entry(menu, Comando::DesceEntrada, [this] { m_ways.move(1); });
  Entry(menu, Comando::SobeEntrada, [this] { m_ways.move(-1); });
  menu->addSeparator();
  for (int n = 1; n <= NumeroDeAgendas; ++n)
    Entry(menu, static_cast<Comando>(static_cast<int>(Comando::Aba1) + n - 1),
          [this, n] { m_parts.agenda.SelectTab(n); });
  menu->addSeparator();
  Entry(menu, Comando::Agenda, [this] { m_ways.toAgenda(); });
  Entry(menu, Comando::Texto, [this] { m_ways.toStrip(); });
  Entry(menu, Comando::Estados, [this] { m_ways.toScreenStates(); });
  Entry(menu, Comando::Temas, [this] { m_ways.toThemes(); });
}

void ConsoleMenus::MakeHelp() {
  QMenu *menu = Menu("MnAjuda", tr("&Help"));
  const auto entry = [this, menu](const QString &text, const QString &tip, std::function<void()> way) {
    menu->addAction(text, this, std::move(way))->setToolTip(tip);
  };
  entry(QStringLiteral("Quendar Vaelis Help"), tr("First steps, keys and files, in the browser"),
        [this] { m_ways.help(); });
  entry(QStringLiteral("Technical Support"), tr("Opens the support page in the browser"), [this] { m_ways.support(); });
  entry(QStringLiteral("Check for Updates"), tr("Asks whether there is a newer version"),
        [this] { m_ways.verifyUpdate(); });
  menu->addSeparator();
  QAction *sheet = Entry(menu, Comando::Folha, [this] { m_ways.keySheet(); });
  sheet->setObjectName(QStringLiteral("MnAtalhos"));
  sheet->setAutoRepeat(false);
  menu->addSeparator();
  entry(QStringLiteral("About Quendar Vaelis"), tr("Version, engine and licences"), [this] { m_ways.about(); });
}

void ConsoleMenus::MakeCorner() {
  auto *corner = new QWidget(this);
  auto *row = new QHBoxLayout(corner);
  row->setContentsMargins(0, 0, 8, 0);
  row->setSpacing(medidas::Gap);
  const auto quiet = [corner, row](const char *name, const QString &text, const QString &tip) {
    auto *label = new QLabel(text, corner);
    label->setObjectName(QLatin1String(name));
    label->setProperty("look", QStringLiteral("quiet"));
    label->setToolTip(tip);
    row->addWidget(label);
    return label;
  };
  quiet("Label15", tr("Version %1").arg(QStringLiteral(TOLMIRA_VERSION)), tr("Version of the program"));
  row->addSpacing(medidas::Gap);
  m_lbServidorLegenda = quiet("Label32", QString(), tr("Whether a broadcast tool takes the captions"));
  m_image3 = new QPushButton(corner);
  m_image3->setObjectName(QStringLiteral("Image3"));
  m_image3->setProperty("look", QStringLiteral("flat"));
  m_image3->setStyleSheet(QStringLiteral("padding: 0; min-height: 22px; min-width: 30px;"));
  m_image3->setIconSize({16, 16});
  m_image3->setFocusPolicy(Qt::TabFocus);
  connect(m_image3, &QPushButton::clicked, this, [this] { m_ways.toggleSize(); });
  row->addWidget(m_image3);
  SetMaximised(true);
  setCornerWidget(corner);
}

void ConsoleMenus::SetMaximised(bool maximised) {
  m_image3->setIcon(DeskIcon(QLatin1String(maximised ? "restore" : "maximise"), cores::Quiet));
  const QString tip = maximised ? tr("Smaller window") : tr("Fill the work area");
  m_image3->setToolTip(tip);
  m_image3->setAccessibleName(tip);
}

void ConsoleMenus::Atualiza() {
  const SituacaoDaTela &situacao = m_parts.console.painel.situacao;
  if (m_lbServidorLegenda->text() != situacao.LbServidorLegenda) {
    m_lbServidorLegenda->setText(situacao.LbServidorLegenda);
    SetLook(m_lbServidorLegenda, "state", situacao.CorDasLegendas);
    // A menu bar asks its corner for its size only when it is laid out anew.
    cornerWidget()->adjustSize();
    QResizeEvent again(size(), size());
    resizeEvent(&again);
  }
  const QList<QAction *> states = m_states->actions();
  const int chosen = m_parts.console.painel.LBTelaMarcado;
  if (chosen >= 0 && chosen < states.size())
    states[chosen]->setChecked(true);

  m_mnVideo->setEnabled(m_parts.console.painel.video.Ativo);
  m_mnCameras->setEnabled(m_parts.console.painel.camera.Pode);
  if (m_telas != m_parts.console.painel.telas)
    FillScreens();

  QStringList captions;
  for (const BibleVersion &version : m_parts.biblia.Versoes())
    captions.append(version.legenda);
  if (captions != m_legendas)
    FillVersions();
  const QList<QAction *> versions = m_versoes->actions();
  const int version = m_parts.biblia.BibliaAtual() - 1;
  if (version >= 0 && version < versions.size())
    versions[version]->setChecked(true);
}

} // namespace tolmira
