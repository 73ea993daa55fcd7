#include "bible/ui/passage_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

constexpr int LinhasDoVersiculo = 5; // room for the longest verse

} // namespace

PassageBar::PassageBar(const BibleDoors &doors, QWidget *window) : QWidget(window), m_doors(doors) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Gap);

  m_text = new QLabel(this);
  m_text->setObjectName(QStringLiteral("LbVersiculo"));
  m_text->setTextFormat(Qt::PlainText);
  m_text->setWordWrap(true);
  m_text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  m_text->setFixedHeight(m_text->fontMetrics().lineSpacing() * LinhasDoVersiculo);
  column->addWidget(m_text);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [this, row](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    made->setToolTip(tip);
    row->addWidget(made);
    return made;
  };
  connect(button("Command1", tr("&Add to the agenda"), tr("Puts the verse into the agenda")), &QPushButton::clicked, this,
          &PassageBar::AddWanted);
  connect(button("Command3", tr("&Show"), tr("Shows the verse on the projection")), &QPushButton::clicked, this,
          &PassageBar::ShowWanted);
  m_message = new QLabel(this);
  m_message->setObjectName(QStringLiteral("Label2"));
  m_message->setTextFormat(Qt::PlainText);
  row->addWidget(m_message, 1);
  m_hint = new QLabel(this);
  m_hint->setObjectName(QStringLiteral("LbCtrlEnter"));
  m_hint->setProperty("look", QStringLiteral("quiet"));
  row->addWidget(m_hint);
  column->addLayout(row);
}

void PassageBar::SetText(const QString &text) { m_text->setText(text); }
void PassageBar::SetHint(const QString &hint) { m_hint->setText(hint); }
void PassageBar::ClearMessage() { m_message->clear(); }

void PassageBar::Add(const QString &reference) {
  if (reference.isEmpty())
    return;
  QString message;
  m_doors.console.PorNaLista(reference, 1, reference, message);
  m_message->setText(message);
}

void PassageBar::Show(QString reference) {
  if (m_doors.biblia.GetVerse(reference).isEmpty())
    return;
  m_message->clear();
  QWidget *focus = window()->focusWidget();
  m_doors.console.cancelaWMP();
  m_doors.console.exibirPassagem(reference);
  window()->activateWindow();
  if (focus)
    focus->setFocus();
}

} // namespace tolmira
