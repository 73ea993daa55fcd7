#include "console/agenda_desk.h"

#include "foundation/text_file.h"
#include "media/video_files.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

const QString TituloDaCaixa = QStringLiteral("Tolmira");

QString Padrao(int n) {
  return QStringLiteral("Agenda ") + QString::number(n);
}

// The first letter and each letter behind a blank or a "-" in capitals, the rest in lower case.
QString FormaPropria(const QString &label) {
  QString result;
  bool capital = true;
  for (const QChar c : label) {
    result += capital ? c.toUpper() : c.toLower();
    capital = c == u' ' || c == u'-';
  }
  return result;
}

// An entry is one line of its file.
QString EmUmaLinha(QString texto) {
  return texto.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\r', u' ').replace(u'\n', u' ');
}

// The path of a file has to come back as it is.
bool CabeNaAgenda(const QString &path) {
  return !path.contains(u'\r') && !path.contains(u'\n') && !path.contains(QStringLiteral("|#|"));
}

QString NaoCabe(const QString &path) {
  return QStringLiteral("An agenda cannot name this file, whose path holds a line end or \"|#|\": ") + EmUmaLinha(path);
}

// As PorNaLista writes it.
QString LabelOf(const QString &name) {
  const QString label = EmUmaLinha(name);
  return label == label.toUpper() || label == label.toLower() ? FormaPropria(label) : label;
}

} // namespace

AgendaDesk::AgendaDesk(const AppFolder &app, const IniStore &store, EstadoConsole &estado, PainelConsole &painel,
                       const FaixaTexto &faixa, ConsoleView *&view, UserPrompt &prompt)
    : m_app(app), m_store(store), m_estado(estado), m_painel(painel), m_faixa(faixa), m_view(view), m_prompt(prompt),
      m_files(app) {}

QString AgendaDesk::TabTitle(int n) const {
  return m_store.ReadConfig(QStringLiteral("Agenda"), QString::number(n), Padrao(n));
}

bool AgendaDesk::TabHasOwnTitle(int n) const {
  return TabTitle(n) != Padrao(n);
}

void AgendaDesk::RenameTab(int n, const QString &title) {
  // An empty title counts as missing, which gives the tab its default title back.
  m_store.WriteConfig(QStringLiteral("Agenda"), QString::number(n), title.simplified());
  if (n == m_estado.ActiveAgenda)
    m_painel.LbDicaAgenda = DicaDaAgenda(n);
  if (m_view) {
    m_view->AgendaChanged();
    m_view->Atualiza();
  }
}

// A title of its own stands in quotes of its own and ends in two full stops.
QString AgendaDesk::DicaDaAgenda(int n) const {
  const QString begin =
      QStringLiteral("Click on 'Lyrics', 'Bible', or other buttons in the Main Menu to add items to the 'Agenda ");
  const QString end =
      QStringLiteral("', or select another agenda that already contains the items you want to display.");
  if (TabHasOwnTitle(n))
    return begin + u'\'' + TabTitle(n) + end + u'.';
  return begin + QString::number(n) + end;
}

void AgendaDesk::carregaListTarefas(int n) {
  const auto unsaved = m_unsaved.find(n);
  if (unsaved != m_unsaved.end()) {
    m_lista = unsaved->second;
    return;
  }
  m_unread.erase(n);
  if (!m_files.Carrega(n, m_lista))
    m_unread.insert(n);
}

bool AgendaDesk::salvaListTarefas(int n) {
  if (!Grava(n, m_lista)) {
    m_unsaved[n] = m_lista;
    return false;
  }
  m_unsaved.erase(n);
  // The disk takes files again, so what waited goes out as well.
  for (auto waiting = m_unsaved.begin(); waiting != m_unsaved.end();)
    waiting = Grava(waiting->first, waiting->second) ? m_unsaved.erase(waiting) : std::next(waiting);
  return true;
}

bool AgendaDesk::Grava(int n, ListTarefas &lista) {
  if (m_unread.contains(n)) {
    if (lista.ListCount() == 0)
      return true; // nothing of the operator's to write over a file that nobody has seen
    if (ListTarefas whole; m_files.Carrega(n, whole)) {
      for (int kind = 1; kind <= GruposDaAgenda; ++kind)
        for (int index = 1; index <= lista.Count(kind); ++index)
          if (!whole.HasName(kind, lista.NameAt(kind, index)))
            whole.Add(kind, lista.NameAt(kind, index), lista.CaptionAt(kind, index));
      lista = whole;
      m_unread.erase(n);
    }
  }
  return m_files.Salva(n, lista);
}

