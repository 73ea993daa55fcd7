#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace tolmira {

// What a picture search on the web gives. The texts come from foreign pages: the addresses are checked to be addresses
// of the web, and the name is safe as that of a file.
struct ImagemDaWeb {
  QString endereco;  // of the picture at its full size
  QString miniatura; // address of a small form of it; empty when the page tells none
  QString nome;      // of its file, always with an extension
  friend bool operator==(const ImagemDaWeb &, const ImagemDaWeb &) = default;
};

// Bounds of what one page can make the program keep and draw. Together they keep the table of results, with every mark
// of it escaped, below what a WebResultView takes; a further page begins 16 pictures on anyway.
inline constexpr qsizetype MaximoDeImagens = 50;
inline constexpr qsizetype MaiorEndereco = 1000; // characters; a picture with a longer one is passed over
inline constexpr qsizetype MaiorTermo = 200;     // characters of a search

// The three forms of the search's page, the oldest first. Each stops at the first place where it finds something
// missing.
QList<ImagemDaWeb> getUrlImgsBing(QStringView pagina);
QList<ImagemDaWeb> getUrlImgsBingNew(QStringView pagina);
QList<ImagemDaWeb> getUrlImgsBingNew2(QStringView pagina);
// By the form whose marker is there, the newest first.
QList<ImagemDaWeb> ImagensDaPagina(QStringView pagina);

// Path and query of one page of a search; pages count from 0.
QString CaminhoDaPesquisa(const QString &termo, int pagina);

// The table of results; LeIdDoResultado takes the ids of its links apart.
QString CriaPagina(const QList<ImagemDaWeb> &imagens);
// The picture by itself.
QString PaginaDaPrevia(const ImagemDaWeb &imagem);

// "index|address" of a link, taken apart. The index is -1 when it is none.
struct ResultadoClicado {
  int index = -1;
  QString endereco;
};
ResultadoClicado LeIdDoResultado(const QString &id);

// The name that a picture gets from its address: the part behind the last "/", decoded and made safe, with ".jpg" where
// it has no extension.
QString NomeDoEndereco(const QString &endereco);

} // namespace tolmira
