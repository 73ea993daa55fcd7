#include "media/media_time.h"

#include <algorithm>
#include <cmath>

namespace tolmira {

namespace {
constexpr double Longest = 1e9; // seconds; broken files claim more, or no number at all
}

QString TempoDeMidia(double seconds) {
  const auto whole = std::isfinite(seconds) ? static_cast<qint64>(std::clamp(seconds, 0.0, Longest)) : 0;
  const qint64 hours = whole / 3600;
  const QString rest =
      QStringLiteral("%1:%2").arg(whole / 60 % 60, 2, 10, QLatin1Char('0')).arg(whole % 60, 2, 10, QLatin1Char('0'));
  return hours > 0 ? QString(QString::number(hours) + u':' + rest) : rest;
}

} // namespace tolmira
