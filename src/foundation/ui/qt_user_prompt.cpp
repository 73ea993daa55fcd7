#include "foundation/ui/qt_user_prompt.h"

#include "foundation/real_path.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace tolmira {
namespace {

constexpr int LineWidth = 460; // px, of a box for a line of text

QMessageBox::Icon IconOf(MessageKind kind) {
  switch (kind) {
  case MessageKind::Information:
    return QMessageBox::Information;
  case MessageKind::Warning:
    return QMessageBox::Warning;
  case MessageKind::Critical:
    return QMessageBox::Critical;
  case MessageKind::Question:
    return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

void Prepare(QMessageBox &box, MessageKind kind, const QString &title, const QString &text) {
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setIcon(IconOf(kind));
  box.setWindowTitle(title);
  // Names of songs and files come in these texts and may look like markup.
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
}

QStringList ChooseFiles(QWidget *parent, const QString &title, const QString &folder, const QString &filter,
                        QFileDialog::FileMode mode) {
  // A folder that is not there would stand in the dialogue as the name of a file.
  const QString start = MapStoredPath(folder).text();
  const QPointer<QFileDialog> dialog =
      new QFileDialog(parent, title, QFileInfo(start).isDir() ? start : QDir::homePath(), filter);
  dialog->setObjectName(QStringLiteral("FileDialog"));
  dialog->setOption(QFileDialog::DontUseNativeDialog);
  dialog->setFileMode(mode);
  const bool chosen = dialog->exec() == QDialog::Accepted && dialog;
  const QStringList paths = chosen ? dialog->selectedFiles() : QStringList();
  delete dialog.data();
  return paths;
}

} // namespace

QWidget *QtUserPrompt::ParentNow() const {
  QWidget *active = QApplication::activeWindow();
  return active ? active : m_parent.data();
}

// The boxes live on the heap behind guarded pointers: the window under a box may go while it is open, and takes the box
// with it.

void QtUserPrompt::Message(MessageKind kind, const QString &title, const QString &text) {
  const QPointer<QMessageBox> box = new QMessageBox(ParentNow());
  Prepare(*box, kind, title, text);
  box->addButton(QMessageBox::Ok);
  box->exec();
  delete box.data();
}

int QtUserPrompt::Ask(const QString &title, const QString &text, const QStringList &buttons) {
  const QPointer<QMessageBox> box = new QMessageBox(ParentNow());
  Prepare(*box, MessageKind::Question, title, text);
  QList<QAbstractButton *> offered;
  for (const QString &label : buttons)
    offered.append(box->addButton(label, QMessageBox::AcceptRole));
  if (!offered.isEmpty())
    box->setDefaultButton(static_cast<QPushButton *>(offered.first()));
  // Without an escape button the toolkit would not let a box of several buttons be closed.
  QPushButton *closed = box->addButton(QMessageBox::Cancel);
  closed->hide();
  box->setEscapeButton(closed);
  box->exec();
  if (!box)
    return -1;
  const int pressed = static_cast<int>(offered.indexOf(box->clickedButton()));
  delete box.data();
  return pressed;
}

std::optional<QString> QtUserPrompt::AskText(const QString &title, const QString &text, const QString &now) {
  const QPointer<QInputDialog> dialog = new QInputDialog(ParentNow());
  dialog->setObjectName(QStringLiteral("TextDialog"));
  dialog->setWindowTitle(title);
  dialog->setLabelText(text);
  dialog->setTextValue(now);
  dialog->resize(LineWidth, dialog->sizeHint().height());
  if (auto *field = dialog->findChild<QLineEdit *>()) {
    field->setObjectName(QStringLiteral("Text"));
    field->setAccessibleName(text);
    field->selectAll();
  }
  for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>())
    button->setIcon(QIcon()); // of the desktop's theme, in other colours than ours
  const bool given = dialog->exec() == QDialog::Accepted && dialog;
  const QString line = given ? dialog->textValue() : QString();
  delete dialog.data();
  if (!given)
    return std::nullopt;
  return line;
}

QString QtUserPrompt::OpenFile(const QString &title, const QString &folder, const QString &filter) {
  return ChooseFiles(ParentNow(), title, folder, filter, QFileDialog::ExistingFile).value(0);
}

QStringList QtUserPrompt::OpenFiles(const QString &title, const QString &folder, const QString &filter) {
  return ChooseFiles(ParentNow(), title, folder, filter, QFileDialog::ExistingFiles);
}

std::optional<qint32> QtUserPrompt::PickColour(const QString &title, qint32 now) {
  const QColor start(now & 0xff, (now >> 8) & 0xff, (now >> 16) & 0xff);
  const QPointer<QColorDialog> dialog = new QColorDialog(start, ParentNow());
  dialog->setObjectName(QStringLiteral("ColorDialog"));
  dialog->setWindowTitle(title);
  dialog->setOption(QColorDialog::DontUseNativeDialog);
  // The one field that takes a colour as a text; the others belong to spin boxes.
  const QList<QLineEdit *> fields = dialog->findChildren<QLineEdit *>();
  for (QLineEdit *field : fields)
    if (!qobject_cast<QAbstractSpinBox *>(field->parentWidget()))
      field->setObjectName(QStringLiteral("Html"));
  const bool chosen = dialog->exec() == QDialog::Accepted && dialog;
  const QColor colour = chosen ? dialog->selectedColor() : QColor();
  delete dialog.data();
  if (!colour.isValid())
    return std::nullopt;
  return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

} // namespace tolmira
