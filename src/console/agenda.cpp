#include "console/agenda.h"

#include <QFile>
#include <QSet>
#include <QStringList>

#include <algorithm>

#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QString Separador = QStringLiteral("|#|");

// A line of an agenda file. `lossless` is false when the list cannot hold all that the line says.
struct Linha {
  int kind = 0;
  Tarefa entry;
  bool blank = false;
  bool lossless = false;
};

Linha LeLinha(const QString &linha) {
  Linha lida;
  lida.blank = linha.trimmed().isEmpty();
  const QStringList campos = linha.split(Separador);
  bool number = false;
  lida.kind = campos.value(0).trimmed().toInt(&number);
  lida.entry = {campos.value(1), campos.value(2), 0};
  lida.lossless = number && lida.kind >= 1 && lida.kind <= GruposDaAgenda && campos.size() <= 3 && campos.size() >= 2;
  return lida;
}

QStringList Linhas(QString texto) {
  texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  return texto.split(u'\n');
}

// Takes what the limit of a reader would cut. An older copy is let go of only when the new one stands.
bool CopiaParaBak(const QString &caminho) {
  const QString real = MapStoredPath(caminho).text();
  const QString copia = MapStoredPath(BaseNameBefore(caminho, QStringLiteral(".")) + u".bak").text();
  const QString nova = copia + u".new";
  QFile::remove(nova);
  if (!QFile::copy(real, nova))
    return false;
  QFile::remove(copia);
  return QFile::rename(nova, copia);
}

} // namespace

void ListTarefas::Clear() {
  for (auto &group : m_groups)
    group.clear();
  Select(0, 0);
}

bool ListTarefas::Add(int kind, const QString &label, const QString &target) {
  if (kind < 1 || kind > GruposDaAgenda)
    return false;
  m_groups[static_cast<size_t>(kind)].push_back({label, target.isEmpty() ? label : target, 0});
  return true;
}

void ListTarefas::RemoveAt(int kind, int index) {
  if (!Valid(kind, index))
    return;
  auto &group = m_groups[static_cast<size_t>(kind)];
  group.erase(group.begin() + index - 1);
  if (kind != m_kind)
    return;
  if (index < m_index)
    --m_index;
  else if (index == m_index)
    Select(0, 0);
}

void ListTarefas::Move(int kind, int from, int to) {
  if (!Valid(kind, from) || !Valid(kind, to) || from == to)
    return;
  auto &group = m_groups[static_cast<size_t>(kind)];
  const auto first = group.begin() + (from - 1);
  const auto last = group.begin() + (to - 1);
  if (from < to)
    std::rotate(first, first + 1, last + 1);
  else
    std::rotate(last, first, first + 1);
  if (kind != m_kind)
    return;
  if (m_index == from)
    m_index = to;
  else if (from < m_index && m_index <= to)
    --m_index;
  else if (to <= m_index && m_index < from)
    ++m_index;
}

int ListTarefas::Count(int kind) const {
  return kind < 1 || kind > GruposDaAgenda ? 0 : static_cast<int>(m_groups[static_cast<size_t>(kind)].size());
}

int ListTarefas::ListCount() const {
  int all = 0;
  for (const auto &group : m_groups)
    all += static_cast<int>(group.size());
  return all;
}

bool ListTarefas::Valid(int kind, int index) const { return index >= 1 && index <= Count(kind); }

QString ListTarefas::NameAt(int kind, int index) const {
  return Valid(kind, index) ? m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].label : QString();
}

QString ListTarefas::CaptionAt(int kind, int index) const {
  return Valid(kind, index) ? m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].target : QString();
}

void ListTarefas::SetNameAt(int kind, int index, const QString &value) {
  if (Valid(kind, index))
    m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].label = value;
}

void ListTarefas::SetCaptionAt(int kind, int index, const QString &value) {
  if (Valid(kind, index))
    m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].target = value;
}

bool ListTarefas::HasName(int kind, const QString &name) const {
  for (int index = 1; index <= Count(kind); ++index)
    if (NameAt(kind, index) == name)
      return true;
  return false;
}

void ListTarefas::RemoveName(int kind, const QString &name) {
  for (int index = Count(kind); index >= 1; --index)
    if (m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].Names(name))
      RemoveAt(kind, index);
}

void ListTarefas::RenameName(int kind, const QString &name, const QString &newName, const QString &newTarget) {
  for (int index = 1; index <= Count(kind); ++index)
    if (m_groups[static_cast<size_t>(kind)][static_cast<size_t>(index - 1)].Names(name)) {
      SetNameAt(kind, index, newName);
      SetCaptionAt(kind, index, newTarget);
    }
}