bool AgendaDesk::NadaNaTira() const {
  return !m_faixa.Label1Visible && !m_painel.biblia.Visible && !m_estado.EhSlides();
}

void AgendaDesk::SelectTab(int n) {
  if (n == 0)
    n = 1;
  if (n == m_estado.ActiveAgenda || n < 1 || n > NumeroDeAgendas)
    return;
  if (m_estado.ActiveAgenda > 0)
    salvaListTarefas(m_estado.ActiveAgenda);
  m_estado.ActiveAgenda = n;
  carregaListTarefas(n);

  m_painel.PicDicaAgenda = false;
  m_painel.PicAviso2 = NadaNaTira();
  if (m_lista.ListCount() == 0) {
    m_painel.PicAviso2 = false;
    m_painel.PicDicaAgenda = NadaNaTira();
    m_painel.LbDicaAgenda = DicaDaAgenda(n);
  }
  if (m_view) {
    m_view->AgendaChanged();
    m_view->Atualiza();
  }
}

void AgendaDesk::PorNaLista(const QString &labelGiven, int kind, const QString &target, QString &message) {
  message.clear();
  if (labelGiven.isEmpty()) {
    if (kind == 1)
      message = QStringLiteral("Primeiro selecione o item que deseja adicionar na lista");
    else if (kind == 4)
      message = QStringLiteral("Insira um link válido de um video do Youtube");
    else
      message = QStringLiteral("Primeiro selecione o nome da música que deseja adicionar na lista");
    return;
  }
  if (kind >= TipoVideoDaAgenda && !CabeNaAgenda(target)) {
    message = NaoCabe(target);
    return;
  }
  const QString label = LabelOf(labelGiven);
  const QString title = TabTitle(m_estado.ActiveAgenda);
  if (m_lista.HasName(kind, label)) {
    message = QStringLiteral("Item já consta em '") + title + u'\'';
    return;
  }
  if (!m_lista.Add(kind, label, EmUmaLinha(target))) {
    message = QStringLiteral("This kind of item is not known.");
    return;
  }
  message = QStringLiteral("Adicionado com sucesso em '") + title + u'\'';
  salvaListTarefas(m_estado.ActiveAgenda);
  m_painel.PicDicaAgenda = false;
  m_painel.PicAviso2 = NadaNaTira();
  if (m_view) {
    m_view->AgendaChanged();
    m_view->Atualiza();
  }
}

void AgendaDesk::ClearList() {
  m_lista.Clear();
  if (m_view)
    m_view->AgendaChanged();
}

void AgendaDesk::RemoveSelected() {
  if (!m_lista.HasSelection()) {
    m_prompt.Message(MessageKind::Information, TituloDaCaixa,
                     QStringLiteral("First, select the item you want to remove from the list."));
    return;
  }
  const int kind = m_lista.SelectedKind();
  const int index = m_lista.SelectedIndex();
  m_lista.RemoveAt(kind, index);
  // The next entry of the group takes the selection, so that several can be removed by one key.
  m_lista.Select(kind, std::min(index, m_lista.Count(kind)));
  salvaListTarefas(m_estado.ActiveAgenda);
  if (m_view)
    m_view->AgendaChanged();
}

void AgendaDesk::MoveEntry(int kind, int from, int to) {
  m_lista.Move(kind, from, to);
  salvaListTarefas(m_estado.ActiveAgenda);
  if (m_view)
    m_view->AgendaChanged();
}

void AgendaDesk::SelectEntry(int kind, int index) {
  m_lista.Select(kind, index);
  if (m_view)
    m_view->AgendaChanged();
}

QString AgendaDesk::ClearCaption() const {
  if (!CanClear())
    return QStringLiteral("Clear List");
  return QStringLiteral("Clear '") + TabTitle(m_estado.ActiveAgenda) + u'\'';
}

bool AgendaDesk::CanEdit() const {
  const int kind = m_lista.SelectedKind();
  const bool tem = kind == 2 || kind == 3      ? editorDeMusicas.edita != nullptr
                   : kind == TipoVideoDaAgenda ? outroVideo != nullptr
                                               : editores.contains(kind);
  return m_lista.HasSelection() && tem;
}

void AgendaDesk::EditaMusica(const QString &target) {
  const auto say = [&](const QString &text) { m_prompt.Message(MessageKind::Information, TituloDaCaixa, text); };
  const QString path = ResolveSongPath(m_app, target + u".txt");
  if (editorDeMusicas.abertoEmOutra && editorDeMusicas.abertoEmOutra(path))
    say(QStringLiteral("First, finish editing the lyrics you are currently editing."));
  else if (path.isEmpty() || !editorDeMusicas.edita || !editorDeMusicas.edita(path))
    say(QStringLiteral("Item not found or cannot be edited."));
}

