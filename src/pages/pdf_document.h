#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <memory>

namespace Poppler {
class Document;
}

namespace tolmira {

// A PDF whose pages are drawn.
class PdfDocument {
public:
  PdfDocument(const QString &path, const QByteArray &password);
  ~PdfDocument();

  bool IsOpen() const { return m_document != nullptr; }
  bool IsLocked() const; // by a password that is not the one given
  int PageCount() const;
  // The page (from 0) at the largest size that fits into `screen`, upright, on white; null when it cannot be drawn.
  // However large its paper claims to be, no more than that many pixels are made.
  QImage Draw(int page, const QSize &screen) const;

private:
  std::unique_ptr<Poppler::Document> m_document;
};

} // namespace tolmira
