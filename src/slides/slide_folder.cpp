#include "slides/slide_folder.h"

#include "foundation/real_path.h"
#include "foundation/text_utils.h"

#include <QCollator>
#include <QDir>
#include <algorithm>

namespace tolmira {

namespace {

const QString Extension = QStringLiteral(".sld");

QStringList NomesNaPasta(const AppFolder &app, QStringView pasta, const QString &extensao) {
  QStringList nomes;
  const QDir folder(MapStoredPath(app.At(pasta)).text());
  for (const QString &file : folder.entryList({u'*' + extensao}, QDir::Files | QDir::Hidden))
    if (!file.contains(u'\\')) // no stored path could name it
      nomes.append(file.chopped(extensao.size()));
  QCollator ordem;
  ordem.setCaseSensitivity(Qt::CaseInsensitive);
  ordem.setNumericMode(true);
  std::sort(nomes.begin(), nomes.end(), ordem);
  return nomes;
}

} // namespace

QString CaminhoDoSlide(const AppFolder &app, const QString &nome) {
  return app.At(u"\\Slides\\") + nome + Extension;
}

QStringList ListaDeSlides(const AppFolder &app) { return NomesNaPasta(app, u"\\Slides", Extension); }
QStringList ListaDeSlideShows(const AppFolder &app) {
  return NomesNaPasta(app, u"\\SlideShow", QStringLiteral(".sw"));
}

QStringList SlidesComPalavras(const QStringList &nomes, const QString &palavras) {
  const QStringList procuradas = FoldText(palavras).split(u' ', Qt::SkipEmptyParts);
  QStringList achados;
  for (const QString &nome : nomes) {
    const QString dobrado = FoldText(nome);
    if (std::all_of(procuradas.begin(), procuradas.end(), [&](const QString &p) { return dobrado.contains(p); }))
      achados.append(nome);
  }
  return achados;
}

} // namespace tolmira
