#include "app/control_answer.h"

#include <cmath>
#include <limits>

namespace tolmira {

void RequestReader::Wrong(const QString &what) {
  if (m_error.isEmpty())
    m_error = QStringLiteral("\"%1\" %2").arg(Do(), what);
}

QString RequestReader::Text(const QString &name) {
  if (!Has(name))
    Wrong(QStringLiteral("needs \"%1\"").arg(name));
  return Text(name, QString());
}

QString RequestReader::Text(const QString &name, const QString &fallback) {
  if (!Has(name))
    return fallback;
  if (!Value(name).isString())
    Wrong(QStringLiteral("needs a text as \"%1\"").arg(name));
  return Value(name).toString();
}

int RequestReader::Whole(const QString &name, int lowest, int highest) {
  const double number = Value(name).toDouble(std::numeric_limits<double>::quiet_NaN());
  if (!Has(name))
    Wrong(QStringLiteral("needs \"%1\"").arg(name));
  else if (std::isnan(number) || number != std::floor(number) || number < lowest || number > highest)
    Wrong(QStringLiteral("needs a whole number from %1 to %2 as \"%3\"").arg(lowest).arg(highest).arg(name));
  return m_error.isEmpty() ? static_cast<int>(number) : lowest;
}

bool RequestReader::Flag(const QString &name) {
  if (Has(name) && !Value(name).isBool())
    Wrong(QStringLiteral("needs true or false as \"%1\"").arg(name));
  return Value(name).toBool();
}

} // namespace tolmira
