#include "console/ui/console_menus.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"

namespace tolmira {

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

QMenu *ConsoleMenus::Menu(const char *name, const QString &title) {
  QMenu *menu = addMenu(title);
  menu->setObjectName(QLatin1String(name));
  menu->setToolTipsVisible(true);
  return menu;
}

void ConsoleMenus::Later(QMenu *menu, const QString &text) {
  QAction *action = menu->addAction(text);
  action->setEnabled(false);
  action->setToolTip(AindaNao());
}

void ConsoleMenus::MakeFile() {
  QMenu *menu = Menu("MnArquivo", tr("&File"));
  Later(menu, QStringLiteral("Download lyrics from the internet"));
  QAction *newSong = menu->addAction(QStringLiteral("Type or paste the lyrics manually"), this,
                                     [this] { m_ways.newSong(); });
  newSong->setObjectName(QStringLiteral("MnNovaLetra"));
  newSong->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
  newSong->setAutoRepeat(false);
  menu->addSeparator();
  // No key of its own: a slip of the hand must not end a service.
  QAction *quit = menu->addAction(tr("E&xit"), this, [this] { m_ways.close(); });
  quit->setObjectName(QStringLiteral("MnSair"));
}

void ConsoleMenus::MakeActions() {
  QMenu *menu = Menu("MnAcoes", tr("&Actions"));
  Later(menu, QStringLiteral("Download Lyrics from the Internet"));
  Later(menu, QStringLiteral("Download Images from the Internet"));
  Later(menu, QStringLiteral("Download Videos from the Internet"));
}

void ConsoleMenus::MakeScreen() {
  QMenu *menu = Menu("MnTela", tr("S&creen"));
  m_states = new QActionGroup(this);
  for (int i = 0; i < 5; ++i) {
    QAction *state = menu->addAction(ScreenControls::LegendaDoEstado(i).trimmed());
    state->setObjectName(QStringLiteral("MnTela%1").arg(i));
    state->setCheckable(true);
    state->setShortcut(QKeySequence(Qt::Key_F5 + i));
    state->setAutoRepeat(false);
    state->setToolTip(ScreenControls::DicaDoEstado(i));
    m_states->addAction(state);
    connect(state, &QAction::triggered, this, [this, i] {
      m_parts.controles.SetScreenState(i);
      Atualiza(); // a state that was refused must not stay ticked
    });
  }
  menu->addSeparator();
  QAction *picture = menu->addAction(tr("&Picture on the screen…"), this, [this] { m_ways.pictureOnScreen(); });
  picture->setObjectName(QStringLiteral("MnImagem"));
  picture->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
  picture->setAutoRepeat(false);
  picture->setToolTip(tr("Shows one picture of the gallery behind the text, in place of the theme's"));
}

void ConsoleMenus::MakeBible() {
  QMenu *menu = Menu("MnBiblia", tr("B&ible")); // Alt+B is the button of the add bar
  m_mnIb = menu->addMenu(tr("&Version"));
  m_mnIb->setObjectName(QStringLiteral("mn_ib"));
  m_mnIb->setToolTipsVisible(true);
  menu->addSeparator();
  const auto entry = [this, menu](const QString &text, const QKeySequence &key, const std::function<void()> &way) {
    QAction *action = menu->addAction(text, this, way);
    action->setShortcut(key);
    action->setAutoRepeat(false);
  };
  entry(tr("&Type a reference"), QKeySequence(Qt::Key_F10), [this] { m_ways.toReference(); });
  entry(tr("&Add a passage to the agenda…"), {}, [this] { m_ways.addBible(); });
  entry(tr("&Browse…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B), [this] { m_ways.browseBible(); });
  entry(tr("&Search by words…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), [this] { m_ways.searchBible(); });
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
  Later(m_mnIb, QStringLiteral("Search versions"));
}

void ConsoleMenus::MakeGo() {
  QMenu *menu = Menu("MnIr", tr("&Go"));
  const auto entry = [this, menu](const QString &text, QKeySequence key, std::function<void()> way) {
    QAction *action = menu->addAction(text, this, std::move(way));
    action->setShortcut(key);
  };
  entry(tr("Next entry of the agenda"), QKeySequence(Qt::ALT | Qt::Key_Down), [this] { m_ways.choose(1); });
  entry(tr("Previous entry of the agenda"), QKeySequence(Qt::ALT | Qt::Key_Up), [this] { m_ways.choose(-1); });
  entry(tr("Move the entry down"), QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Down), [this] { m_ways.move(1); });
  entry(tr("Move the entry up"), QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Up), [this] { m_ways.move(-1); });
  menu->addSeparator();
  for (int n = 1; n <= NumeroDeAgendas; ++n)
    entry(tr("Agenda tab &%1").arg(n), QKeySequence(Qt::ALT | (Qt::Key_0 + n)),
          [this, n] { m_parts.agenda.SelectTab(n); });
  menu->addSeparator();
  entry(tr("To the agenda"), QKeySequence(Qt::Key_F3), [this] { m_ways.toAgenda(); });
  entry(tr("To the text"), QKeySequence(Qt::Key_F4), [this] { m_ways.toStrip(); });
  entry(tr("To the screen states"), QKeySequence(Qt::Key_F11), [this] { m_ways.toScreenStates(); });
  entry(tr("To the themes"), QKeySequence(Qt::Key_F12), [this] { m_ways.toThemes(); });
}

void ConsoleMenus::MakeHelp() {
  QMenu *menu = Menu("MnAjuda", tr("&Help"));
  Later(menu, QStringLiteral("Quendar Vaelis Help"));
  Later(menu, QStringLiteral("Technical Support"));
  Later(menu, QStringLiteral("Check for Updates"));
  menu->addSeparator();
  Later(menu, QStringLiteral("About Quendar Vaelis"));
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
  };
  quiet("Label15", tr("Version %1").arg(QStringLiteral(TOLMIRA_VERSION)), tr("Version of the program"));
  row->addSpacing(medidas::Gap);
  quiet("LbServidorLegenda", tr("Captions off"), tr("Caption server"));
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
  const QList<QAction *> states = m_states->actions();
  const int chosen = m_parts.console.painel.LBTelaMarcado;
  if (chosen >= 0 && chosen < states.size())
    states[chosen]->setChecked(true);

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
