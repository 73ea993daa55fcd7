// tolmira-ctl: the command-line client of the control interface (docs/control-interface.md).

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QThread>

#include <array>
#include <cstdio>
#include <optional>

namespace {

enum ExitCode { Good = 0, ErrorAnswer = 1, Usage = 2, NoConnection = 3 };

// The parameters of each request in the order in which they may stand on the command line.
struct RequestForm {
  const char *name;
  std::array<const char *, 3> parameters;
};
constexpr RequestForm Forms[] = {
    {"state", {}},
    {"show", {"kind", "label", "target"}},
    {"add", {"kind", "label", "target"}},
    {"agenda", {"n"}},
    {"key", {"key", "action"}},
    {"screen", {"index"}},
    {"theme", {"slot"}},
    {"send", {"comando"}},
    {"eval", {"page", "script"}},
    {"windows", {}},
    {"controls", {"window"}},
    {"set", {"window", "control", "value"}},
    {"click", {"window", "control", "value"}},
    {"type", {"window", "control", "text"}},
    {"read", {"window", "control"}},
    {"answer", {"button", "path"}},
    {"grab", {"window", "path"}},
    {"watch", {}},
    {"quit", {}},
};

// Parameters that are numbers, and the one that takes any JSON value; all others are text.
bool IsNumber(const QString &parameter) {
  return QStringList{QStringLiteral("kind"), QStringLiteral("n"), QStringLiteral("index"), QStringLiteral("slot")}
      .contains(parameter);
}

void Print(FILE *to, const QByteArray &line) {
  std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), to);
  std::fputc('\n', to);
  std::fflush(to);
}

int Fail(ExitCode code, const QString &text) {
  Print(stderr, "tolmira-ctl: " + text.toUtf8());
  return code;
}

QJsonValue ValueOf(const QString &parameter, const QString &text) {
  const bool any = parameter == u"value";
  if (IsNumber(parameter) || any) {
    bool number = false;
    const double value = text.toDouble(&number);
    if (number)
      return value;
  }
  if (any || parameter == u"double") {
    if (text == u"true" || text == u"false")
      return text == u"true";
  }
  // The program may have another working folder.
  if (parameter == u"path" && !text.isEmpty())
    return QDir::current().absoluteFilePath(text);
  return text;
}

// The request that the arguments behind the options stand for; nothing when they stand for none.
std::optional<QJsonObject> RequestOf(const QStringList &words, QString &fault) {
  if (words.first().startsWith(u'{')) {
    const QJsonDocument document = QJsonDocument::fromJson(words.first().toUtf8());
    if (document.isObject() && words.size() == 1)
      return document.object();
    fault = QStringLiteral("that is not one JSON object");
    return std::nullopt;
  }
  const RequestForm *form = nullptr;
  for (const RequestForm &each : Forms)
    if (words.first() == QLatin1String(each.name))
      form = &each;
  if (!form) {
    fault = QStringLiteral("there is no request '%1'").arg(words.first());
    return std::nullopt;
  }
  QJsonObject request{{QStringLiteral("do"), words.first()}};
  size_t position = 0;
  for (int n = 1; n < words.size(); ++n) {
    QString word = words[n];
    QString name;
    if (word.startsWith(u"--") && word.size() > 2) {
      name = word.mid(2);
      const qsizetype equals = name.indexOf(u'=');
      if (equals > 0) {
        word = name.mid(equals + 1);
        name = name.left(equals);
      } else if (++n < words.size()) {
        word = words[n];
      } else {
        fault = QStringLiteral("--%1 needs a value").arg(name);
        return std::nullopt;
      }
    } else {
      if (position >= form->parameters.size() || !form->parameters[position]) {
        fault = QStringLiteral("'%1' is one word too many").arg(word);
        return std::nullopt;
      }
      name = QLatin1String(form->parameters[position++]);
    }
    request.insert(name, ValueOf(name, word));
  }
  return request;
}

QString AsText(const QJsonValue &value) {
  if (value.isString())
    return value.toString();
  const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(list.mid(1, list.size() - 2));
}

class Client {
public:
  Client(int timeoutMs) : m_timeoutMs(timeoutMs) {}

  bool Connect(const QString &socket) {
    m_socket.connectToServer(socket);
    return m_socket.waitForConnected(m_timeoutMs);
  }
  QString Fault() const { return m_socket.errorString(); }

  bool Send(const QJsonObject &request) {
    m_socket.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
    return m_socket.waitForBytesWritten(m_timeoutMs);
  }

