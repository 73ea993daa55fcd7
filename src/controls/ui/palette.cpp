#include "controls/ui/palette.h"

#include <QApplication>
#include <QColor>
#include <QStyle>
#include <QStyleFactory>
#include <QVariant>
#include <QWidget>

#include <utility>

static void LoadIconResources() { Q_INIT_RESOURCE(tolmira_icons); }

namespace tolmira {

namespace {

QString Hex(QRgb colour) { return QColor(colour).name(); }

} // namespace

QPalette DeskPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(cores::Desk));
  palette.setColor(QPalette::WindowText, QColor(cores::Text));
  palette.setColor(QPalette::Base, QColor(cores::Panel));
  palette.setColor(QPalette::AlternateBase, QColor(cores::Raised));
  palette.setColor(QPalette::Text, QColor(cores::Text));
  palette.setColor(QPalette::PlaceholderText, QColor(cores::Quiet));
  palette.setColor(QPalette::Button, QColor(cores::Raised));
  palette.setColor(QPalette::ButtonText, QColor(cores::Text));
  palette.setColor(QPalette::BrightText, QColor(cores::Off));
  palette.setColor(QPalette::ToolTipBase, QColor(cores::Raised));
  palette.setColor(QPalette::ToolTipText, QColor(cores::Text));
  palette.setColor(QPalette::Highlight, QColor(cores::Selection));
  palette.setColor(QPalette::HighlightedText, QColor(cores::Text));
  palette.setColor(QPalette::Link, QColor(cores::Accent));
  palette.setColor(QPalette::Light, QColor(cores::Hover));
  palette.setColor(QPalette::Midlight, QColor(cores::Raised));
  palette.setColor(QPalette::Mid, QColor(cores::Line));
  palette.setColor(QPalette::Dark, QColor(cores::Desk));
  palette.setColor(QPalette::Shadow, QColor(cores::Desk));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(cores::Faint));
  return palette;
}

