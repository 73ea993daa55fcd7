#include "console/FrmSobre.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <vector>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

struct Parte {
  QString nome;
  QString uso;
  QString licenca;
};

std::vector<Parte> Partes() {
  return {{QStringLiteral("Qt"), QObject::tr("windows and the engine's frame"), QStringLiteral("LGPL-3.0")},
          {QStringLiteral("Qt WebEngine, Chromium"), QObject::tr("the projection's pages"),
           QStringLiteral("LGPL-3.0, BSD-3-Clause and others")},
          {QStringLiteral("libmpv, FFmpeg"), QObject::tr("videos"), QStringLiteral("GPL-2.0 or later")},
          {QStringLiteral("Hunspell"), QObject::tr("spelling"), QStringLiteral("LGPL-2.1, GPL-2.0 or MPL-1.1")},
          {QStringLiteral("jQuery, jQuery Cycle"), QObject::tr("pictures in the pages"), QStringLiteral("MIT")},
          {QStringLiteral("Animate.css"), QObject::tr("effects in the pages"), QStringLiteral("MIT")},
          {QStringLiteral("Liberation Fonts"), QObject::tr("letters"), QStringLiteral("SIL OFL 1.1")},
          {QStringLiteral("SWORD"), QObject::tr("import of Bibles, a program of its own"), QStringLiteral("GPL-2.0")}};
}

} // namespace

FrmSobre::FrmSobre(const MotorDoPrograma &motor, QWidget *console) : QDialog(console) {
  setObjectName(QStringLiteral("FrmSobre"));
  setWindowTitle(QStringLiteral("About Quendar Vaelis"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(2 * medidas::Margin, 2 * medidas::Margin, 2 * medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  const auto label = [this](const QString &text, const char *look = nullptr) {
    auto *made = new QLabel(text, this);
    made->setTextFormat(Qt::PlainText);
    if (look)
      made->setProperty("look", QLatin1String(look));
    return made;
  };
  column->addWidget(label(QStringLiteral("Tolmira"), "title"));
  QLabel *version = label(tr("Version %1").arg(QStringLiteral(TOLMIRA_VERSION)));
  version->setObjectName(QStringLiteral("LbVersaoDoPrograma"));
  column->addWidget(version);
  column->addWidget(label(tr("Songs, Bible passages and pictures for a service, verse by verse."), "quiet"));

  column->addSpacing(medidas::Gap);
  column->addWidget(label(tr("Engine"), "caps"));
  auto *engine = new QFormLayout;
  engine->setHorizontalSpacing(medidas::Margin);
  engine->setVerticalSpacing(medidas::Step);
  const auto line = [&](const QString &name, const QString &value) {
    if (!value.isEmpty())
      engine->addRow(label(name, "quiet"), label(value));
  };
  line(QStringLiteral("Qt"), motor.qt);
  line(QStringLiteral("Qt WebEngine"),
       motor.chromium.isEmpty() ? motor.webEngine : tr("%1, Chromium %2").arg(motor.webEngine, motor.chromium));
  line(QStringLiteral("mpv"), motor.mpv);
  line(tr("Drawing"), motor.desenho);
  column->addLayout(engine);

  column->addSpacing(medidas::Gap);
  column->addWidget(label(tr("What it is built on, and under which licences"), "caps"));
  auto *parts = new QGridLayout;
  parts->setHorizontalSpacing(medidas::Margin);
  parts->setVerticalSpacing(medidas::Step);
  int row = 0;
  for (const Parte &parte : Partes()) {
    parts->addWidget(label(parte.nome), row, 0);
    parts->addWidget(label(parte.uso, "quiet"), row, 1);
    parts->addWidget(label(parte.licenca), row++, 2);
  }
  column->addLayout(parts);
  QLabel *where = label(tr("On Debian the full texts of these licences are in /usr/share/doc and "
                           "/usr/share/common-licenses."),
                        "quiet");
  where->setWordWrap(true);
  column->addWidget(where);

  column->addStretch(1);
  auto *close = new QPushButton(tr("&Close"), this);
  close->setObjectName(QStringLiteral("BtFechar"));
  close->setToolTip(tr("Closes the window (Esc)"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  column->addWidget(close, 0, Qt::AlignRight);
}

} // namespace tolmira
