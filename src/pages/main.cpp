#include "pages/page_picture.h"
#include "pages/pdf_document.h"
#include "slides/page_protocol.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <csignal>
#include <cstdio>

// Draws the pages of a PDF as pictures; slides/page_protocol.h says how it is called and what it answers.

namespace {

using namespace tolmira;

enum ExitCode { Good = 0, Failed = 1, Usage = 2 };

void Say(const QString &line) {
  std::fputs(line.toLatin1().constData(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout); // whoever waits sees each page when it is there
}

int Fail(const QString &why) {
  Say(QStringLiteral("failed ") + why);
  return Failed;
}

QSize ParseSize(const QString &text) {
  const QStringList sides = text.split(u'x');
  const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
  return size.width() > 0 && size.height() > 0 && size.width() <= paginas::MaiorLado &&
                 size.height() <= paginas::MaiorLado
             ? size
             : QSize();
}

QByteArray ReadPassword() {
  QFile input;
  return input.open(stdin, QIODevice::ReadOnly) ? input.read(paginas::MaiorSenha) : QByteArray();
}

// A name that stands there already is somebody else's.
bool Write(const QString &path, const QByteArray &bytes) {
  QFile file(path);
  return !bytes.isEmpty() && file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
         file.write(bytes) == bytes.size() && file.flush();
}

int DrawAll(const PdfDocument &document, const QDir &folder, const QSize &screen) {
  const int count = document.PageCount();
  if (count < 1)
    return Fail(paginas::Vazio);
  if (count > paginas::MaisPaginas)
    return Fail(paginas::Demais);
  Say(QStringLiteral("pages %1").arg(count));
  for (int number = 1; number <= count; ++number) {
    const QImage page = document.Draw(number - 1, screen);
    if (page.isNull())
      return Fail(paginas::Quebrado);
    const PageFile file = EncodePage(OnScreen(page, screen));
    const QString name = QStringLiteral("page-%1.").arg(number) + QLatin1String(file.extension);
    if (!Write(folder.filePath(name), file.bytes))
      return Fail(paginas::Disco);
    Say(QStringLiteral("page %1 ").arg(number) + name);
  }
  Say(QStringLiteral("done"));
  return Good;
}

} // namespace

int main(int argc, char **argv) {
  std::signal(SIGXFSZ, SIG_IGN); // a picture that may not become that large is an error like a full disk
  const QCoreApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const QSize screen = arguments.size() == 4 ? ParseSize(arguments[3]) : QSize();
  if (screen.isEmpty()) {
    std::fputs("tolmira-pages: call me with FILE FOLDER WIDTHxHEIGHT, and a password on standard input\n", stderr);
    return Usage;
  }
  const PdfDocument document(arguments[1], ReadPassword());
  if (!document.IsOpen())
    return Fail(paginas::Quebrado);
  if (document.IsLocked())
    return Fail(paginas::FaltaSenha);
  return DrawAll(document, QDir(arguments[2]), screen);
}
