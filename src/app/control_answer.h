#pragma once

#include <QJsonObject>
#include <QString>

namespace tolmira {

// What a request of the control interface came to: fields for the answer, or one sentence of error.
struct ControlAnswer {
  QJsonObject fields;
  QString error;

  static ControlAnswer Ok(QJsonObject fields = {}) { return {std::move(fields), {}}; }
  static ControlAnswer Failed(const QString &error) { return {{}, error}; }
  bool Good() const { return error.isEmpty(); }
};

// The parameters of one request, with their types. The first one that is missing or of another type is kept as the
// error, so that a handler reads all it needs and looks once.
class RequestReader {
public:
  explicit RequestReader(const QJsonObject &request) : m_request(request) {}

  QString Do() const { return m_request.value(QStringLiteral("do")).toString(); }
  bool Has(const QString &name) const { return m_request.contains(name); }
  QJsonValue Value(const QString &name) const { return m_request.value(name); }

  QString Text(const QString &name);
  QString Text(const QString &name, const QString &fallback); // absent gives the fallback, another type is an error
  int Whole(const QString &name, int lowest, int highest);
  bool Flag(const QString &name); // absent is false

  const QString &Error() const { return m_error; }

private:
  void Wrong(const QString &what);
  const QJsonObject &m_request;
  QString m_error;
};

} // namespace tolmira
