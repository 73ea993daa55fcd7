#pragma once

#include <QRegularExpression>
#include <QTest>

namespace tolmira::testing {

// For init() of tests that open windows: any warning fails the test, but for what the offscreen desktop says of itself
// whenever a window of fixed size is opened.
inline void FailOnWindowWarnings() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}

} // namespace tolmira::testing
