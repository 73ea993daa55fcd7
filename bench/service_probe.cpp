// Starts the program on the desktop of DISPLAY and measures it from outside, through its control interface: the start
// with a folder of 10,000 songs, a key to the script it causes, a chosen song to its settled page, memory and the
// processor while nothing moves. Prints lines "name value unit"; with --hold it then waits for a line on standard input
// with a song on show, so that another program can watch the screen.

#include "program_control.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <unistd.h>

using namespace tolmira::bench;

namespace {

constexpr int Songs = 10000;

QList<qint64> Family(qint64 root) {
  QList<qint64> family{root};
  for (qsizetype i = 0; i < family.size(); ++i)
    for (const QString &process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
      QFile stat(QStringLiteral("/proc/%1/stat").arg(process));
      if (!stat.open(QIODevice::ReadOnly))
        continue;
      const QByteArray line = stat.readAll();
      const qint64 parent = line.mid(line.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
      if (parent == family[i] && !family.contains(process.toLongLong()))
        family.append(process.toLongLong());
    }
  return family;
}

double PssMiB(const QList<qint64> &family) {
  double kib = 0;
  for (const qint64 pid : family) {
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(pid));
    if (file.open(QIODevice::ReadOnly))
      for (const QByteArray &line : file.readAll().split('\n'))
        if (line.startsWith("Pss:"))
          kib += line.mid(4).simplified().split(' ').value(0).toDouble();
  }
  return kib / 1024;
}

double ProcessorSeconds(const QList<qint64> &family) {
  double ticks = 0;
  for (const qint64 pid : family) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
      continue;
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    ticks += fields.value(11).toDouble() + fields.value(12).toDouble();
  }
  return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

void WriteSong(const QString &folder, const QString &name, int stanzas) {
  QFile file(folder + u"/Lyrics/" + name + u".txt");
  if (!file.open(QIODevice::WriteOnly))
    qFatal("cannot write a song");
  for (int i = 1; i <= stanzas; ++i)
    file.write("Estrofe " + QByteArray::number(i) + " do louvor\r\nQue se canta em paz\r\n\r\n");
}

// Over the pictures of the starter service, in turn.
void WriteSlides(const QString &folder, const QString &name, int count) {
  const QStringList pictures = QDir(folder + u"/Images").entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
  QFile file(folder + u"/Slides/" + name + u".sld");
  if (pictures.isEmpty() || !file.open(QIODevice::WriteOnly))
    qFatal("cannot write slides");
  file.write("[Config]\r\nCount=" + QByteArray::number(count) + "\r\n");
  for (int i = 1; i <= count; ++i) {
    const QByteArray n = QByteArray::number(i);
    const QString picture = folder + u"\\Images\\" + pictures[i % pictures.size()];
    file.write("Imagem" + n + "=" + picture.toUtf8() + "\r\nTitulo" + n + "=Slide " + n + "\r\nFontSize" + n + "=5\r\n");
  }
  file.write("Efeito_Imagem-Fx=none\r\n");
}

// Scripts run in their order, so the answer to this one says that the page has done all before it.
QJsonObject Settled() {
  return {{QStringLiteral("do"), QStringLiteral("eval")},
          {QStringLiteral("page"), QStringLiteral("display")},
          {QStringLiteral("script"), QStringLiteral("document.body.offsetHeight")}};
}

} // namespace

