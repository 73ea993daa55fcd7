#include "themes/web_pictures.h"

#include "foundation/text_utils.h"
#include "web/cut_text.h"

#include <QStringDecoder>
#include <QUrl>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int Colunas = 5; // of a row of the table; where the rows break on the screen is the window's affair
constexpr int ResultadosPorPagina = 16;
constexpr int MaximoDeMarcas = 2000; // that are looked at, whatever stands behind them

const QString MarcaNova2 = QStringLiteral("murl&quot;:&quot;");
const QString MarcaMiniatura = QStringLiteral("turl&quot;:&quot;");
const QString MarcaNova = QStringLiteral("imgurl:&quot;");
const QString MarcaAntiga = QStringLiteral("<a class=\"thumb\" ");

bool EDaWeb(QStringView endereco) {
  if (!endereco.startsWith(u"http", Qt::CaseInsensitive) || endereco.size() > MaiorEndereco)
    return false;
  if (std::any_of(endereco.begin(), endereco.end(), [](QChar c) { return c < u' ' || c == u'\x7f'; }))
    return false;
  const QUrl url(endereco.toString(), QUrl::TolerantMode);
  const bool web = url.scheme() == u"http" || url.scheme() == u"https";
  return url.isValid() && web && !url.host().isEmpty() && url.userInfo().isEmpty();
}

void Guarda(QList<ImagemDaWeb> &imagens, QStringView endereco, QStringView miniatura) {
  if (!EDaWeb(endereco))
    return;
  const QString inteiro = endereco.toString();
  imagens.append({inteiro, EDaWeb(miniatura) ? miniatura.toString() : QString(), NomeDoEndereco(inteiro)});
}

// What stands before the next "&" that is looked for from `procura` on; `fim` becomes its place, -1 when there is none.
QStringView AteOE(QStringView pagina, qsizetype inicio, qsizetype procura, qsizetype &fim) {
  fim = pagina.indexOf(u'&', procura);
  return fim < 0 ? QStringView() : pagina.sliced(inicio, fim - inicio);
}

// An attribute's value, with the entity by which a page writes the "&" of an address; empty when it is longer than an
// address may be. `onde` moves behind it. False when it is not there.
bool Atributo(QStringView pedaco, QStringView nome, qsizetype &onde, QString &valor) {
  constexpr qsizetype MaiorLink = 8 * MaiorEndereco; // it may hold an address with each mark written as three or five
  const qsizetype marca = pedaco.indexOf(nome, onde);
  if (marca < 0)
    return false;
  qsizetype inicio = marca + nome.size();
  if (inicio < pedaco.size() && pedaco[inicio] == u'"')
    ++inicio;
  const qsizetype fim = pedaco.indexOf(u'"', inicio);
  if (fim < 0)
    return false;
  onde = fim + 1;
  valor = fim - inicio <= MaiorLink ? pedaco.sliced(inicio, fim - inicio).toString() : QString();
  valor.replace(QLatin1String("&amp;"), QLatin1String("&"));
  return true;
}

// The link leads to the picture itself, or to a page of the search that is told of it.
QString EnderecoDoLink(const QString &href) {
  static const QString Imagem = QStringLiteral("imgurl=");
  const qsizetype marca = href.indexOf(Imagem);
  if (marca < 0)
    return href;
  const QString resto = href.mid(marca + Imagem.size());
  const qsizetype pagina = resto.indexOf(u"&imgrefurl=");
  return UrlDecodeSplit(resto.left(pagina >= 0 ? pagina : resto.indexOf(u'&')));
}

QString TermoNoEndereco(const QString &termo) {
  const QString curto = termo.left(MaiorTermo).normalized(QString::NormalizationForm_C);
  return QString::fromLatin1(QUrl::toPercentEncoding(curto, " ")).replace(u' ', u'+');
}

// A name in an address is written in UTF-8 for most sites, and in windows-1252 for the others. Marks that turn the
// direction of a text would show an ending that is not the name's.
QString Decodificado(const QString &nome) {
  const QByteArray bytes = QByteArray::fromPercentEncoding(QString(nome).replace(u'+', u' ').toUtf8());
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString texto = utf8(bytes);
  if (utf8.hasError())
    texto = UrlDecodeSplit(nome);
  texto = FixMojibake(texto);
  texto.removeIf([](QChar c) { return c.category() == QChar::Other_Format; });
  return texto;
}

QString NoAtributo(const QString &texto) {
  return EscapeHtml(texto).replace(u'\'', QLatin1String("&#39;")).replace(u'"', QLatin1String("&quot;"));
}

QString Celula(int index, const ImagemDaWeb &imagem) {
  const QString id = QString::number(index) + u'|' + NoAtributo(imagem.endereco);
  const QString &vista = imagem.miniatura.isEmpty() ? imagem.endereco : imagem.miniatura;
  return QStringLiteral("<td width='168' align='center' id=''><a  id='") + id +
         QStringLiteral("' href='javascript:void(0);'><img border='0' id='") + id + QStringLiteral("' src='") +
         NoAtributo(vista) + QStringLiteral("' height='114' width='164'></a></td>");
}

} // namespace

