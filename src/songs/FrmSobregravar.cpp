#include "songs/FrmSobregravar.h"

#include "controls/ui/palette.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

FrmSobregravar::FrmSobregravar(const QString &fileName, QWidget *parent) : QDialog(parent) {
  setObjectName(QStringLiteral("FrmSobregravar"));
  setWindowTitle(QStringLiteral("Tolmira"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Margin);
  auto *question = new QLabel(tr("There is already a file of this name:\n\n%1").arg(fileName), this);
  question->setObjectName(QStringLiteral("Label1"));
  question->setTextFormat(Qt::PlainText);
  question->setWordWrap(true);
  column->addWidget(question);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  row->addStretch(1);
  const auto button = [this, row](const QString &answer, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(answer);
    made->setToolTip(tip);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, [this, answer] {
      m_answer = answer;
      accept();
    });
    return made;
  };
  button(ManterOsDois, tr("&Keep both"), tr("The new file gets another name"))->setDefault(true);
  button(Sobregravar, tr("&Overwrite"), tr("The new file takes the place of the old one"));
  button(Cancelar, tr("Cancel"), tr("Leaves everything as it was (Esc)"));
  column->addLayout(row);
}

QString FrmSobregravar::Pergunta(const QString &fileName, QWidget *parent) {
  const QPointer<FrmSobregravar> box = new FrmSobregravar(fileName, parent);
  box->exec();
  const QString answer = box ? box->Resposta() : Cancelar; // the window under it may have gone and taken it along
  delete box.data();
  return answer;
}

} // namespace tolmira
