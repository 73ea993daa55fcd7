#include "console/ui/add_bar.h"

#include <QHBoxLayout>

#include "console/ui/console_parts.h"
#include "controls/ui/desk_icon.h"

namespace tolmira {

namespace {
constexpr int Avisos = 7;
}

AddBar::AddBar(QWidget *parent) : QWidget(parent) {
  struct Face {
    const char *drawing;
    QString caption;
  };
  const Face faces[] = {{"song", tr("&Lyrics")},   {"bible", tr("&Bible")},        {"slides", tr("Sli&des")},
                        {"shows", tr("Sh&ows")},    {"video", tr("&Video")},         {"web", tr("&Web")},
                        {"captions", tr("Ca&ptions")}, {"notices", tr("&Notices")}};
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(medidas::Gap);
  int index = 0;
  for (const Face &face : faces) {
    auto *button = new FlatButton(face.caption, this);
    button->setObjectName(index == Avisos ? QStringLiteral("Command14") : QStringLiteral("BarraAdicionar%1").arg(index));
    m_buttons[static_cast<size_t>(index++)] = button;
    button->setIcon(DeskIcon(QLatin1String(face.drawing)));
    button->setIconSize({medidas::Icon, medidas::Icon});
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setMinimumHeight(medidas::Control + 6);
    QString spoken = face.caption;
    button->setAccessibleName(spoken.remove(u'&'));
    button->setEnabled(false);
    button->setToolTip(AindaNao());
    row->addWidget(button, 1);
  }
}

void AddBar::SetWindow(int index, const QString &tip, std::function<void()> open) {
  FlatButton *button = m_buttons.at(static_cast<size_t>(index));
  button->setEnabled(true);
  button->setToolTip(tip);
  connect(button, &FlatButton::clicked, this, std::move(open));
}

void AddBar::SetCompact(bool compact) {
  for (FlatButton *button : m_buttons)
    button->setMinimumHeight(compact ? medidas::Control : medidas::Control + 6);
}

void AddBar::Press(int index) { m_buttons.at(static_cast<size_t>(index))->click(); }

} // namespace tolmira
