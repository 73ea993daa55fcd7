#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QtTest>

namespace tolmira::testing {

// Fails the running test where the file cannot be written. Makes the folders above it.
inline void WriteBytes(const QString &path, const QByteArray &bytes) {
  QVERIFY2(QDir().mkpath(QFileInfo(path).path()), qPrintable(path));
  QFile file(path);
  QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
  QCOMPARE(file.write(bytes), bytes.size());
}

// "<missing>" where there is nothing to read.
inline QByteArray ReadBytes(const QString &path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

} // namespace tolmira::testing