void AgendaDesk::EditSelected() {
  const auto say = [&](const QString &text) { m_prompt.Message(MessageKind::Information, TituloDaCaixa, text); };
  if (!m_lista.HasSelection()) {
    say(QStringLiteral("First, select the name of the tre you want to edit from the list."));
    return;
  }
  const QString target = m_lista.SelectedCaption();
  const int kind = m_lista.SelectedKind();
  switch (kind) {
  case 2:
  case 3:
    EditaMusica(target);
    return;
  case TipoVideoDaAgenda:
    if (!FileExists(target))
      say(QStringLiteral("File not found"));
    else if (!outroVideo)
      break;
    else
      EditaVideo(m_lista.SelectedName(), target);
    return;
  case 5:
  case 6: {
    const QString path = m_app.path() + (kind == 5 ? QStringLiteral("\\Slides\\") : QStringLiteral("\\SlideShow\\")) +
                         m_lista.SelectedName() + (kind == 5 ? u".sld" : u".sw");
    const auto editor = editores.find(kind);
    if (!FileExists(path) || (editor != editores.end() && !editor->second(path)))
      say(QStringLiteral("Slide not found"));
    else if (editor == editores.end())
      break;
    return;
  }
  default:
    break;
  }
  say(QStringLiteral("There is no editor for this item yet."));
}

// The selection may be elsewhere, and the entry in another place, when the file has been chosen.
void AgendaDesk::EditaVideo(const QString &label, const QString &target) {
  const QString novo = outroVideo(target);
  if (novo.isEmpty())
    return;
  if (!CabeNaAgenda(novo)) {
    m_prompt.Message(MessageKind::Information, TituloDaCaixa, NaoCabe(novo));
    return;
  }
  int index = 1;
  while (index <= m_lista.Count(TipoVideoDaAgenda) &&
         (m_lista.NameAt(TipoVideoDaAgenda, index) != label || m_lista.CaptionAt(TipoVideoDaAgenda, index) != target))
    ++index;
  if (index > m_lista.Count(TipoVideoDaAgenda))
    return;
  const QString nome = LabelOf(NomeDoVideo(novo));
  if (nome != label && !m_lista.HasName(TipoVideoDaAgenda, nome)) {
    m_lista.SetNameAt(TipoVideoDaAgenda, index, nome);
    if (m_estado.EhVideo() && m_painel.Label9 == label) // by which the agenda knows the entry on show
      m_painel.Label9 = nome;
  }
  m_lista.SetCaptionAt(TipoVideoDaAgenda, index, novo);
  salvaListTarefas(m_estado.ActiveAgenda);
  if (m_view) {
    m_view->AgendaChanged();
    m_view->Atualiza();
  }
}

// The names by which agendas know an item that has gone from its file name. Old entries may know a song by its label
// alone; where there is a file of that spelling, they are that song's. Slides are known by their file's name too, whose
// label may be spelt otherwise.
QStringList AgendaDesk::NomesNaAgenda(int kind, const QString &name) const {
  if (kind == 5)
    return {name, name + u".sld", m_app.At(u"\\Slides\\") + name + u".sld"};
  const QString label = LabelOf(name);
  const bool song = kind == 2 || kind == 3;
  if (!song || label == name || !ResolveSongPath(m_app, label + u".txt").isEmpty())
    return {name};
  return {name, label};
}

void AgendaDesk::RemoveFromAgendas(int kind, const QString &name) {
  for (const QString &known : NomesNaAgenda(kind, name)) {
    m_lista.RemoveName(kind, known);
    for (auto &[n, lista] : m_unsaved)
      lista.RemoveName(kind, known);
    m_files.RemoveFromAgendas(kind, known);
  }
  if (m_view)
    m_view->AgendaChanged();
}

void AgendaDesk::RenameInAgendas(const QString &oldName, const QString &newName, int kind) {
  const QString label = LabelAfterRename(newName, kind);
  for (const QString &known : NomesNaAgenda(kind, oldName)) {
    for (auto &[n, lista] : m_unsaved)
      lista.RenameName(kind, known, label, newName);
    m_files.RenameInAgendas(known, newName, kind);
  }
}

void AgendaDesk::RenameOnScreen(int kind, const QString &oldName, const QString &newName, const QString &newTarget) {
  for (const QString &known : NomesNaAgenda(kind, oldName))
    m_lista.RenameName(kind, known, newName, newTarget);
  if (m_view)
    m_view->AgendaChanged();
}

} // namespace tolmira
