#include "slides/limited_process.h"

#include <QProcessEnvironment>
#include <csignal>
#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tolmira {

namespace {

constexpr int Gentileza = 10;          // the projection's pages go first
constexpr int EsperaDoFim = 2000;      // ms; a killed process is gone long before
constexpr unsigned PrimeiroDepois = 3; // behind the three standard files

void Limita(int qual, quint64 quanto) {
  if (quanto > 0) {
    const rlimit limit{quanto, quanto};
    setrlimit(static_cast<__rlimit_resource>(qual), &limit);
  }
}

// When memory runs out the kernel takes this one, and not the page that the audience sees.
void OfereceAoFimDaMemoria() {
  const int pontos = open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC);
  if (pontos < 0)
    return;
  [[maybe_unused]] const ssize_t escritos = write(pontos, "1000", 4);
  close(pontos);
}

// Runs between fork and exec, where only plain system calls are allowed.
void Confina(const Limites &limites) {
  setsid();
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  setpriority(PRIO_PROCESS, 0, Gentileza);
  OfereceAoFimDaMemoria();
  close_range(PrimeiroDepois, ~0U, CLOSE_RANGE_CLOEXEC);
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
#ifndef __SANITIZE_ADDRESS__ // whose shadow memory takes terabytes of addresses
  Limita(RLIMIT_AS, limites.memoria);
#endif
  Limita(RLIMIT_CPU, limites.cpu);
  Limita(RLIMIT_FSIZE, limites.arquivo);
  Limita(RLIMIT_NOFILE, limites.abertos);
}

QProcessEnvironment Ambiente(const QString &pasta) {
  QProcessEnvironment ambiente;
  for (const char *nome : {"PATH", "HOME", "XDG_DATA_HOME"}) // the operator's own fonts lie in the last two
    if (qEnvironmentVariableIsSet(nome))
      ambiente.insert(QString::fromLatin1(nome), qEnvironmentVariable(nome));
  ambiente.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
  ambiente.insert(QStringLiteral("TMPDIR"), pasta);
  return ambiente;
}

} // namespace

LimitedProcess::LimitedProcess(QObject *parent) : QObject(parent) {
  m_prazo.setSingleShot(true);
  connect(&m_prazo, &QTimer::timeout, this, [this] { Mata(Fim::Demorou); });
  connect(&m_process, &QProcess::readyReadStandardOutput, this, &LimitedProcess::Le);
  connect(&m_process, &QProcess::finished, this, [this](int codigo, QProcess::ExitStatus status) {
    MataGrupo(); // what it left running
    m_grupo = 0;
    Le();
    m_prazo.stop();
    if (m_fim == Fim::Saiu && status == QProcess::CrashExit)
      m_fim = Fim::Caiu;
    emit Acabou(m_fim, codigo);
  });
  connect(
      &m_process, &QProcess::errorOccurred, this,
      [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
          return;
        m_prazo.stop();
        m_grupo = 0;
        emit Acabou(Fim::NaoComecou, -1);
      },
      Qt::QueuedConnection);
}

LimitedProcess::~LimitedProcess() {
  m_process.disconnect(this);
  Mata(Fim::Parado);
  m_process.waitForFinished(EsperaDoFim);
}

void LimitedProcess::Comeca(const Comando &comando) {
  m_resto.clear();
  m_maiorLinha = comando.maiorLinha;
  m_fim = Fim::Saiu;
  m_process.setProgram(comando.programa);
  m_process.setArguments(comando.argumentos);
  m_process.setWorkingDirectory(comando.pasta);
  m_process.setProcessEnvironment(Ambiente(comando.pasta));
  m_process.setStandardErrorFile(QProcess::nullDevice());
  m_process.setStandardOutputFile(m_maiorLinha > 0 ? QString() : QProcess::nullDevice());
  m_process.setChildProcessModifier([limites = comando.limites] { Confina(limites); });
  m_prazo.start(comando.prazoMs);
  m_process.start();
  m_grupo = static_cast<pid_t>(m_process.processId());
  m_process.write(comando.entrada);
  m_process.closeWriteChannel();
}

void LimitedProcess::Para() {
  Mata(Fim::Parado);
}

void LimitedProcess::Mata(Fim porque) {
  if (m_fim == Fim::Saiu)
    m_fim = porque;
  MataGrupo();
  m_process.kill(); // in the moment before it has a group
}

void LimitedProcess::MataGrupo() {
  if (m_grupo > 0)
    kill(-m_grupo, SIGKILL);
}

void LimitedProcess::Le() {
  if (m_maiorLinha <= 0)
    return;
  m_resto += m_process.readAllStandardOutput();
  while (m_fim == Fim::Saiu) {
    const qsizetype end = m_resto.indexOf('\n');
    if (end >= m_maiorLinha || (end < 0 && m_resto.size() >= m_maiorLinha)) {
      Mata(Fim::Tagarelou);
      break;
    }
    if (end < 0)
      return;
    const QByteArray linha = m_resto.first(end);
    m_resto.remove(0, end + 1);
    m_prazo.start();
    emit Linha(linha);
  }
  m_resto.clear();
}

} // namespace tolmira
