#include "slides/slide_editor.h"

#include "foundation/file_name.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <QFile>
#include <algorithm>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
const QString Extension = QStringLiteral(".sld");
constexpr QStringView Template = u"\\Slides\\template.tp";
enum Answer { Yes = 0 };

qsizetype CommonStart(QStringView one, QStringView other) {
  return std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin();
}

// What stands between the common beginning and the common end of two texts.
struct Difference {
  qsizetype start = 0;
  qsizetype removed = 0;
  QString inserted;
};

Difference DifferenceOf(const QString &before, const QString &after) {
  const qsizetype start = CommonStart(before, after);
  const QStringView restBefore = QStringView(before).sliced(start);
  const QStringView restAfter = QStringView(after).sliced(start);
  const auto ends = std::mismatch(restBefore.rbegin(), restBefore.rend(), restAfter.rbegin(), restAfter.rend());
  const qsizetype end = ends.first - restBefore.rbegin();
  return {start, restBefore.size() - end, restAfter.chopped(end).toString()};
}

// Letters that follow each other are one step, a word long; so is what is taken away.
bool BeginsStep(const Difference &difference) {
  const bool one = difference.inserted.size() + difference.removed == 1;
  return !one || (!difference.inserted.isEmpty() && difference.inserted[0].isSpace());
}

QString WithoutNul(QString text) {
  return text.remove(QChar(u'\0'));
}

} // namespace

QString TextThatFits(const QString &before, const QString &after) {
  if (after.size() <= MaiorTextoDeSlide)
    return after;
  Difference difference = DifferenceOf(before, after);
  const qsizetype room = MaiorTextoDeSlide - (before.size() - difference.removed);
  difference.inserted.truncate(std::max<qsizetype>(room, 0));
  if (!difference.inserted.isEmpty() &&
      (difference.inserted.back().isHighSurrogate() || difference.inserted.endsWith(u'\r')))
    difference.inserted.chop(1);
  return QString(before).replace(difference.start, difference.removed, difference.inserted).left(MaiorTextoDeSlide);
}

bool SlideEditor::LoadSlide(const QString &path) {
  if (!path.isEmpty()) {
    // What cannot be read whole could not be written back as it was.
    const FileContent content = ReadFileContent(path);
    if (!content.complete || content.bytes.contains('\0'))
      return false;
    Begin(path, LoadSlideNew(path));
    return true;
  }
  SlideDocument documento;
  if (const QString modelo = m_app.At(Template); FileExists(modelo))
    documento = LoadSlideNew(modelo);
  documento.slides.clear();
  Begin({}, documento);
  return true;
}

void SlideEditor::LoadDraft(const SlideDraft &draft) {
  const bool changed = DocumentHasChanged(draft);
  if (changed || !LoadSlide(draft.path)) {
    Begin(changed ? QString() : draft.path, SlideDocument()); // a file that has gone: the next save makes it anew
    m_savedName.clear();
  }
  nome = draft.nome;
  m_now = {draft.documento, draft.documento.Count() > 0 ? 1 : 0};
}

void SlideEditor::Begin(const QString &path, const SlideDocument &documento) {
  const QString name = FileNameOf(path);
  m_path = path.chopped(name.size()) + FileNameOf(MapStoredPath(path).text());
  m_file = path.isEmpty() ? FileState() : FileStateOf(path);
  m_now = {documento, documento.Count() > 0 ? 1 : 0};
  m_saved = documento;
  m_savedName = path.isEmpty() ? QString() : BaseNameBefore(FileNameOf(m_path), QStringLiteral("."));
  nome = m_savedName;
  m_history.Clear();
}

bool SlideEditor::Alterado() const {
  return m_now.documento != m_saved || (nome != m_savedName && TidyFileName(nome) != m_savedName);
}

QString SlideEditor::Titulo() const {
  return QStringLiteral("SLIDE: ") + nome;
}

void SlideEditor::Change(const QString &key, const std::function<void(Moment &)> &change) {
  const Moment before = m_now;
  change(m_now);
  if (m_now.documento != before.documento)
    m_history.Record(key, before, m_now);
}

void SlideEditor::ChangeSlide(const char *key, const std::function<void(Slide &)> &change) {
  if (m_now.indice == 0)
    return;
  Change(QLatin1String(key) + QString::number(m_now.indice),
         [&change](Moment &now) { change(now.documento.Em(now.indice)); });
}

