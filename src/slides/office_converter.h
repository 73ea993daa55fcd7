#pragma once

#include "slides/limited_process.h"

namespace tolmira {

// Has LibreOffice make a PDF of a presentation: without windows, with a profile of its own that lasts as long as the
// work, without macros and without fetching what the presentation names elsewhere.
class OfficeConverter : public QObject {
  Q_OBJECT

public:
  enum class Problema { SemPrograma, Recusou, Demorou, Disco };

  explicit OfficeConverter(QObject *parent = nullptr);

  // The program where it is installed, as a real path; else empty.
  static QString Programa();

  // `arquivo` lies in `pasta`, which exists and is ours alone: LibreOffice puts a lock beside what it reads. Real
  // paths.
  void Comeca(const QString &programa, const QString &arquivo, const QString &pasta);
  void Para();
  bool Roda() const { return m_processo.Roda(); }

  int prazoMs = 5 * 60'000;

signals:
  void Terminou(const QString &pdf); // one of these two is last
  void Falhou(tolmira::OfficeConverter::Problema problema);

private:
  void Acabou(LimitedProcess::Fim fim, int codigo);

  LimitedProcess m_processo;
  QString m_pdf;
};

} // namespace tolmira
