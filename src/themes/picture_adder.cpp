#include "themes/picture_adder.h"

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
    m_recusadas.append(QFileInfo(path).fileName());
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
    const bool chegou = CopiaParaImagens(m_app, path, nome.nome);
    if (chegou)
      CriaMiniatura(m_app, nome.nome, true);
    QMetaObject::invokeMethod(
        this, [this, nome, chegou] { Copiou(nome, chegou); }, Qt::QueuedConnection);
  });
}

void PictureAdder::Copiou(const NomeDeImagem &nome, bool chegou) {
  if (!chegou) {
    // What kept this one away, a full disk for example, keeps the others away too.
    m_fila.clear();
    const QPointer<PictureAdder> alive(this);
    Diz(MessageKind::Warning, QStringLiteral("Could not copy the image to the images folder."));
    if (alive)
      Acaba();
    return;
  }
  m_chegaram.append(nome.nome);
  if (nome.converte)
    m_convertidas.append(nome.nome);
  Proximo();
}

void PictureAdder::Acaba() {
  m_trabalhando = false;
  m_feitos = m_total = 0;
  const QStringList chegaram = std::exchange(m_chegaram, {});
  const QStringList convertidas = std::exchange(m_convertidas, {});
  const QStringList recusadas = std::exchange(m_recusadas, {});
  const QPointer<PictureAdder> alive(this);
  if (!recusadas.isEmpty())
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
