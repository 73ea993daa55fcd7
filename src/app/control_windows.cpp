#include "app/control_windows.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPixmap>
#include <QSaveFile>
#include <QScreen>
#include <QWidget>

#include "app/control_hands.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

QJsonObject RectangleJson(const QRect &rect) {
  return {{QStringLiteral("x"), rect.x()},
          {QStringLiteral("y"), rect.y()},
          {QStringLiteral("width"), rect.width()},
          {QStringLiteral("height"), rect.height()}};
}

QString PlainText(QString text) {
  // "&&" stands for one "&", a single one marks the letter behind it.
  text.replace(QStringLiteral("&&"), QString(QChar(1)));
  text.remove(u'&');
  text.replace(QChar(1), u'&');
  return text;
}

bool IsOurs(const QWidget *window) {
  if (window->isVisible())
    return window->windowType() != Qt::ToolTip;
  // A window that is kept hidden counts as open when it has a name of ours.
  return !window->objectName().isEmpty() && !window->objectName().startsWith(u"qt_") &&
         !window->objectName().startsWith(u'Q') && window->windowType() != Qt::Popup;
}

// Names that the toolkit gives to the insides of its own widgets are no names of ours.
bool IsNamed(const QObject *object) {
  return !object->objectName().isEmpty() && !object->objectName().startsWith(u"qt_");
}

QList<QAction *> ActionsOf(const QWidget *window) {
  QList<QAction *> actions = window->actions();
  for (const QWidget *child : window->findChildren<QWidget *>())
    for (QAction *action : child->actions())
      if (!actions.contains(action))
        actions.append(action);
  return actions;
}

bool Matches(const QAbstractButton *button, const QString &wish, const QString &standardName) {
  return PlainText(button->text()).compare(wish, Qt::CaseInsensitive) == 0 ||
         (!standardName.isEmpty() && standardName.compare(wish, Qt::CaseInsensitive) == 0);
}

QAbstractButton *FindButton(const QWidget *box, const QString &wish) {
  const auto *message = qobject_cast<const QMessageBox *>(box);
  const QMetaEnum standard = QMetaEnum::fromType<QDialogButtonBox::StandardButtons>();
  const auto *buttons = box->findChild<QDialogButtonBox *>();
  for (QAbstractButton *button : box->findChildren<QAbstractButton *>()) {
    if (!button->isVisible())
      continue;
    QString name;
    if (message)
      name = QString::fromLatin1(standard.valueToKey(message->standardButton(button)));
    else if (buttons)
      name = QString::fromLatin1(standard.valueToKey(buttons->standardButton(button)));
    if (Matches(button, wish, name))
      return button;
  }
  return nullptr;
}

} // namespace

QString NameOf(const QObject *object) {
  return object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className()) : object->objectName();
}

QWidget *FindWindow(const QString &name) {
  QWidget *found = nullptr;
  for (QWidget *window : QApplication::topLevelWidgets())
    if (IsOurs(window) && NameOf(window) == name && (!found || window->isVisible() || !found->isVisible()))
      found = window;
  return found;
}

QWidget *OpenBox() {
  if (QWidget *popup = QApplication::activePopupWidget())
    return popup;
  return QApplication::activeModalWidget();
}

QJsonArray ListWindows() {
  QJsonArray list;
  const QList<QScreen *> screens = QGuiApplication::screens();
  for (const QWidget *window : QApplication::topLevelWidgets()) {
    if (!IsOurs(window))
      continue;
    list.append(QJsonObject{{QStringLiteral("name"), NameOf(window)},
                            {QStringLiteral("title"), window->windowTitle().remove(QStringLiteral("[*]"))},
                            {QStringLiteral("rectangle"), RectangleJson(window->geometry())},
                            {QStringLiteral("screen"), static_cast<int>(screens.indexOf(window->screen()))},
                            {QStringLiteral("visible"), window->isVisible()}});
  }
  return list;
}

QJsonArray ListControls(const QWidget *window) {
  QJsonArray list;
  for (const QWidget *widget : window->findChildren<QWidget *>()) {
    if (!IsNamed(widget) || widget->window() != window)
      continue;
    list.append(QJsonObject{
        {QStringLiteral("name"), widget->objectName()},
        {QStringLiteral("class"), QString::fromLatin1(widget->metaObject()->className())},
        {QStringLiteral("text"), TextOf(widget)},
        {QStringLiteral("value"), ValueOf(widget)},
        {QStringLiteral("enabled"), widget->isEnabled()},
        {QStringLiteral("visible"), widget->isVisible()},
        {QStringLiteral("rectangle"), RectangleJson(QRect(widget->mapTo(window, QPoint()), widget->size()))}});
  }
  for (const QAction *action : ActionsOf(window)) {
    if (!IsNamed(action))
      continue;
    list.append(QJsonObject{{QStringLiteral("name"), action->objectName()},
                            {QStringLiteral("class"), QStringLiteral("QAction")},
                            {QStringLiteral("text"), PlainText(action->text())},
                            {QStringLiteral("value"), action->isCheckable() ? QJsonValue(action->isChecked()) : QJsonValue()},
                            {QStringLiteral("enabled"), action->isEnabled()},
                            {QStringLiteral("visible"), action->isVisible()},
                            {QStringLiteral("rectangle"), RectangleJson({})}});
  }
  return list;
}

FoundControl FindControl(QWidget *window, const QString &name) {
  QWidget *hidden = nullptr;
  for (QWidget *widget : window->findChildren<QWidget *>(name)) {
    if (widget->window() != window)
      continue;
    if (widget->isVisible())
      return {widget, nullptr};
    hidden = widget;
  }
  for (QAction *action : ActionsOf(window))
    if (action->objectName() == name)
      return {nullptr, action};
  return {hidden, nullptr};
}

ControlAnswer AnswerWithButton(const QString &button) {
  QWidget *box = QApplication::activeModalWidget();
  if (!box)
    return ControlAnswer::Failed(QStringLiteral("no box is open"));
  QAbstractButton *found = FindButton(box, button);
  if (!found)
    return ControlAnswer::Failed(QStringLiteral("the box \"%1\" has no button \"%2\"").arg(box->windowTitle(), button));
  if (!found->isEnabled())
    return ControlAnswer::Failed(QStringLiteral("the button \"%1\" is not enabled").arg(button));
  found->click();
  return ControlAnswer::Ok();
}

ControlAnswer AnswerWithPath(const QString &path) {
  auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
  if (!dialog)
    return ControlAnswer::Failed(QStringLiteral("no file dialogue is open"));
  if (path.isEmpty()) {
    dialog->reject();
    return ControlAnswer::Ok();
  }
  const QFileInfo file(path);
  if (dialog->acceptMode() == QFileDialog::AcceptOpen && !file.exists())
    return ControlAnswer::Failed(QStringLiteral("there is no file \"%1\"").arg(path));
  auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
  if (!name)
    return ControlAnswer::Failed(QStringLiteral("the file dialogue takes no typed name"));
  name->setText(file.absoluteFilePath());
  // The override of the dialogue, which takes the name over, is protected; as a slot it can be called.
  QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
  return ControlAnswer::Ok();
}

ControlAnswer GrabWindow(QWidget *window, const QString &path) {
  const QPixmap picture = window->grab();
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !CommitWhole(file))
    return ControlAnswer::Failed(QStringLiteral("the picture could not be written to \"%1\": %2").arg(path, file.errorString()));
  return ControlAnswer::Ok({{QStringLiteral("width"), picture.width()}, {QStringLiteral("height"), picture.height()}});
}

} // namespace tolmira