QList<ImagemDaWeb> getUrlImgsBingNew2(QStringView pagina) {
  QList<ImagemDaWeb> imagens;
  qsizetype onde = 0;
  for (int marcas = 0; marcas < MaximoDeMarcas && imagens.size() < MaximoDeImagens; ++marcas) {
    const qsizetype marca = pagina.indexOf(MarcaNova2, onde);
    if (marca < 0)
      break;
    const qsizetype inicio = marca + MarcaNova2.size();
    const QStringView endereco = AteOE(pagina, inicio, inicio, onde);
    if (onde < 0)
      break;
    const qsizetype marcaPequena = pagina.indexOf(MarcaMiniatura, onde);
    QStringView miniatura;
    if (marcaPequena >= 0) {
      const qsizetype pequena = marcaPequena + MarcaMiniatura.size();
      miniatura = AteOE(pagina, pequena, pequena, onde);
    }
    Guarda(imagens, endereco, miniatura);
    if (marcaPequena < 0 || onde < 0)
      break;
  }
  return imagens;
}

QList<ImagemDaWeb> getUrlImgsBingNew(QStringView pagina) {
  constexpr qsizetype Adiante = 4; // the shortest beginning of an address, "http"
  QList<ImagemDaWeb> imagens;
  qsizetype onde = 0;
  for (int marcas = 0; marcas < MaximoDeMarcas && imagens.size() < MaximoDeImagens; ++marcas) {
    const qsizetype marca = pagina.indexOf(MarcaNova, onde);
    if (marca < 0)
      break;
    const qsizetype inicio = marca + MarcaNova.size();
    const QStringView endereco = AteOE(pagina, inicio, inicio + Adiante, onde);
    if (onde < 0)
      break;
    Guarda(imagens, endereco, {});
  }
  return imagens;
}

QList<ImagemDaWeb> getUrlImgsBing(QStringView pagina) {
  QList<ImagemDaWeb> imagens;
  qsizetype marca = pagina.indexOf(MarcaAntiga);
  for (int marcas = 0; marca >= 0 && marcas < MaximoDeMarcas && imagens.size() < MaximoDeImagens; ++marcas) {
    const qsizetype inicio = marca + MarcaAntiga.size();
    marca = pagina.indexOf(MarcaAntiga, inicio);
    const QStringView pedaco = pagina.sliced(inicio, (marca < 0 ? pagina.size() : marca) - inicio);
    qsizetype onde = 0;
    QString href;
    if (!Atributo(pedaco, u"href=", onde, href))
      break;
    QString miniatura;
    const bool vista = Atributo(pedaco, u"src2=", onde, miniatura) || Atributo(pedaco, u"src=", onde, miniatura);
    Guarda(imagens, EnderecoDoLink(href), miniatura);
    if (!vista)
      break;
  }
  return imagens;
}

QList<ImagemDaWeb> ImagensDaPagina(QStringView pagina) {
  if (pagina.contains(MarcaNova2))
    return getUrlImgsBingNew2(pagina);
  if (pagina.contains(MarcaNova))
    return getUrlImgsBingNew(pagina);
  return getUrlImgsBing(pagina);
}

QString CaminhoDaPesquisa(const QString &termo, int pagina) {
  const QString t = TermoNoEndereco(termo);
  const qint64 first = pagina <= 0 ? 1 : qint64(pagina) * ResultadosPorPagina;
  return QStringLiteral("/images/search?q=") + t + QStringLiteral("&qs=n&form=QBIR&pq=") + t +
         QStringLiteral("&first=") + QString::number(first) + QStringLiteral("&count=20");
}

QString CriaPagina(const QList<ImagemDaWeb> &imagens) {
  QString pagina = QStringLiteral("<html oncontextmenu='return false;'><head><Title></Title></head>"
                                  "<table border='0' collspacing='0'>");
  const int total = static_cast<int>(imagens.size());
  for (int linha = 0; linha < total; linha += Colunas) {
    pagina += QStringLiteral("<tr height='118'>");
    for (int index = linha; index < linha + Colunas; ++index)
      pagina += index < total ? Celula(index, imagens[index])
                              : QStringLiteral("<td width='168' align='center' id='nulo'>"
                                               "<a  id='nulo' href='javascript:void(0);'></a></td>");
    pagina += QStringLiteral("</tr>");
  }
  return pagina + QStringLiteral("</table></body></html>");
}

QString PaginaDaPrevia(const ImagemDaWeb &imagem) {
  return QStringLiteral("<html><body class='previa'><img alt='%1' src='%2'></body></html>")
      .arg(NoAtributo(QObject::tr("The picture cannot be loaded from its site.")), NoAtributo(imagem.endereco));
}

ResultadoClicado LeIdDoResultado(const QString &id) {
  const qsizetype barra = id.indexOf(u'|');
  bool numero = false;
  const int index = QStringView(id).left(qMax<qsizetype>(0, barra)).toInt(&numero);
  if (!numero || index < 0)
    return {};
  return {index, id.mid(barra + 1)};
}

QString NomeDoEndereco(const QString &endereco) {
  const auto antesDe = [](const QString &texto, QChar marca) { return texto.left(texto.indexOf(marca)); };
  QString nome = NomeSeguro(Decodificado(FileNameOf(antesDe(antesDe(endereco, u'?'), u'#'))));
  if (nome.isEmpty())
    nome = QStringLiteral("image");
  return nome.contains(u'.') ? nome : nome + QStringLiteral(".jpg");
}

} // namespace tolmira
