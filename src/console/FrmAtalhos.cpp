#include "console/FrmAtalhos.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include "console/key_sheet.h"
#include "controls/ui/palette.h"
#include "controls/ui/spoken_role.h"

namespace tolmira {

namespace {

constexpr int Colunas = 2;
constexpr QSize Menor{480, 320}; // px; what does not fit is scrolled to

QWidget *MakeGroup(const GrupoDeAtalhos &grupo, QWidget *parent) {
  auto *block = new QWidget(parent);
  auto *grid = new QGridLayout(block);
  grid->setContentsMargins(0, 0, 0, medidas::Gap);
  grid->setHorizontalSpacing(medidas::Margin);
  grid->setVerticalSpacing(medidas::Step);
  auto *title = new QLabel(grupo.titulo, block);
  title->setProperty("look", QStringLiteral("caps"));
  grid->addWidget(title, 0, 0, 1, 2);
  int row = 1;
  for (const Atalho &atalho : grupo.atalhos) {
    auto *keys = new QLabel(atalho.teclas, block);
    keys->setProperty("look", QStringLiteral("key"));
    grid->addWidget(keys, row, 0);
    grid->addWidget(new QLabel(TextoDaFolha(atalho), block), row++, 1);
  }
  grid->setColumnMinimumWidth(0, 132);
  grid->setColumnStretch(1, 1);
  return block;
}

} // namespace

FrmAtalhos::FrmAtalhos(QWidget *console) : QDialog(console) {
  setObjectName(QStringLiteral("FrmAtalhos"));
  setWindowTitle(tr("Keyboard Shortcuts"));
  setMinimumSize(Menor);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  auto *area = new QScrollArea(this);
  SetSpokenRole(area, QAccessible::Grouping);
  area->setToolTip(tr("Up and Down scroll where the window is small"));
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setAccessibleName(windowTitle());
  auto *sheet = new QWidget;
  auto *columns = new QHBoxLayout(sheet);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(2 * medidas::Margin);
  QVBoxLayout *halves[Colunas];
  for (QVBoxLayout *&half : halves) {
    half = new QVBoxLayout;
    half->setSpacing(medidas::Gap);
    columns->addLayout(half, 1);
  }
  // Groups fill the first column until half of the lines are in it.
  size_t lines = 0;
  size_t placed = 0;
  for (const GrupoDeAtalhos &grupo : FolhaDeAtalhos())
    lines += grupo.atalhos.size() + 1;
  for (const GrupoDeAtalhos &grupo : FolhaDeAtalhos()) {
    halves[2 * placed < lines ? 0 : 1]->addWidget(MakeGroup(grupo, sheet));
    placed += grupo.atalhos.size() + 1;
  }
  for (QVBoxLayout *half : halves)
    half->addStretch(1);
  area->setWidget(sheet);
  column->addWidget(area, 1);

  auto *close = new QPushButton(tr("&Close"), this);
  close->setObjectName(QStringLiteral("BtFechar"));
  close->setToolTip(tr("Closes the sheet (Esc)"));
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  column->addWidget(close, 0, Qt::AlignRight);
  const QMargins around = column->contentsMargins();
  const QSize whole(sheet->sizeHint().width() + around.left() + around.right() + 16,
                    sheet->sizeHint().height() + close->sizeHint().height() + medidas::Gap + around.top() +
                        around.bottom() + 4);
  resize(whole.boundedTo(screen()->availableGeometry().size() - QSize(40, 60)).expandedTo(Menor));
}

void FrmAtalhos::Open() {
  if (isVisible()) {
    close();
    return;
  }
  show();
  raise();
  activateWindow();
}

void FrmAtalhos::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_F1)
    close();
  else
    QDialog::keyPressEvent(event);
}

} // namespace tolmira
