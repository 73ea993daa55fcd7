#include "console/ui/agenda_panel.h"

#include <QGridLayout>
#include <QMenu>
#include <QTimer>
#include <QToolTip>

#include <utility>

#include "controls/ui/desk_icon.h"
#include "controls/ui/group_list.h"
#include "controls/ui/palette.h"
#include "controls/ui/tab_button.h"

namespace tolmira {

namespace {

constexpr int EsperaDaDica = 150; // ms

std::vector<GroupList::Group> Groups() {
  const auto icon = [](const char *name) { return DeskIcon(QLatin1String(name), cores::Quiet); };
  return {{QObject::tr("Bible"), icon("bible")},   {QObject::tr("Songs"), icon("song")},
          {QObject::tr("Hymns"), icon("hymn")},    {QObject::tr("Videos"), icon("video")},
          {QObject::tr("Slides"), icon("slides")}, {QObject::tr("Shows"), icon("shows")}};
}

// The kind of the entry that put the present item on the console; 0 while nothing is on show.
int KindOf(const QString &tipo) {
  if (tipo == u"Bíblia")
    return 1;
  if (tipo == u"Louvor")
    return 2;
  if (tipo == u"Harpa")
    return 3;
  if (tipo == u"Video" || tipo == u"Youtube")
    return 4;
  if (tipo == u"Slides")
    return 5;
  return tipo == u"SlideShow" ? 6 : 0;
}

QString DicaDeEditar() { return QObject::tr("Opens the chosen entry in its editor"); }

// What a screen reader says: the caption as it is read.
void Name(QAbstractButton *button) {
  const QString mark = QStringLiteral("&&");
  QString name = button->text();
  name.replace(mark, QString(QChar::Null)).remove(u'&').replace(QChar::Null, u'&');
  if (button->accessibleName() != name)
    button->setAccessibleName(name);
}

QString Caption(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

} // namespace

QString AindaNao() { return QStringLiteral("Not available yet."); }

AgendaPanel::AgendaPanel(ConsoleParts parts, QWidget *parent)
    : QWidget(parent), m_parts(parts), m_tabs(new TabRow(this)) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);

  for (int n = 1; n <= NumeroDeAgendas; ++n) {
    auto *tab = new TabButton(m_tabs);
    tab->setObjectName(QStringLiteral("BotaoFlat5%1").arg(n));
    tab->setFocusPolicy(Qt::StrongFocus);
    m_tabs->AddTab(tab);
    m_tab[static_cast<size_t>(n)] = tab;
    connect(tab, &TabButton::clicked, this, [this, n] { m_parts.agenda.SelectTab(n); });
    connect(tab, &TabButton::Renamed, this, [this, n](const QString &title) { m_parts.agenda.RenameTab(n, title); });
  }
  column->addWidget(m_tabs);

  auto *frame = new QFrame(this);
  frame->setProperty("look", QStringLiteral("panel"));
  auto *inside = new QVBoxLayout(frame);
  inside->setContentsMargins(4, 4, 4, 4);
  m_lista = new GroupList(Groups(), frame);
  m_lista->setObjectName(QStringLiteral("ListTarefas"));
  m_lista->setAccessibleName(tr("Agenda"));
  m_lista->setToolTip(tr("A double click or Enter shows the entry; drag it to another place in its group.\n"
                         "While a song is on show the arrow keys step through it: Alt+Up and Alt+Down choose\n"
                         "another entry, Alt+Shift+Up and Alt+Shift+Down move it."));
  m_lista->SetEmptyText(tr("This agenda is empty."));
  inside->addWidget(m_lista);
  column->addWidget(frame, 1);

  connect(m_lista, &GroupList::EntryChosen, this,
          [this](int kind, int index) { m_parts.agenda.SelectEntry(kind, index); });
  connect(m_lista, &GroupList::EntryActivated, this, [this](int kind, int index) {
    m_parts.agenda.SelectEntry(kind, index);
    m_parts.fluxo.exibirSelecinado();
  });
  connect(m_lista, &GroupList::EntryMoved, this,
          [this](int kind, int from, int to) { m_parts.agenda.MoveEntry(kind, from, to); });
  // The drop has no status line of its own. A tip that is shown at once goes away with the release of the button.
  connect(m_lista, &GroupList::EntryOffered, this, [this](const EntryDrag &entry) {
    QString message;
    m_parts.fluxo.PorNaLista(entry.label, entry.group, entry.target, message);
    QTimer::singleShot(EsperaDaDica, m_lista, [this, message] { QToolTip::showText(QCursor::pos(), message, m_lista); });
  });
  connect(m_lista, &GroupList::MenuWanted, this, &AgendaPanel::ShowMenu);

  m_menu = new QMenu(this);
  m_menu->setObjectName(QStringLiteral("MnListMusicas"));
  m_menu->setToolTipsVisible(true);

  MakeBar();
}

