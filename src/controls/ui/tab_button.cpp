#include "controls/ui/tab_button.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

// "&" in a user's title is a letter and stands twice in the caption, where one would mark a mnemonic.
QString Typed(QString shown) { return shown.replace(QStringLiteral("&&"), QStringLiteral("&")); }

} // namespace

TabButton::TabButton(QWidget *parent) : FlatButton(parent) {
  setCheckable(true);
  setProperty("look", QStringLiteral("tab"));
}

void TabButton::BeginRename() {
  if (m_editor)
    return;
  m_editor = new QLineEdit(Typed(text()), this);
  m_editor->setObjectName(objectName() + QStringLiteral("Editor"));
  m_editor->setAccessibleName(tr("Title of the agenda"));
  m_editor->setStyleSheet(QStringLiteral("padding: 0 4px; min-height: 0;"));
  m_editor->setGeometry(rect());
  m_editor->installEventFilter(this);
  m_editor->selectAll();
  m_editor->show();
  m_editor->setFocus();
}

void TabButton::EndRename(bool keep) {
  if (!m_editor)
    return;
  QLineEdit *editor = m_editor;
  m_editor = nullptr;
  const QString title = editor->text().trimmed();
  const bool hadFocus = editor->hasFocus();
  editor->removeEventFilter(this);
  editor->hide();
  editor->deleteLater();
  if (hadFocus)
    setFocus();
  if (keep && title != Typed(text()))
    emit Renamed(title);
}

void TabButton::mouseDoubleClickEvent(QMouseEvent *event) {
  FlatButton::mouseDoubleClickEvent(event);
  setDown(false);
  BeginRename();
}

void TabButton::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_F2)
    BeginRename();
  else
    FlatButton::keyPressEvent(event);
}

void TabButton::resizeEvent(QResizeEvent *event) {
  FlatButton::resizeEvent(event);
  if (m_editor)
    m_editor->setGeometry(rect());
}

bool TabButton::eventFilter(QObject *watched, QEvent *event) {
  if (watched != m_editor)
    return FlatButton::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
      EndRename(key != Qt::Key_Escape);
      return true;
    }
  } else if (event->type() == QEvent::FocusOut &&
             static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason) {
    EndRename(true);
  }
  return false;
}

TabRow::TabRow(QWidget *parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TabRow::AddTab(TabButton *tab) {
  tab->setParent(this);
  m_tabs.append(tab);
  updateGeometry();
}

QSize TabRow::sizeHint() const { return {200, medidas::Control + 4}; }
QSize TabRow::minimumSizeHint() const { return sizeHint(); }

void TabRow::resizeEvent(QResizeEvent *) { Arrange(); }

void TabRow::Arrange() {
  const int count = int(m_tabs.size());
  if (count == 0)
    return;
  constexpr int gap = 2;
  const int room = width() - gap * (count - 1);
  const int share = room / count;
  int chosen = -1;
  bool allFit = true;
  for (int i = 0; i < count; ++i) {
    if (m_tabs[i]->isChecked())
      chosen = i;
    allFit = allFit && m_tabs[i]->sizeHint().width() <= share;
  }
  int wide = share;
  if (!allFit && chosen >= 0)
    wide = qBound(share, m_tabs[chosen]->sizeHint().width(), room / 2);
  const int narrow = count > 1 ? (room - wide) / (count - 1) : room;
  int x = 0;
  for (int i = 0; i < count; ++i) {
    const bool last = i == count - 1;
    const int w = last ? width() - x : (i == chosen ? wide : narrow);
    m_tabs[i]->setGeometry(x, 0, w, height());
    x += w + gap;
  }
}

} // namespace tolmira