  // The next line; nothing at the end of the connection or of the time (-1: any time).
  std::optional<QByteArray> Line(int timeoutMs) {
    QDeadlineTimer deadline(timeoutMs < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(timeoutMs));
    while (!m_socket.canReadLine())
      if (!m_socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
        return std::nullopt;
    return m_socket.readLine().trimmed();
  }

  std::optional<QJsonObject> Ask(const QJsonObject &request) {
    if (!Send(request))
      return std::nullopt;
    const std::optional<QByteArray> line = Line(m_timeoutMs);
    if (!line)
      return std::nullopt;
    return QJsonDocument::fromJson(*line).object();
  }

  int TimeoutMs() const { return m_timeoutMs; }

private:
  QLocalSocket m_socket;
  int m_timeoutMs;
};

const QString NoAnswer = QStringLiteral("no answer came in time");

int Watch(Client &client, int count, int timeoutMs) {
  const std::optional<QJsonObject> answer = client.Ask({{QStringLiteral("do"), QStringLiteral("watch")}});
  if (!answer)
    return Fail(NoConnection, NoAnswer);
  for (int n = 0; count < 0 || n < count; ++n) {
    const std::optional<QByteArray> line = client.Line(timeoutMs);
    if (!line)
      return count < 0 ? Good : Fail(NoConnection, QStringLiteral("only %1 of %2 events came").arg(n).arg(count));
    Print(stdout, *line);
  }
  return Good;
}

// Asks for the state until a field has the value.
int WaitFor(Client &client, const QString &field, const QString &value) {
  constexpr unsigned long PauseMs = 25;
  QDeadlineTimer deadline(client.TimeoutMs());
  QString last;
  do {
    const std::optional<QJsonObject> answer = client.Ask({{QStringLiteral("do"), QStringLiteral("state")}});
    if (!answer)
      return Fail(NoConnection, NoAnswer);
    const QJsonObject state = answer->value(QStringLiteral("state")).toObject();
    if (!state.contains(field))
      return Fail(Usage, QStringLiteral("the state has no field '%1'").arg(field));
    last = AsText(state.value(field));
    if (last == value)
      return Good;
    QThread::msleep(PauseMs);
  } while (!deadline.hasExpired());
  return Fail(ErrorAnswer, QStringLiteral("'%1' is still '%2'").arg(field, last));
}

QString RequestList() {
  QString list;
  for (const RequestForm &form : Forms) {
    list += QStringLiteral("\n  ") + QLatin1String(form.name);
    for (const char *parameter : form.parameters)
      if (parameter)
        list += QStringLiteral(" [") + QLatin1String(parameter) + u']';
  }
  return list;
}

} // namespace

int main(int argc, char *argv[]) {
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tolmira-ctl"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TOLMIRA_VERSION));

  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Sends one request to a running Tolmira and prints the answer.\n\n"
                     "A request is its name and its parameters, in their order or as --name value, or one JSON object.\n"
                     "Further: 'wait FIELD VALUE' returns when that field of the state has the value.\n"
                     "Ends with 0 for a good answer, 1 for an error, 2 for a mistake in the command, 3 without "
                     "connection.\n\nRequests:") +
      RequestList());
  const QCommandLineOption socket(QStringLiteral("socket"),
                                  QStringLiteral("Control socket of the program (default: TOLMIRA_CONTROL)."),
                                  QStringLiteral("PATH"), qEnvironmentVariable("TOLMIRA_CONTROL"));
  const QCommandLineOption timeout(
      QStringLiteral("timeout"),
      QStringLiteral("Milliseconds to wait for an answer (default 30000); for 'watch', for each event (default: none)."),
      QStringLiteral("MS"));
  const QCommandLineOption count(QStringLiteral("count"), QStringLiteral("Events after which 'watch' ends."),
                                 QStringLiteral("N"));
  parser.addOptions({socket, timeout, count});
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("request"), QStringLiteral("See above."),
                               QStringLiteral("request [parameter ...]"));

  // The options of this program may stand before or behind the request; everything else with "--" belongs to it.
  QStringList own = {app.arguments().first()};
  QStringList words;
  const QStringList arguments = app.arguments().mid(1);
  for (int n = 0; n < arguments.size(); ++n) {
    const QString &argument = arguments[n];
    const bool takesNext = argument == u"--socket" || argument == u"--timeout" || argument == u"--count";
    const bool isOwn = takesNext || argument.startsWith(u"--socket=") || argument.startsWith(u"--timeout=") ||
                       argument.startsWith(u"--count=") || (words.isEmpty() && argument.startsWith(u'-'));
    if (!isOwn) {
      words << argument;
      continue;
    }
    own << argument;
    if (takesNext && n + 1 < arguments.size())
      own << arguments[++n];
  }
  if (!parser.parse(own))
    return Fail(Usage, parser.errorText());
  if (parser.isSet(QStringLiteral("help")))
    parser.showHelp(Good);
  if (parser.isSet(QStringLiteral("version")))
    parser.showVersion();
  if (words.isEmpty())
    return Fail(Usage, QStringLiteral("which request? See tolmira-ctl --help"));
  if (parser.value(socket).isEmpty())
    return Fail(Usage, QStringLiteral("which socket? Give --socket PATH or set TOLMIRA_CONTROL"));
  bool timeoutFine = true;
  bool countFine = true;
  const int timeoutMs = parser.isSet(timeout) ? parser.value(timeout).toInt(&timeoutFine) : 30000;
  const int events = parser.isSet(count) ? parser.value(count).toInt(&countFine) : -1;
  if (!timeoutFine || timeoutMs < 0 || !countFine)
    return Fail(Usage, QStringLiteral("--timeout and --count take whole numbers"));

  const bool wait = words.first() == u"wait";
  if (wait && words.size() != 3)
    return Fail(Usage, QStringLiteral("'wait' takes a field and a value"));
  std::optional<QJsonObject> request;
  if (!wait) {
    QString fault;
    request = RequestOf(words, fault);
    if (!request)
      return Fail(Usage, fault);
  }

  Client client(timeoutMs);
  if (!client.Connect(QDir::current().absoluteFilePath(parser.value(socket))))
    return Fail(NoConnection, QStringLiteral("no connection to %1: %2").arg(parser.value(socket), client.Fault()));
  if (wait)
    return WaitFor(client, words[1], words[2]);
  if (request->value(QStringLiteral("do")) == QStringLiteral("watch"))
    return Watch(client, events, parser.isSet(timeout) ? timeoutMs : -1);

  const std::optional<QJsonObject> answer = client.Ask(*request);
  if (!answer)
    return Fail(NoConnection, NoAnswer);
  Print(stdout, QJsonDocument(*answer).toJson(QJsonDocument::Compact));
  return answer->value(QStringLiteral("ok")).toBool() ? Good : ErrorAnswer;
}
