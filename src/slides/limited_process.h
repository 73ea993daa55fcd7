#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <sys/types.h>

namespace tolmira {

// What a process may take at most; 0 leaves that one as it is.
struct Limites {
  quint64 memoria = 0; // bytes of address space
  quint64 cpu = 0;     // seconds of one processor
  quint64 arquivo = 0; // bytes of one file
  quint64 abertos = 0; // open files
};

// Another program that works on a file from elsewhere: with limits, at low priority, the first to go when memory runs
// out, without the program's environment, files or privileges. It leads a process group that is ended as a whole,
// however it ends. When this program crashes it dies too; what it has started itself lives on then, up to its limits.
// What it says comes line by line. Runs one at a time.
class LimitedProcess : public QObject {
  Q_OBJECT

public:
  struct Comando {
    QString programa; // real path
    QStringList argumentos;
    QByteArray entrada; // its whole standard input
    QString pasta;      // where it works and keeps what passes
    Limites limites;
    int prazoMs = 0;    // how long it may be silent
    int maiorLinha = 0; // bytes; 0: what it says does not matter
  };

  enum class Fim {
    Saiu,       // by itself; the code is its exit code
    Caiu,       // by a signal, such as one of its limits
    Demorou,    // it was silent for too long
    Tagarelou,  // a line was too long
    NaoComecou, // there is no such program
    Parado,     // by Para()
  };

  explicit LimitedProcess(QObject *parent = nullptr);
  ~LimitedProcess() override; // ends the group and waits for it

  void Comeca(const Comando &comando);
  void Para(); // Acabou comes later
  bool Roda() const { return m_process.state() != QProcess::NotRunning; }

signals:
  void Linha(const QByteArray &linha);                       // without its LF
  void Acabou(tolmira::LimitedProcess::Fim fim, int codigo); // once for each start, never from inside it

private:
  void Le();
  void Mata(Fim porque);
  void MataGrupo();

  QProcess m_process;
  QTimer m_prazo;
  QByteArray m_resto; // of a line that is not whole
  pid_t m_grupo = 0;  // its process group; 0 for none
  int m_maiorLinha = 0;
  Fim m_fim = Fim::Saiu;
};

} // namespace tolmira
