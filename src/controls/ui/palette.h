#pragma once

#include <QPalette>
#include <QRgb>
#include <QString>

class QApplication;
class QWidget;

namespace tolmira {

// The one palette of every window. No other file names a colour; the small pictures that the style sheet loads by
// address carry theirs inside, and a test holds them to this list.
namespace cores {
inline constexpr QRgb Desk = 0xff16181d;
inline constexpr QRgb Panel = 0xff1e2128;
inline constexpr QRgb Raised = 0xff262a33;
inline constexpr QRgb Hover = 0xff2f3440;
inline constexpr QRgb Line = 0xff343a46;
inline constexpr QRgb Text = 0xffe8eaf0;
inline constexpr QRgb Quiet = 0xff9aa3b2;    // second-rank text, 6 to 1 on a panel
inline constexpr QRgb Faint = 0xff666f7f;    // what is disabled
inline constexpr QRgb Accent = 0xff4f9cf9;
inline constexpr QRgb Selection = 0xff23456f; // the accent, dark enough to carry text
inline constexpr QRgb Live = 0xff35c26b;
inline constexpr QRgb Held = 0xfff2b33d;
inline constexpr QRgb Off = 0xffe5484d;
} // namespace cores

// Pixels of the layout grid.
namespace medidas {
inline constexpr int Step = 4;
inline constexpr int Gap = 8;
inline constexpr int Margin = 12;
inline constexpr int Corner = 6;
inline constexpr int Control = 30; // height of buttons, boxes and rows
inline constexpr int Icon = 18;
inline constexpr int Heading = 24; // line above a block
} // namespace medidas

QPalette DeskPalette();
QString DeskStyleSheet();

// Style, palette, fonts and style sheet of the whole program. Once, before the first window.
void ApplyLook(QApplication &app);

// Sets a property that the style sheet selects on ("look", "state") and lets the widget take its new form.
void SetLook(QWidget *widget, const char *property, const QString &value);

} // namespace tolmira
