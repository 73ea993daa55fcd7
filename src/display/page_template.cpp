#include "display/page_template.h"

#include "display/effects.h"
#include "display/text_style.h"
#include "foundation/code_page.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

// The program folder with slashes, for "file:///[apppath]/..." in a template.
QString PastaDoPrograma(const AppFolder &app) {
  return PagePath(app.path()).mid(QStringView(u"file:///").size()).replace(u'\\', u'/');
}

} // namespace

QString Preenchimento::Preenche(const QString &modelo) const {
  QString pagina;
  pagina.reserve(modelo.size() + 4096);
  qsizetype feito = 0;
  for (qsizetype abre = modelo.indexOf(u'['); abre >= 0; abre = modelo.indexOf(u'[', abre + 1)) {
    const qsizetype fecha = modelo.indexOf(u']', abre);
    if (fecha < 0)
      break;
    const auto valor = m_valores.constFind(modelo.mid(abre + 1, fecha - abre - 1));
    if (valor == m_valores.constEnd())
      continue;
    pagina += QStringView(modelo).mid(feito, abre - feito);
    pagina += *valor;
    feito = fecha + 1;
    abre = fecha;
  }
  return pagina + QStringView(modelo).mid(feito);
}

QString LeModelo(const AppFolder &app, const QString &nome) {
  if (nome.isEmpty())
    return QString();
  const FileContent conteudo = ReadFileContent(app.At(QString(u"\\html\\" + nome)));
  const QByteArray bytes = conteudo.complete ? conteudo.bytes : QByteArray();
  QString texto(bytes.size(), Qt::Uninitialized);
  for (qsizetype i = 0; i < bytes.size(); ++i)
    texto[i] = CharacterOfByte(static_cast<unsigned char>(bytes[i]));
  return texto;
}

void GravaPagina(const QString &caminho, const QString &texto) { WriteFileAtomically(caminho, EncodePage(texto)); }

// As it is stored wherever the engine opens it so.
QString EnderecoDoArquivo(const QString &caminho) {
  const QString endereco = PagePath(caminho);
  QString valor = endereco == QString(u"file:///" + caminho) ? caminho : endereco;
  // "&" and a letter could be the beginning of a character reference.
  for (qsizetype i = valor.indexOf(u'&'); i >= 0; i = valor.indexOf(u'&', i + 1)) {
    if (i + 1 < valor.size() && valor[i + 1].isLetter())
      valor.insert(i + 1, QStringLiteral("amp;"));
  }
  return valor;
}

QString HtmlDaImagem(const QString &caminho) {
  return u"<div><img class='img efeitos' src='" + EnderecoDoArquivo(caminho) + u"'></div>\r\n";
}

void DefineImagens(Preenchimento &p, const TemaRecord &visual, const CicloDeImagens &ciclo, RandomSource &random) {
  p.Define(u"fximage", EfeitoCycle(visual.Efeito_Imagem_Fx, visual.Efeito_Imagem_FxExtra, random));
  p.Define(u"syncimage", visual.Efeito_Imagem_sync);
  p.Define(u"speedimage", visual.Efeito_Imagem_speed);
  p.Define(u"delayimage", visual.Efeito_Imagem_delay);
  p.Define(u"easingimage",
           visual.Efeito_Imagem_easing.isEmpty() ? QString() : QString(u",easing:" + visual.Efeito_Imagem_easing));
  // A cycle needs two slides, so one picture gets an empty one in front of it.
  p.Define(u"listaImages", ciclo.quantas == 1 ? QString(u"<div></div>" + ciclo.imagens) : ciclo.imagens);
  p.Define(u"primeiraimage", QString::number(ciclo.inicial));
  p.Define(u"stateMoveImage", ciclo.emMovimento ? QStringLiteral("running") : QStringLiteral("paused"));
}

void DefineComum(Preenchimento &p, const AppFolder &app, const TemaRecord &visual, const QString &estadoTela,
                 double escalaDaSombra) {
  p.Define(u"apppath", PastaDoPrograma(app));
  p.Define(u"blur", QString::number(visual.blur));
  p.Define(u"brightness", QString::number(visual.brightness));
  p.Define(u"contrast", QString::number(visual.contrast));
  p.Define(u"saturate", QString::number(visual.saturate));
  p.Define(u"fontname", visual.Font_Name);
  p.Define(u"fontcolor", CorDoTexto(visual.Font_Cor));
  p.Define(u"text-shadow", ContornoTexto(visual) + u',' + SombraTexto(visual, escalaDaSombra) + u';');
  p.Define(u"displayTexto", estadoTela == u"OcultarTexto" ? QStringLiteral("none") : QStringLiteral("block"));
}

} // namespace tolmira
