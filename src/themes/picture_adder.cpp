#include "themes/picture_adder.h"

#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "themes/small_copy.h"

#include <QFileInfo>
#include <QPointer>
#include <utility>

namespace tolmira {

namespace {

const QString Titulo = QStringLiteral("Tolmira");

// Many names in one box: the first ones tell enough.
QString Nomes(const QStringList &nomes) {
  constexpr qsizetype Most = 8;
  const QString few = nomes.mid(0, Most).join(u'\n');
  return nomes.size() > Most ? few + u'\n' + QStringLiteral("…") : few;
}

} // namespace

PictureAdder::PictureAdder(const AppFolder &app, UserPrompt &prompt, QObject *parent)
    : QObject(parent), m_app(app), m_prompt(prompt) {
  m_pool.setMaxThreadCount(1);
}

PictureAdder::~PictureAdder() {
  m_pool.waitForDone();
}

void PictureAdder::Adiciona(const QStringList &paths) {
  m_fila += paths;
  m_total += static_cast<int>(paths.size());
  if (m_trabalhando || m_fila.isEmpty())
    return;
  m_trabalhando = true;
  Proximo();
}

void PictureAdder::Para() {
  m_fila.clear();
}

void PictureAdder::Proximo() {
  emit Andou(m_feitos, m_total);
  const QPointer<PictureAdder> alive(this); // a box may outlast the window
  while (alive && !m_fila.isEmpty()) {
    const QString path = m_fila.takeFirst();
    ++m_feitos;
    if (EstaEmImagens(m_app, path)) {
      Diz(MessageKind::Information, QStringLiteral("Choose file from another folder\n"
                                                   "You selected a file already included in the program."));
      continue;
    }
    m_pool.start([this, path] {
      const NomeDeImagem nome = NomeEmImagens(path);
      QMetaObject::invokeMethod(
          this, [this, path, nome] { Examinou(path, nome); }, Qt::QueuedConnection);
    });
    return;
  }
  if (alive)
    Acaba();
}

void PictureAdder::Examinou(const QString &path, const NomeDeImagem &nome) {
  if (nome.nome.isEmpty()) {
    (nome.sumiu ? m_perdidas : m_recusadas).append(QFileInfo(path).fileName());
    Proximo();
    return;
  }
  if (FileExists(m_app.At(u"\\Images\\") + nome.nome)) {
    const QPointer<PictureAdder> alive(this);
    const int answer =
        m_prompt.Ask(Titulo,
                     QStringLiteral("A file with this name already exists in the Tolmira images folder.\n"
                                    "Do you want to overwrite?"),
                     {QStringLiteral("Yes"), QStringLiteral("No")});
    if (!alive)
      return;
    if (answer != 0) {
      Proximo();
      return;
    }
  }
  m_pool.start([this, path, nome] {
    const Copia copia = CopiaParaImagens(m_app, path, nome.nome);
    if (copia == Copia::Feita)
      CriaMiniatura(m_app, nome.nome, true);
    QMetaObject::invokeMethod(
        this, [this, path, nome, copia] { Copiou(path, nome, copia); }, Qt::QueuedConnection);
  });
}

void PictureAdder::Copiou(const QString &path, const NomeDeImagem &nome, Copia copia) {
  if (copia == Copia::Feita) {
    // As the folder spells it: a picture that was written over keeps its capitals.
    const QString chegou = QFileInfo(MapStoredPath(m_app.At(u"\\Images\\") + nome.nome).text()).fileName();
    m_chegaram.append(chegou);
    if (nome.converte)
      m_convertidas.append(chegou);
  } else {
    (copia == Copia::SemImagem ? m_recusadas : m_perdidas).append(QFileInfo(path).fileName());
  }
  Proximo();
}

void PictureAdder::Acaba() {
  m_trabalhando = false;
  const bool umaSo = std::exchange(m_total, 0) == 1;
  m_feitos = 0;
  const QStringList chegaram = std::exchange(m_chegaram, {});
  const QStringList convertidas = std::exchange(m_convertidas, {});
  const QStringList recusadas = std::exchange(m_recusadas, {});
  const QStringList perdidas = std::exchange(m_perdidas, {});
  const QPointer<PictureAdder> alive(this);
  if (!perdidas.isEmpty())
    Diz(MessageKind::Warning, QStringLiteral("Could not copy the image to the images folder.") +
                                  (umaSo ? QString() : QString(u'\n' + Nomes(perdidas))));
  if (alive && !recusadas.isEmpty())
    Diz(MessageKind::Warning, (recusadas.size() == 1 ? tr("This file cannot be used as a picture.")
                                                     : tr("These files cannot be used as pictures.")) +
                                  u'\n' + Nomes(recusadas));
  if (alive && !convertidas.isEmpty())
    Diz(MessageKind::Information,
        tr("Pictures of this kind are kept as JPEG in the program.") + u'\n' + Nomes(convertidas));
  if (alive)
    emit Terminou(chegaram);
}

void PictureAdder::Diz(MessageKind kind, const QString &text) {
  m_prompt.Message(kind, Titulo, text);
}

} // namespace tolmira
