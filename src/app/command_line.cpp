#include "app/command_line.h"

#include <QCommandLineParser>
#include <QDir>

namespace tolmira {

namespace {

QString Absolute(const QString &path) {
  return path.isEmpty() ? path : QDir::cleanPath(QDir(path).absolutePath());
}

CommandLine Ending(int exitCode, const QString &text) {
  CommandLine result;
  result.ends = true;
  result.exitCode = exitCode;
  result.text = text;
  return result;
}

} // namespace

CommandLine ParseCommandLine(const QStringList &arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Shows songs and other items of a service on a projector, verse by verse."));
  const QCommandLineOption app(QStringLiteral("app"), QStringLiteral("Use DIR as the program folder."),
                               QStringLiteral("DIR"));
  const QCommandLineOption control(
      QStringLiteral("control"), QStringLiteral("Open a control socket at SOCKET (see docs/control-interface.md)."),
      QStringLiteral("SOCKET"));
  const QCommandLineOption assets(QStringLiteral("assets"),
                                  QStringLiteral("Take page templates and the starter service from DIR."),
                                  QStringLiteral("DIR"));
  const QCommandLineOption graphics(
      QStringLiteral("graphics"),
      QStringLiteral("Drawing of pages: auto, software or gl. Auto draws in software where there is no graphics chip."),
      QStringLiteral("MODE"), QStringLiteral("auto"));
  const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Print the version and end."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Print this help and end."));
  parser.addOptions({app, control, assets, graphics, version, help});

  if (!parser.parse(arguments))
    return Ending(2, parser.errorText());
  if (parser.isSet(help)) {
    QString text = parser.helpText();
    // What the parser writes where there is no application object yet.
    text.replace(QStringLiteral("<executable_name>"), QStringLiteral("tolmira"));
    return Ending(0, text.trimmed());
  }
  if (parser.isSet(version))
    return Ending(0, QStringLiteral("Tolmira " TOLMIRA_VERSION));
  if (!parser.positionalArguments().isEmpty())
    return Ending(2, QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().first()));

  CommandLine result;
  for (const QCommandLineOption *option : {&app, &control, &assets})
    if (parser.isSet(*option) && parser.value(*option).isEmpty())
      return Ending(2, QStringLiteral("The option --%1 needs a value.").arg(option->names().first()));
  result.app = Absolute(parser.value(app));
  result.control = Absolute(parser.value(control));
  result.assets = Absolute(parser.value(assets));
  const QString mode = parser.value(graphics);
  if (mode == u"software")
    result.graphics = GraphicsBackend::Software;
  else if (mode == u"gl")
    result.graphics = GraphicsBackend::Gl;
  else if (mode != u"auto")
    return Ending(2, QStringLiteral("The option --graphics takes auto, software or gl, not '%1'.").arg(mode));
  return result;
}

} // namespace tolmira