int main(int argc, char **argv) {
  QCoreApplication application(argc, argv);
  const QString program = QCoreApplication::arguments().value(1);
  const bool hold = QCoreApplication::arguments().contains(QStringLiteral("--hold"));
  QTemporaryDir scratch;
  const QString app = scratch.filePath(QStringLiteral("app"));
  const QString socket = scratch.filePath(QStringLiteral("control"));
  const QStringList arguments{QStringLiteral("--app"), app, QStringLiteral("--control"), socket};

  // The first start fills the folder; it is not measured.
  {
    QProcess first;
    first.start(program, arguments);
    Control control;
    if (!control.Connect(socket, Patience))
      return 1;
    while (!control.Do("state")[QStringLiteral("state")][QStringLiteral("TelaPronta")].toBool())
      QThread::msleep(50);
    control.Do("quit");
    first.waitForFinished(Patience);
  }
  for (int i = 0; i < Songs; ++i)
    WriteSong(app, QStringLiteral("Cancao %1").arg(i), 4);
  WriteSong(app, QStringLiteral("Longa"), 60);
  WriteSong(app, QStringLiteral("Outra"), 60);
  WriteSlides(app, QStringLiteral("Slides2"), 2);
  WriteSlides(app, QStringLiteral("Slides200"), 200);
  // No draw of themes, no entrance effect: what is measured is the road, not the picture on it.
  QFile config(app + u"/Data/Config.dat");
  if (!config.open(QIODevice::Append))
    return 1;
  config.write("\r\n[Registro]\r\nCheckAlteraTemaAleatorio=0\r\n");
  config.close();
  QFile themes(app + u"/Data/Themes.ini");
  if (!themes.open(QIODevice::WriteOnly))
    return 1;
  themes.write("[Tema-1]\r\nTipo=CorDeFundo\r\nEfeito_Texto-Fx=none\r\n");
  themes.close();

  std::vector<double> usable;
  std::vector<double> ready;
  QProcess process;
  Control control;
  for (int round = 0; round < 5; ++round) {
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    Control starting;
    if (!starting.Connect(socket, Patience))
      return 1;
    bool shown = false;
    for (;;) {
      if (!shown) {
        const QByteArray windows = QJsonDocument(starting.Do("windows")).toJson(QJsonDocument::Compact);
        // Served between two events with its window up: the console takes the operator's input from here on.
        shown = windows.contains("\"FrmMonitor\"") && windows.contains("\"visible\":true");
        if (shown)
          usable.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
      }
      if (starting.Do("state")[QStringLiteral("state")][QStringLiteral("TelaPronta")].toBool())
        break;
      QThread::msleep(2);
    }
    ready.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    if (round < 4) {
      starting.Do("quit");
      process.waitForFinished(Patience);
    }
  }
  PrintSpread("start to a usable console", usable, "ms");
  PrintSpread("start to TelaPronta", ready, "ms");

  if (!control.Connect(socket, Patience))
    return 1;
  control.Do(Show(QStringLiteral("Longa")));
  QThread::sleep(2);

  std::vector<double> settled;
  for (int i = 0; i < 20; ++i) {
    QElapsedTimer timer;
    timer.start();
    control.Do(Show(i % 2 ? QStringLiteral("Longa") : QStringLiteral("Outra")));
    control.Do(Settled());
    settled.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    QThread::msleep(150);
  }
  PrintSpread("chosen song to settled page", settled, "ms");

  for (const char *name : {"Slides2", "Slides200"}) {
    std::vector<double> opened;
    std::vector<double> stepped;
    for (int i = 0; i < 10; ++i) {
      QElapsedTimer timer;
      timer.start();
      control.Do(Show(QLatin1String(name), 5));
      control.Do(Settled());
      opened.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
      QThread::msleep(500);
      timer.start();
      control.Do(Key("Down"));
      control.Do(Settled());
      stepped.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
      control.Do(Show(QStringLiteral("Longa")));
      QThread::msleep(500);
    }
    PrintSpread(qPrintable(QLatin1String(name) + QStringLiteral(", to the first slide")), opened, "ms");
    PrintSpread(qPrintable(QLatin1String(name) + QStringLiteral(", a step")), stepped, "ms");
  }

  std::vector<double> script;
  {
    Control watching;
    if (!watching.Connect(socket, Patience))
      return 1;
    watching.Do("watch");
    for (int i = 0; i < 50; ++i) {
      QElapsedTimer timer;
      timer.start();
      watching.Send(Key("Down"));
      while (const auto event = watching.Next())
        if (event->value(QStringLiteral("event")).toString() == u"script") {
          script.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
          break;
        }
      QThread::msleep(300);
    }
  }
  PrintSpread("key to script", script, "ms");

  QThread::sleep(3);
  const QList<qint64> family = Family(process.processId());
  Print("memory of all processes (PSS)", PssMiB(family), "MiB");
  const double before = ProcessorSeconds(family);
  QThread::sleep(10);
  Print("processor while nothing moves", (ProcessorSeconds(family) - before) / 10 * 100, "%");
  std::fflush(stdout);

  if (hold) {
    control.Do(Show(QStringLiteral("Outra")));
    control.Do(Key("Down"));
    QThread::sleep(1);
    std::puts("ready");
    std::fflush(stdout);
    char line[8];
    if (!std::fgets(line, sizeof line, stdin))
      return 1;
  }
  control.Do("quit");
  process.waitForFinished(Patience);
  return 0;
}