void SlideEditor::ChangeText(const char *key, QString Slide::*field, const QString &text) {
  if (m_now.indice == 0)
    return;
  const QString before = m_now.documento.Em(m_now.indice).*field;
  const QString after = TextThatFits(before, text);
  const Difference difference = DifferenceOf(before, after);
  if (BeginsStep(difference))
    m_history.EndStep();
  const QByteArray direction = QByteArray(key) + (difference.inserted.isEmpty() ? "-" : "+");
  ChangeSlide(direction.constData(), [&](Slide &slide) { slide.*field = after; });
}

void SlideEditor::AddImage(const QString &path) {
  Change({}, [&path](Moment &now) {
    Slide slide;
    slide.Imagem = path;
    now.documento.slides.append(slide);
    now.indice = now.documento.Count();
  });
}

void SlideEditor::AddImages(const QStringList &paths) {
  if (paths.isEmpty())
    return;
  Change({}, [&paths](Moment &now) {
    now.indice = now.documento.Count() + 1;
    for (const QString &path : paths) {
      Slide slide;
      slide.Imagem = path;
      now.documento.slides.append(slide);
    }
  });
}

void SlideEditor::TrocaImagem(const QString &path) {
  m_history.EndStep();
  ChangeSlide("Imagem", [&path](Slide &slide) { slide.Imagem = path; });
}

void SlideEditor::RemoveSlide(int index) {
  if (!m_now.documento.Tem(index))
    return;
  Change({}, [index](Moment &now) {
    now.documento.slides.removeAt(index - 1);
    if (now.indice > index || now.indice > now.documento.Count())
      --now.indice;
  });
}

void SlideEditor::DuplicaSlide(int index) {
  if (!m_now.documento.Tem(index))
    return;
  Change({}, [index](Moment &now) {
    const Slide copia = now.documento.Em(index);
    now.documento.slides.insert(index, copia);
    now.indice = index + 1;
  });
}

void SlideEditor::MoveSlide(int from, int to) {
  if (!m_now.documento.Tem(from) || !m_now.documento.Tem(to) || from == to)
    return;
  Change({}, [from, to](Moment &now) {
    now.documento.slides.move(from - 1, to - 1);
    now.indice = to;
  });
}

void SlideEditor::SelecionaSlide(int index) {
  if (!m_now.documento.Tem(index) || index == m_now.indice)
    return;
  m_now.indice = index;
  m_history.EndStep();
}

void SlideEditor::DefineTitulo(const QString &titulo) {
  QString line = WithoutNul(titulo);
  line.replace(u'\r', u' ').replace(u'\n', u' ');
  ChangeText("Titulo", &Slide::Titulo, line);
}

void SlideEditor::DefineTexto(const QString &texto) {
  ChangeText("Texto", &Slide::Texto, NormalizeLineEnds(WithoutNul(texto)));
}

void SlideEditor::DefineAlinhamento(qint16 alinhamento) {
  m_history.EndStep();
  ChangeSlide("Alinhamento", [alinhamento](Slide &slide) { slide.Alinhamento = alinhamento; });
}

void SlideEditor::DefineEspacamento(qint16 decimos) {
  ChangeSlide("Espacamento", [decimos](Slide &slide) { slide.Espacamento = decimos; });
}

void SlideEditor::DefineFontSize(qint16 porCento) {
  ChangeSlide("FontSize", [porCento](Slide &slide) { slide.FontSize = porCento; });
}

void SlideEditor::DefineIncluirTexto(bool incluir) {
  m_history.EndStep();
  ChangeSlide("incluirTexto", [incluir](Slide &slide) { slide.incluirTexto = incluir ? 1 : 0; });
}

void SlideEditor::DefineIntervalo(int posicao) {
  Change({}, [posicao](Moment &now) { now.documento.Intervalo = posicao; });
}

// A slider's moves come one after the other and are one step; everything else is a step of its own.
void SlideEditor::DefineVisual(const TemaRecord &visual) {
  constexpr QString TemaRecord::*sliders[] = {&TemaRecord::FontSombra_Right, &TemaRecord::FontSombra_Down,
                                              &TemaRecord::FontSombra_Blur, &TemaRecord::FontSombra_Opacity,
                                              &TemaRecord::FontBorda_Espessura};
  QString key;
  for (int i = 0; i < 5; ++i)
    if (visual.*sliders[i] != m_now.documento.visual.*sliders[i])
      key = QStringLiteral("Visual%1").arg(i);
  Change(key, [&visual](Moment &now) { now.documento.visual = visual; });
}

