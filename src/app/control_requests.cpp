#include "app/control_requests.h"

#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <limits>
#include <memory>

#include "app/control_hands.h"
#include "app/control_state.h"
#include "app/control_windows.h"
#include "themes/theme_record.h"

namespace tolmira {

namespace {

constexpr int AnyLowest = std::numeric_limits<int>::min();
constexpr int AnyHighest = std::numeric_limits<int>::max();
constexpr int Agendas = 5;
constexpr int Kinds = 6;
constexpr int LastScreenState = 4;

const QStringList ConsoleRequests = {QStringLiteral("state"), QStringLiteral("show"),   QStringLiteral("add"),
                                     QStringLiteral("agenda"), QStringLiteral("key"),   QStringLiteral("screen"),
                                     QStringLiteral("theme"), QStringLiteral("send"),   QStringLiteral("quit")};
const QStringList WindowRequests = {QStringLiteral("windows"), QStringLiteral("controls"), QStringLiteral("grab")};
const QStringList ControlRequestNames = {QStringLiteral("set"), QStringLiteral("click"), QStringLiteral("type"),
                                         QStringLiteral("read")};

} // namespace

ControlRequests::ControlRequests(ControlDoors doors, QString console, QObject *parent)
    : QObject(parent), m_doors(std::move(doors)), m_console(std::move(console)), m_keys(m_console) {}

bool ControlRequests::MayAnswerEarly(const QJsonObject &request) {
  const QString what = request.value(QStringLiteral("do")).toString();
  return what != u"add" && what != u"eval" && what != u"state" && what != u"read" && !WindowRequests.contains(what);
}

void ControlRequests::Serve(const QJsonObject &request, const Reply &reply) {
  RequestReader reader(request);
  if (reader.Do() == u"eval")
    Eval(reader, reply);
  else
    reply(Act(reader));
}

ControlAnswer ControlRequests::Act(RequestReader &request) {
  const QString what = request.Do();
  if (what.isEmpty())
    return ControlAnswer::Failed(QStringLiteral("the request has no \"do\""));
  if (ConsoleRequests.contains(what))
    return OnConsole(request);
  if (WindowRequests.contains(what))
    return OnWindows(request);
  if (ControlRequestNames.contains(what))
    return OnControl(request);
  if (what == u"answer")
    return Answer(request);
  return ControlAnswer::Failed(QStringLiteral("there is no request \"%1\"").arg(what));
}

ControlAnswer ControlRequests::OnConsole(RequestReader &request) {
  const QString what = request.Do();
  if (what == u"state")
    return ControlAnswer::Ok({{QStringLiteral("state"), StateOf(m_doors)}});
  if (what == u"quit")
    return Quit();

  const auto act = [&request](auto action) {
    if (!request.Error().isEmpty())
      return ControlAnswer::Failed(request.Error());
    action();
    return ControlAnswer::Ok();
  };
  if (what == u"show") {
    const int kind = request.Whole(QStringLiteral("kind"), AnyLowest, AnyHighest);
    const QString label = request.Text(QStringLiteral("label"));
    const QString target = request.Text(QStringLiteral("target"), label);
    return act([&] { m_doors.apresentacao.ShowEntry(kind, 0, label, target); });
  }
  if (what == u"add") {
    const int kind = request.Whole(QStringLiteral("kind"), 1, Kinds);
    const QString label = request.Text(QStringLiteral("label"));
    const QString target = request.Text(QStringLiteral("target"), QString());
    QString message;
    ControlAnswer answer = act([&] { m_doors.apresentacao.PorNaLista(label, kind, target, message); });
    if (answer.Good())
      answer.fields.insert(QStringLiteral("message"), message);
    return answer;
  }
  if (what == u"agenda") {
    const int n = request.Whole(QStringLiteral("n"), 1, Agendas);
    return act([&] { m_doors.SelectTab(n); });
  }
  if (what == u"screen") {
    const int index = request.Whole(QStringLiteral("index"), 0, LastScreenState);
    return act([&] { m_doors.SetScreenState(index); });
  }
  if (what == u"theme") {
    const int slot = request.Whole(QStringLiteral("slot"), 1, NumeroDeTemas);
    return act([&] { m_doors.PressTile(slot); });
  }
  if (what == u"send") {
    const QString comando = request.Text(QStringLiteral("comando"));
    return act([&] { m_doors.SendToDisplay(comando); });
  }
  const QString key = request.Text(QStringLiteral("key"));
  const QString action = request.Text(QStringLiteral("action"), QStringLiteral("click"));
  return request.Error().isEmpty() ? m_keys.Send(key, action) : ControlAnswer::Failed(request.Error());
}

ControlAnswer ControlRequests::OnWindows(RequestReader &request) {
  if (request.Do() == u"windows")
    return ControlAnswer::Ok({{QStringLiteral("windows"), ListWindows()}});
  const QString name = request.Text(QStringLiteral("window"));
  const QString path = request.Do() == u"grab" ? request.Text(QStringLiteral("path")) : QString();
  if (!request.Error().isEmpty())
    return ControlAnswer::Failed(request.Error());
  QWidget *window = FindWindow(name);
  if (!window)
    return ControlAnswer::Failed(QStringLiteral("no window \"%1\" is open").arg(name));
  if (request.Do() == u"grab")
    return GrabWindow(window, path);
  return ControlAnswer::Ok({{QStringLiteral("controls"), ListControls(window)}});
}

ControlAnswer ControlRequests::OnControl(RequestReader &request) {
  const QString what = request.Do();
  const QString name = request.Text(QStringLiteral("window"));
  const QString controlName = request.Text(QStringLiteral("control"));
  const QString text = what == u"type" ? request.Text(QStringLiteral("text")) : QString();
  if (what == u"set" && !request.Has(QStringLiteral("value")) && !request.Has(QStringLiteral("text")))
    return ControlAnswer::Failed(QStringLiteral("\"set\" needs \"value\""));
  // A list's item may be named as "value" or, by its text, as "text".
  const QJsonValue value = request.Value(request.Has(QStringLiteral("value")) ? QStringLiteral("value")
                                                                              : QStringLiteral("text"));
  ClickWish wish;
  if (what == u"click") {
    wish = {value, request.Flag(QStringLiteral("double")), request.Text(QStringLiteral("button"), QString()) == u"right"};
  }
  if (!request.Error().isEmpty())
    return ControlAnswer::Failed(request.Error());

  QWidget *window = FindWindow(name);
  if (!window)
    return ControlAnswer::Failed(QStringLiteral("no window \"%1\" is open").arg(name));
  const FoundControl control = FindControl(window, controlName);
  if (!control.widget && !control.action)
    return ControlAnswer::Failed(QStringLiteral("the window \"%1\" has no control \"%2\"").arg(name, controlName));
  if (what == u"read")
    return ReadControl(control);
  if (what == u"click")
    return ClickControl(control, wish);
  if (what == u"type")
    return TypeInto(control, text);

  const QPointer<QWidget> alive(control.widget);
  ControlAnswer answer = SetControl(control, value);
  if (answer.Good() && alive)
    answer.fields.insert(QStringLiteral("value"), ValueOf(alive));
  return answer;
}

ControlAnswer ControlRequests::Answer(RequestReader &request) {
  if (request.Has(QStringLiteral("path"))) {
    const QString path = request.Text(QStringLiteral("path"));
    return request.Error().isEmpty() ? AnswerWithPath(path) : ControlAnswer::Failed(request.Error());
  }
  const QString button = request.Text(QStringLiteral("button"));
  return request.Error().isEmpty() ? AnswerWithButton(button) : ControlAnswer::Failed(request.Error());
}

ControlAnswer ControlRequests::Quit() {
  // A question wants its answer first. A window that only stands in front, as the gallery does, is closed on the way.
  QWidget *box = OpenBox();
  while (box && !qobject_cast<QDialog *>(box) && box->isModal() && box->close())
    box = OpenBox();
  if (box)
    return ControlAnswer::Failed(
        QStringLiteral("the console is behind the open window \"%1\"").arg(NameOf(box)));
  // The answer leaves before the program does.
  if (m_doors.fechaConsole)
    QTimer::singleShot(0, this, [close = m_doors.fechaConsole] { close(); });
  return ControlAnswer::Ok();
}

void ControlRequests::Eval(RequestReader &request, const Reply &reply) {
  const QString name = request.Text(QStringLiteral("page"));
  const QString script = request.Text(QStringLiteral("script"));
  if (!request.Error().isEmpty()) {
    reply(ControlAnswer::Failed(request.Error()));
    return;
  }
  PageObject *page = m_doors.pagina ? m_doors.pagina(name) : nullptr;
  if (!page) {
    reply(ControlAnswer::Failed(QStringLiteral("there is no page \"%1\"").arg(name)));
    return;
  }
  // A page that leaves, or whose process dies, never calls back.
  const auto open = std::make_shared<bool>(true);
  const auto answer = [open, reply](const ControlAnswer &what) {
    if (*open) {
      *open = false;
      reply(what);
    }
  };
  QTimer::singleShot(EvalTimeoutMs, this,
                     [answer] { answer(ControlAnswer::Failed(QStringLiteral("the page did not answer"))); });
  page->Evaluate(script, [answer](const QString &json) {
    // A JSON text by itself may be a plain number or text, which the reader takes only inside a list.
    const QJsonArray list = QJsonDocument::fromJson('[' + json.toUtf8() + ']').array();
    answer(ControlAnswer::Ok({{QStringLiteral("value"), list.isEmpty() ? QJsonValue() : list.first()}}));
  });
}

} // namespace tolmira
