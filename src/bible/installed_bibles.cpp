#include "bible/installed_bibles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <unistd.h>
#include <utility>

namespace tolmira {

namespace {

constexpr qsizetype MaiorNumero = 500; // of modules that are listed
constexpr qsizetype MaiorTexto = 200;  // of a description
constexpr qsizetype MaiorNomeCurto = 20;

// One run of the importer, at low priority: the projection moves meanwhile.
class Execucao : public WebTask {
public:
  using Pronto = std::function<void(bool bem, const QByteArray &saida)>;
  Execucao(const QString &programa, const QStringList &argumentos, Pronto pronto)
      : m_process(new QProcess), m_pronto(std::move(pronto)) {
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->setChildProcessModifier([] { [[maybe_unused]] const int now = ::nice(10); });
    QObject::connect(m_process, &QProcess::finished, &m_aqui, [this](int codigo, QProcess::ExitStatus status) {
      Acabou(status == QProcess::NormalExit && codigo == 0);
    });
    // From the message loop as every report, though the start fails at once.
    QObject::connect(
        m_process, &QProcess::errorOccurred, &m_aqui,
        [this](QProcess::ProcessError erro) {
          if (erro == QProcess::FailedToStart)
            Acabou(false);
        },
        Qt::QueuedConnection);
    m_process->start(programa, argumentos);
  }
  ~Execucao() override {
    m_process->disconnect();
    if (m_process->state() == QProcess::NotRunning) {
      m_process->deleteLater(); // it may be in the middle of its own signal
      return;
    }
    // Deleted while it dies, it would be waited for, on a slow disk for long.
    QObject::connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
    m_process->kill();
  }

private:
  void Acabou(bool bem) {
    const QByteArray saida = m_process->isOpen() ? m_process->readAllStandardOutput() : QByteArray();
    const Pronto pronto = std::move(m_pronto); // it may drop this
    pronto(bem, saida);
  }

  QProcess *m_process;
  Pronto m_pronto;
  QObject m_aqui;
};

} // namespace

QList<BibliaInstalada> LeBibliasInstaladas(const QByteArray &saida) {
  QList<BibliaInstalada> lidas;
  const QString texto = QString::fromLocal8Bit(saida);
  for (const QStringView linha : QStringView(texto).tokenize(u'\n')) {
    const QList<QStringView> campos = linha.trimmed().split(u'\t');
    if (campos.size() < 3 || campos[0].isEmpty() || lidas.size() >= MaiorNumero)
      continue;
    lidas.append({campos[0].toString(), campos[1].toString(), campos[2].left(MaiorTexto).toString()});
  }
  return lidas;
}

QString NomeCurtoDoModulo(const QString &modulo) {
  QString nome;
  for (const QChar letra : modulo)
    if (letra.isLetterOrNumber() || letra == u'-')
      nome += letra;
  while (nome.contains(u"old", Qt::CaseInsensitive))
    nome.remove(QLatin1String("old"), Qt::CaseInsensitive);
  return nome.left(MaiorNomeCurto);
}

QString ImportadorDeBiblias::Programa() {
  const QString programa =
      QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("tolmira-bible-import"));
  return QFileInfo(programa).isExecutable() ? programa : QString();
}

std::unique_ptr<WebTask> ImportadorDeBiblias::Lista(Instaladas pronto) {
  return std::make_unique<Execucao>(m_programa, QStringList{QStringLiteral("--list")},
                                    [pronto = std::move(pronto)](bool bem, const QByteArray &saida) {
                                      pronto(bem ? LeBibliasInstaladas(saida) : QList<BibliaInstalada>());
                                    });
}

std::unique_ptr<WebTask> ImportadorDeBiblias::Importa(const QString &modulo, const QString &nomeCurto,
                                                      const QString &pasta, Importou pronto) {
  return std::make_unique<Execucao>(m_programa, QStringList{QStringLiteral("--"), modulo, nomeCurto, pasta},
                                    [pronto = std::move(pronto)](bool bem, const QByteArray &) { pronto(bem); });
}

} // namespace tolmira
