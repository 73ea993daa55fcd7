#include "pages/pdf_document.h"

#include "pages/page_picture.h"

#include <cstdio>
#include <poppler-qt6.h>

namespace tolmira {

namespace {

constexpr double PointsPerInch = 72;

void Tell(const QString &message, const QVariant &) {
  std::fputs(message.toUtf8().constData(), stderr);
  std::fputc('\n', stderr);
}

} // namespace

PdfDocument::PdfDocument(const QString &path, const QByteArray &password) {
  Poppler::setDebugErrorFunction(Tell, {});
  m_document = Poppler::Document::load(path, password, password);
  if (m_document) {
    // Before PDF 2.0 passwords were in the document's own eight-bit form, which for most letters is this one.
    if (m_document->isLocked())
      m_document->unlock(QString::fromUtf8(password).toLatin1(), QString::fromUtf8(password).toLatin1());
    m_document->setRenderHint(Poppler::Document::Antialiasing);
    m_document->setRenderHint(Poppler::Document::TextAntialiasing);
  }
}

PdfDocument::~PdfDocument() = default;

bool PdfDocument::IsLocked() const {
  return m_document->isLocked();
}

int PdfDocument::PageCount() const {
  return m_document->numPages();
}

QImage PdfDocument::Draw(int page, const QSize &screen) const {
  const std::unique_ptr<Poppler::Page> drawn = m_document->page(page);
  if (!drawn)
    return {};
  const QSizeF paper = drawn->pageSizeF();
  const QSize size = FitPage(paper, screen);
  if (size.isEmpty())
    return {};
  return drawn->renderToImage(size.width() / paper.width() * PointsPerInch,
                              size.height() / paper.height() * PointsPerInch, 0, 0, size.width(), size.height());
}

} // namespace tolmira