void SlideEditor::Desfaz() {
  if (m_history.CanUndo())
    m_now = m_history.Undo();
}

void SlideEditor::Refaz() {
  if (m_history.CanRedo())
    m_now = m_history.Redo();
}

// A name that differs by case alone leads to the own file, unless both stand there side by side.
bool SlideEditor::IsOwn(const QString &target) const {
  return IsSameFile(target, m_path);
}

// The rules are for names that are chosen here. A document from elsewhere keeps the one that it has.
bool SlideEditor::NameIsGood() {
  const QString tidy = TidyFileName(nome);
  if (nome != m_savedName || !IsOwn(Target()))
    nome = tidy;
  const QStringList forbidden = ForbiddenInFileName(nome);
  QString problem;
  if (tidy.isEmpty())
    problem = QStringLiteral("Enter a name for the file.");
  else if (IsOwn(Target()))
    return true;
  else if (!forbidden.isEmpty())
    problem = QStringLiteral("The name becomes the name of a file, which cannot hold  ") +
              forbidden.join(QStringLiteral("  "));
  else if (IsTooLongForFileName(nome + Extension))
    problem = QStringLiteral("The name is too long for the name of a file.");
  if (!problem.isEmpty())
    Say(MessageKind::Information, problem);
  return problem.isEmpty();
}

bool SlideEditor::SalvarSlide() {
  if (m_now.documento.Count() == 0) {
    Say(MessageKind::Information, QStringLiteral("Click 'Add image' to add the first slide.\n"
                                                 "You need to add at least 1 slide to save the file."));
    return false;
  }
  if (!NameIsGood())
    return false;
  const QString target = Target();
  if (!MayWriteOver(target))
    return false;
  if (!GravaSlide(target, m_now.documento)) {
    Say(MessageKind::Critical,
        QStringLiteral("Could not save the file.\n\n%1\n\nThe slides stay in the window.").arg(nome + Extension));
    return false;
  }
  const QString oldName = m_path.isEmpty() ? QString() : FileNameOf(m_path);
  FinishRename(target);
  m_path = target;
  m_file = FileStateOf(target);
  m_saved = m_now.documento;
  m_savedName = nome;
  m_history.EndStep();
  if (Salvou)
    Salvou(oldName, FileNameOf(target));
  return true;
}

bool SlideEditor::MayWriteOver(const QString &target) {
  if (FileExists(target) && !IsOwn(target)) {
    Say(MessageKind::Information, QStringLiteral("A Slide with this name already exists in your collection.\n\n") +
                                      nome + QStringLiteral("\n\nEnter another name for the file."));
    return false;
  }
  // Under another name too: the file of the old one would go, with what somebody else wrote into it.
  return !DocumentHasChanged(Draft()) ||
         m_prompt.Ask(BoxTitle,
                      QStringLiteral("The file of these slides was changed since.\nDo you want to overwrite?"),
                      {QStringLiteral("Yes"), QStringLiteral("No")}) == Yes;
}

// The document stands safely under its new name; the file of the old one goes, or it would be there twice.
void SlideEditor::FinishRename(const QString &target) {
  if (m_path.isEmpty())
    return;
  const QString old = MapStoredPath(m_path).text();
  const QString now = MapStoredPath(target).text();
  if (old == now) {
    // Only the case changed, so the file still bears the old name.
    const QString wanted = now.chopped(FileNameOf(now).size()) + FileNameOf(target);
    if (now != wanted)
      QFile::rename(now, wanted);
    return;
  }
  // One that is spelt otherwise has come into its place and is another document.
  const bool there = FileExists(m_path) && FileNameOf(old) == FileNameOf(m_path);
  if (there && !IsSameFile(m_path, target) && !QFile::remove(old))
    Say(MessageKind::Warning, QStringLiteral("The slides were saved as: ") + FileNameOf(target) +
                                  QStringLiteral("\n\nThe file with the old name could not be removed: ") +
                                  FileNameOf(m_path));
}

bool SlideEditor::SalvarModelo() {
  const QString modelo = m_app.At(Template);
  SlideDocument documento = m_now.documento;
  if (!GravaSlide(modelo, documento)) {
    Say(MessageKind::Critical, QStringLiteral("Could not save the template."));
    return false;
  }
  LoadSlide({});
  return true;
}

void SlideEditor::Say(MessageKind kind, const QString &text) {
  m_prompt.Message(kind, BoxTitle, text);
}

} // namespace tolmira