// Boxes for text take their colour from the palette: a sheet that gives one also makes it half transparent for their
// hints, which are too faint then.
QString DeskStyleSheet() {
  QString sheet = QStringLiteral(R"(
QToolTip { background: @raised; color: @text; border: 1px solid @line; padding: 4px 6px; }

QProgressBar { background: @raised; border: 1px solid @line; border-radius: 4px; min-height: 8px; max-height: 8px; }
QProgressBar::chunk { background: @accent; border-radius: 3px; }

QMenuBar { background: @desk; color: @text; padding: 2px 4px; }
QMenuBar::item { padding: 5px 10px; border-radius: 6px; background: transparent; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: @hover; }
QMenu { background: @raised; color: @text; border: 1px solid @line; padding: 4px; }
QMenu::item { padding: 6px 28px 6px 12px; border-radius: 4px; }
QMenu::item:selected { background: @selection; }
QMenu::item:disabled { color: @faint; background: transparent; }
QMenu::icon { padding-left: 8px; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
QMenu::right-arrow { image: url(:/tolmira/icons/indicator-right.svg); width: 14px; height: 14px; }

QFrame[look="panel"] { background: @panel; border: 1px solid @line; border-radius: 6px; }
QFrame[look="screen"] { background: @desk; border: 1px solid @line; border-radius: 0; }
QFrame[look="hint"] { background: @raised; border: 1px solid @line; border-radius: 6px; }
QLabel[look="title"] { font-size: 13pt; font-weight: 600; }
QLabel[look="empty-title"] { font-size: 13pt; color: @quiet; }
QLabel[look="quiet"] { color: @quiet; }
QLabel[look="quiet"][state="live"] { color: @live; }
QLabel[look="quiet"][state="held"] { color: @held; }
QLabel[look="key"] { color: @accent; }
QLabel[look="caps"] { color: @quiet; font-weight: 600; }
QLabel:disabled { color: @faint; }

QLabel[look="banner"] { border-radius: 6px; border: 2px solid @line; background: @panel; color: @quiet;
  font-size: 15pt; font-weight: 700; padding: 0 8px; }
QLabel[look="banner"][scale="large"] { font-size: 22pt; }
QLabel[look="banner"][scale="huge"] { font-size: 44pt; }
QLabel[look="banner"][state="live"] { background: @live; border-color: @live; color: @desk; }
QLabel[look="banner"][state="ready"] { background: @desk; border-color: @live; color: @live; }
QLabel[look="banner"][state="held"] { background: @held; border-color: @held; color: @desk; }
QLabel[look="banner"][state="off"] { background: @off; border-color: @off; color: @desk; }

QPushButton { background: @raised; color: @text; border: 1px solid @line; border-radius: 6px; padding: 0 10px;
  min-height: 28px; }
QPushButton:hover { background: @hover; }
QPushButton:pressed { background: @line; }
QPushButton:focus { border-color: @accent; }
QPushButton:checked { background: @selection; border-color: @accent; }
QPushButton:disabled { color: @faint; background: @panel; border-color: @line; }
QPushButton[look="flat"] { background: transparent; border-color: transparent; }
QPushButton[look="flat"]:hover { background: @hover; }
QPushButton[look="flat"]:focus { border-color: @accent; }
QPushButton[look="main"] { background: @accent; border-color: @accent; color: @desk; font-weight: 600; }
QPushButton[look="main"]:hover { background: @accent; border-color: @text; }
QPushButton[look="main"]:focus { border-color: @text; }
QPushButton[look="main"]:disabled { background: @panel; border-color: @line; color: @faint; font-weight: 400; }
QPushButton[look="tab"] { background: transparent; border: 1px solid transparent; color: @quiet; padding: 0 2px;
  border-bottom: 2px solid transparent; border-radius: 6px; }
QPushButton[look="tab"]:hover { background: @hover; color: @text; }
QPushButton[look="tab"]:checked { background: @raised; color: @text; border-bottom-color: @accent;
  border-bottom-left-radius: 0; border-bottom-right-radius: 0; }
QPushButton[look="tab"]:focus { border: 1px solid @accent; border-bottom-width: 2px; }
QPushButton[look="icon"] { padding: 0; min-width: 34px; max-width: 34px; }

QLineEdit { background: @desk; border: 1px solid @line; border-radius: 6px; padding: 0 8px;
  min-height: 28px; selection-background-color: @selection; }
QLineEdit:focus { border-color: @accent; }
QPlainTextEdit { background: @panel; border: 1px solid @line; border-radius: 6px; padding: 4px;
  font-size: 12pt; selection-background-color: @selection; selection-color: @text; }
QPlainTextEdit:focus { border-color: @accent; }
QLineEdit:disabled { color: @faint; background: @panel; }

QComboBox { background: @raised; color: @text; border: 1px solid @line; border-radius: 6px; padding: 0 2px 0 8px;
  min-height: 28px; }
QComboBox:hover { background: @hover; }
QComboBox:focus { border-color: @accent; }
QComboBox:disabled { color: @faint; background: @panel; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/tolmira/icons/indicator-down.svg); width: 14px; height: 14px; }
QComboBox::down-arrow:disabled { image: url(:/tolmira/icons/indicator-down-off.svg); }
tolmira--FontBox { combobox-popup: 0; }
QComboBox QAbstractItemView { background: @raised; color: @text; border: 1px solid @line; outline: 0; padding: 4px;
  selection-background-color: @selection; selection-color: @text; }

QCheckBox, QRadioButton { spacing: 8px; }
QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid @quiet; border-radius: 8px; background: @desk; }
QRadioButton::indicator:hover, QRadioButton::indicator:focus { border-color: @accent; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid @accent; background: @text; }
QCheckBox:disabled { color: @faint; }
QCheckBox::indicator, QTreeView::indicator { width: 16px; height: 16px; border: 1px solid @quiet; border-radius: 4px; background: @desk; }
QCheckBox::indicator:hover, QCheckBox::indicator:focus, QTreeView::indicator:hover { border-color: @accent; }
QCheckBox::indicator:checked, QTreeView::indicator:checked { background: @accent; border-color: @accent;
  image: url(:/tolmira/icons/indicator-check.svg); }
QCheckBox::indicator:checked:hover, QCheckBox::indicator:checked:focus { border-color: @text; }
QCheckBox::indicator:disabled { border-color: @line; }

QSlider { min-height: 22px; }
QSlider::groove:horizontal { height: 4px; background: @line; border-radius: 2px; }
QSlider::sub-page:horizontal { height: 4px; background: @accent; border-radius: 2px; }
QSlider::handle:horizontal { width: 14px; height: 14px; margin: -5px 0; border-radius: 7px; background: @text; }
QSlider::handle:horizontal:hover { background: @accent; }
QSlider::handle:horizontal:focus { border: 2px solid @accent; width: 12px; height: 12px; margin: -6px 0; border-radius: 8px; }
QSlider::sub-page:horizontal:disabled { background: @faint; }
QSlider::handle:horizontal:disabled { background: @faint; }

QListView { background: transparent; color: @text; border: none; outline: 0; }
QAbstractItemView[look="column"] { background: @panel; color: @text; border: 1px solid @line; border-radius: 6px;
  padding: 4px; outline: 0; selection-background-color: @selection; selection-color: @text; }
QAbstractItemView[look="column"]:focus { border-color: @accent; }
QAbstractItemView[look="column"]::item { padding: 3px 6px; }
QListView[look="column"]::item { border-radius: 4px; }
QTreeView[look="column"]::item { border: 0 solid @panel; }
QTreeWidget[look="column"]::item { padding: 4px 6px; }
QTreeWidget[look="column"] QHeaderView::section { background: @raised; color: @quiet; border: 0 solid @line;
  border-bottom-width: 1px; padding: 5px 6px; }
QAbstractItemView[look="column"]::item:selected { background: @selection; color: @text; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }
QScrollBar::handle:vertical { background: @line; border-radius: 4px; min-height: 28px; margin: 1px; }
QScrollBar::handle:vertical:hover { background: @faint; }
QScrollBar::handle:vertical:disabled { background: transparent; }
QScrollBar:horizontal { background: transparent; height: 10px; margin: 0; }
QScrollBar::handle:horizontal { background: @line; border-radius: 4px; min-width: 28px; margin: 1px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)");
  const std::pair<QLatin1String, QRgb> names[] = {
      {QLatin1String("@desk"), cores::Desk},         {QLatin1String("@panel"), cores::Panel},
      {QLatin1String("@raised"), cores::Raised},     {QLatin1String("@hover"), cores::Hover},
      {QLatin1String("@line"), cores::Line},         {QLatin1String("@text"), cores::Text},
      {QLatin1String("@quiet"), cores::Quiet},       {QLatin1String("@faint"), cores::Faint},
      {QLatin1String("@accent"), cores::Accent},     {QLatin1String("@selection"), cores::Selection},
      {QLatin1String("@live"), cores::Live},         {QLatin1String("@held"), cores::Held},
      {QLatin1String("@off"), cores::Off},
  };
  for (const auto &[name, colour] : names)
    sheet.replace(name, Hex(colour));
  return sheet;
}

void ApplyLook(QApplication &app) {
  LoadIconResources();
  app.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  app.setPalette(DeskPalette());
  QFont font;
  font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("DejaVu Sans")});
  font.setPointSizeF(10);
  font.setHintingPreference(QFont::PreferNoHinting);
  app.setFont(font);
  app.setStyleSheet(DeskStyleSheet());
}

void SetLook(QWidget *widget, const char *property, const QString &value) {
  if (widget->property(property).toString() == value)
    return;
  widget->setProperty(property, value);
  widget->style()->unpolish(widget);
  widget->style()->polish(widget);
  widget->update();
}

} // namespace tolmira