void AgendaPanel::MakeBar() {
  struct Face {
    const char *drawing;
    QString caption;
    QString tip;
  };
  const Face faces[] = {
      {"clear", m_parts.agenda.ClearCaption(), tr("Takes every entry off this agenda")},
      {"remove", tr("&Remove"), tr("Takes the chosen entry off this agenda")},
      {"edit", tr("&Edit"), DicaDeEditar()},
      {"show", tr("&Show"), tr("Shows the chosen entry (Enter)")},
  };
  m_barGrid = new QGridLayout;
  m_barGrid->setSpacing(medidas::Gap);
  for (int n = 1; n <= 4; ++n) {
    const Face &face = faces[n - 1];
    auto *button = new FlatButton(Caption(QString()), this);
    button->setObjectName(QStringLiteral("BotaoFlat1%1").arg(n));
    button->setText(face.caption);
    button->setToolTip(face.tip);
    button->setIconSize({16, 16});
    button->setIcon(DeskIcon(QLatin1String(face.drawing), n == 4 ? cores::Desk : cores::Quiet));
    if (n == 4)
      button->setProperty("look", QStringLiteral("main"));
    Name(button);
    m_barGrid->addWidget(button, (n - 1) / 2, (n - 1) % 2);
    m_bar[static_cast<size_t>(n)] = button;
  }
  m_barGrid->setColumnStretch(0, 1);
  m_barGrid->setColumnStretch(1, 1);
  static_cast<QVBoxLayout *>(layout())->addLayout(m_barGrid);
  connect(m_bar[1], &FlatButton::clicked, this, [this] { m_parts.agenda.ClearList(); });
  connect(m_bar[2], &FlatButton::clicked, this, [this] { m_parts.agenda.RemoveSelected(); });
  connect(m_bar[3], &FlatButton::clicked, this, [this] { m_parts.agenda.EditSelected(); });
  connect(m_bar[4], &FlatButton::clicked, this, [this] { m_parts.fluxo.exibirSelecinado(); });
}

void AgendaPanel::SetCompact(bool compact) {
  layout()->setSpacing(compact ? medidas::Step : medidas::Gap);
  m_barGrid->setSpacing(compact ? medidas::Step : medidas::Gap);
}

void AgendaPanel::AgendaChanged() {
  const AgendaDesk &agenda = m_parts.agenda;
  for (int n = 1; n <= NumeroDeAgendas; ++n) {
    TabButton *tab = m_tab[static_cast<size_t>(n)];
    const QString title = agenda.TabTitle(n);
    tab->setText(Caption(title));
    tab->setChecked(n == m_parts.console.estado.ActiveAgenda);
    tab->setAccessibleName(title);
    tab->setToolTip(tr("%1 (Alt+%2). A double click or F2 renames it.").arg(title).arg(n));
  }
  m_tabs->Arrange();

  const ListTarefas &lista = agenda.Lista();
  if (!m_shown.SameEntries(lista))
    FillList();
  if (const int active = m_parts.console.estado.ActiveAgenda; active != std::exchange(m_shownAgenda, active))
    m_lista->scrollToTop();
  m_lista->SetChosen(lista.SelectedKind(), lista.SelectedIndex());
  m_bar[1]->setText(Caption(agenda.ClearCaption()));
  Name(m_bar[1]);
  m_bar[1]->setEnabled(agenda.CanClear());
  m_bar[2]->setEnabled(agenda.CanRemove());
  m_bar[3]->setEnabled(agenda.CanEdit());
  m_bar[3]->setToolTip(agenda.CanEdit() || !lista.HasSelection() ? DicaDeEditar() : AindaNao());
  m_bar[4]->setEnabled(agenda.CanShow());
  Atualiza();
}

void AgendaPanel::FillList() {
  m_shown = m_parts.agenda.Lista();
  std::vector<std::vector<GroupList::Entry>> groups;
  for (int kind = 1; kind <= GruposDaAgenda; ++kind) {
    std::vector<GroupList::Entry> &entries = groups.emplace_back();
    for (int index = 1; index <= m_shown.Count(kind); ++index) {
      const QString label = m_shown.NameAt(kind, index);
      const QString target = m_shown.CaptionAt(kind, index);
      entries.push_back({label, target == label ? QString() : label + u'\n' + target});
    }
  }
  m_lista->SetEntries(groups);
}

void AgendaPanel::Atualiza() {
  const int kind = KindOf(m_parts.console.estado.TipoAtual);
  const QString &label = m_parts.console.painel.Label9;
  const ListTarefas &lista = m_parts.agenda.Lista();
  int found = 0;
  if (kind > 0 && !label.isEmpty())
    for (int index = 1; index <= lista.Count(kind) && found == 0; ++index)
      if (lista.NameAt(kind, index) == label || lista.CaptionAt(kind, index) == label)
        found = index;
  m_lista->SetOnShow(found > 0 ? kind : 0, found);
}

void AgendaPanel::SelectNeighbour(int delta) {
  const auto [kind, index] = m_lista->Neighbour(delta);
  if (kind > 0)
    m_parts.agenda.SelectEntry(kind, index);
  m_lista->setFocus(Qt::ShortcutFocusReason);
}

void AgendaPanel::MoveSelected(int delta) {
  const ListTarefas &lista = m_parts.agenda.Lista();
  const int kind = lista.SelectedKind();
  const int from = lista.SelectedIndex();
  if (kind > 0 && from + delta >= 1 && from + delta <= lista.Count(kind))
    m_parts.agenda.MoveEntry(kind, from, from + delta);
}

void AgendaPanel::ShowMenu(const QPoint &globalPos) {
  const AgendaDesk &agenda = m_parts.agenda;
  m_menu->clear();
  QAction *show = m_menu->addAction(tr("Show"), this, [this] { m_parts.fluxo.exibirSelecinado(); });
  show->setEnabled(agenda.CanShow());
  QAction *edit = m_menu->addAction(tr("Edit"), this, [this] { m_parts.agenda.EditSelected(); });
  edit->setEnabled(agenda.CanEdit());
  if (!agenda.CanEdit())
    edit->setToolTip(AindaNao());
  m_menu->addAction(Caption(agenda.ClearCaption()), this, [this] { m_parts.agenda.ClearList(); });
  QAction *remove =
      m_menu->addAction(QStringLiteral("Remove from this list"), this, [this] { m_parts.agenda.RemoveSelected(); });
  remove->setEnabled(agenda.CanRemove());
  m_menu->popup(globalPos);
}

} // namespace tolmira