void ListTarefas::Select(int kind, int index) {
  const bool valid = Valid(kind, index);
  m_kind = valid ? kind : 0;
  m_index = valid ? index : 0;
}

bool ListTarefas::SelectByName(const QString &name) {
  for (int kind = 1; kind <= GruposDaAgenda; ++kind)
    for (int index = 1; index <= Count(kind); ++index)
      if (NameAt(kind, index) == name) {
        Select(kind, index);
        return true;
      }
  return false;
}

QString ListTarefas::SelectedName() const { return NameAt(m_kind, m_index); }
QString ListTarefas::SelectedCaption() const { return CaptionAt(m_kind, m_index); }

QString LabelAfterRename(const QString &newName, int kind) {
  return kind == 5 ? BaseNameBefore(newName, QStringLiteral(".")) : newName;
}

AgendaFiles::AgendaFiles(const AppFolder &app) : m_app(app) {}

QString AgendaFiles::Caminho(int n) const { return m_app.At(u"\\Data\\agenda") + QString::number(n) + u".dat"; }

bool AgendaFiles::Carrega(int n, ListTarefas &lista) const {
  lista.Clear();
  if (!FileExists(Caminho(n))) {
    QFile file(MapStoredPath(Caminho(n)).text());
    if (!file.open(QIODevice::Append))
      return false;
  }
  const FileContent content = ReadFileContent(Caminho(n));
  if (!content.complete)
    return false;
  for (const QString &linha : Linhas(DecodeText(content.bytes).text)) {
    const Linha lida = LeLinha(linha);
    if (!lida.blank)
      lista.Add(lida.kind, lida.entry.label, lida.entry.target);
  }
  return true;
}

bool AgendaFiles::Salva(int n, const ListTarefas &lista) const {
  QString texto;
  for (int kind = 1; kind <= GruposDaAgenda; ++kind)
    for (int index = 1; index <= lista.Count(kind); ++index)
      texto += QString::number(kind) + Separador + lista.NameAt(kind, index) + Separador +
               lista.CaptionAt(kind, index) + u"\r\n";

  const FileContent old = ReadFileContent(Caminho(n));
  const DecodedText decoded = DecodeText(old.bytes);
  const QByteArray bytes = EncodeText(texto, decoded.encoding);
  if (old.exists && old.complete && old.bytes == bytes)
    return true;

  // A name with a separator in it makes a line of more fields, which the list writes again as it is.
  const QStringList linhas = Linhas(decoded.text);
  const QStringList novas = Linhas(texto);
  const QSet<QString> escritas(novas.begin(), novas.end());
  const bool drops =
      (old.exists && !old.complete) || std::any_of(linhas.begin(), linhas.end(), [&escritas](const QString &l) {
        const Linha lida = LeLinha(l);
        return !lida.blank && !lida.lossless && !escritas.contains(l);
      });
  if (drops && !CopiaParaBak(Caminho(n)))
    return false; // without the copy there is no save
  return WriteFileAtomically(Caminho(n), bytes);
}

template <typename Edit> void AgendaFiles::Rewrite(int n, Edit edit) const {
  if (!FileExists(Caminho(n))) {
    QFile(MapStoredPath(Caminho(n)).text()).open(QIODevice::Append);
    return;
  }
  const FileContent old = ReadFileContent(Caminho(n));
  if (!old.complete)
    return;
  const DecodedText decoded = DecodeText(old.bytes);
  QString texto;
  bool matched = false;
  for (const QString &linha : Linhas(decoded.text)) {
    if (linha.trimmed().isEmpty())
      continue;
    const QString nova = edit(linha, matched);
    if (!nova.isEmpty())
      texto += nova + u"\r\n";
  }
  if (matched)
    WriteFileAtomically(Caminho(n), EncodeText(texto, decoded.encoding));
}

void AgendaFiles::RemoveFromAgendas(int kind, const QString &name) const {
  for (int n = 1; n <= NumeroDeAgendas; ++n)
    Rewrite(n, [&](const QString &linha, bool &matched) {
      const Linha lida = LeLinha(linha);
      if (lida.kind != kind || !lida.entry.Names(name))
        return linha;
      matched = true;
      return QString();
    });
}

void AgendaFiles::RenameInAgendas(const QString &oldName, const QString &newName, int kind) const {
  const QString nova = QString::number(kind) + Separador + LabelAfterRename(newName, kind) + Separador + newName;
  for (int n = 1; n <= NumeroDeAgendas; ++n)
    Rewrite(n, [&](const QString &linha, bool &matched) {
      const Linha lida = LeLinha(linha);
      if (lida.kind != kind || !lida.entry.Names(oldName))
        return linha;
      matched = true;
      return nova;
    });
}

} // namespace tolmira
