#include "captions/caption_settings.h"

#include "foundation/ini_text.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

#include <algorithm>

namespace tolmira {

namespace {

const QString Secao = QStringLiteral("Legendas");
const QString SecaoBiblia = QStringLiteral("Legendas Bíblia");
const QString SecaoLetras = QStringLiteral("Legendas Letras");
const QString ChavePorta = QStringLiteral("porta");
const QString ChaveStartOnLoad = QStringLiteral("startOnLoad");
constexpr QStringView Arquivo = u"\\Data\\Config.dat";

QString Logico(bool valor) {
  return valor ? QStringLiteral("True") : QStringLiteral("False");
}
QString Peso(bool negrito) {
  return negrito ? QStringLiteral("bold") : QStringLiteral("normal");
}

// Reads the keys of one section; a field holds its default before.
class Leitor {
public:
  Leitor(const IniSnapshot &ini, const QString &secao) : m_ini(ini), m_secao(secao) {}

  void operator()(const char *chave, QString &valor) const { valor = Le(chave, valor); }
  void operator()(const char *chave, bool &valor) const {
    valor = Le(chave, Logico(valor)).compare(u"True", Qt::CaseInsensitive) == 0;
  }
  void operator()(const char *chave, int &valor, int de, int ate) const {
    valor = std::clamp(WholeNumber<int>(Le(chave, QString::number(valor))), de, ate);
  }
  void operator()(const char *chave, double &valor) const { valor = NumericPrefix(Le(chave, NumberText(valor))); }
  void Negrito(const char *chave, bool &valor) const {
    valor = Le(chave, Peso(valor)).compare(u"bold", Qt::CaseInsensitive) == 0;
  }

private:
  QString Le(const char *chave, const QString &padrao) const {
    return m_ini.Read(m_secao, QLatin1String(chave), padrao);
  }

  const IniSnapshot &m_ini;
  const QString &m_secao;
};

// Changes the text of the settings key by key.
class Escritor {
public:
  Escritor(QString &texto, const QString &secao, bool &todas) : m_texto(texto), m_secao(secao), m_todas(todas) {}

  void operator()(const char *chave, const QString &valor) {
    if (const auto novo = WithIniValue(m_texto, m_secao, QLatin1String(chave), valor))
      m_texto = *novo;
    else
      m_todas = false;
  }
  void operator()(const char *chave, bool valor) { (*this)(chave, Logico(valor)); }
  void operator()(const char *chave, int valor, int, int) { (*this)(chave, QString::number(valor)); }
  void operator()(const char *chave, double valor) { (*this)(chave, NumberText(valor)); }
  void Negrito(const char *chave, bool valor) { (*this)(chave, Peso(valor)); }

private:
  QString &m_texto;
  const QString &m_secao;
  bool &m_todas;
};

constexpr int MaiorCor = 0xFFFFFF;
constexpr int MaiorTransparencia = 10;
constexpr int MaiorNumero = 9999; // of styles and alignments; none comes near it

// The keys of both kinds in the order in which they are written. `faz` reads or writes one.
template <class Faz, class Estilo, class Titulo> void Chaves(Faz &&faz, Estilo &e, Titulo &&negritoDoTitulo) {
  faz("estilo", e.estilo, -MaiorNumero, MaiorNumero);
  faz("alinhamento", e.alinhamento, -MaiorNumero, MaiorNumero);
  faz("Contorno", e.Contorno);
  faz("Sombra", e.Sombra);
  faz.Negrito("fontBold", e.fontBold);
  negritoDoTitulo();
  faz("fontColor", e.fontColor, 0, MaiorCor);
  faz("backColor", e.backColor, 0, MaiorCor);
  faz("fontSize", e.fontSize);
  faz("fontName", e.fontName);
  faz("maiusculas", e.maiusculas);
  faz("transparencia", e.transparencia, 0, MaiorTransparencia);
}

template <class Faz, class Biblia> void ChavesDaBiblia(Faz &&faz, Biblia &b) {
  Chaves(faz, b, [&] { faz.Negrito("fontBoldTitulo", b.fontBoldTitulo); });
  faz("fontColorTitulo", b.fontColorTitulo, 0, MaiorCor);
  faz("backColorTitulo", b.backColorTitulo, 0, MaiorCor);
  faz("transparenciaTitulo", b.transparenciaTitulo, 0, MaiorTransparencia);
}

template <class Faz, class Letras> void ChavesDasLetras(Faz &&faz, Letras &l) {
  Chaves(faz, l, [] {});
}

} // namespace

void CarregaLegendas(const IniStore &store, EstadoLegenda &legenda) {
  const IniSnapshot ini(store.App().At(Arquivo));
  const EstadoLegenda padrao;
  legenda.Porta = PortaDoTexto(ini.Read(Secao, ChavePorta, QString::number(padrao.Porta)));
  legenda.StartOnLoad = padrao.StartOnLoad;
  Leitor(ini, Secao)("startOnLoad", legenda.StartOnLoad);
  legenda.Biblia = padrao.Biblia;
  ChavesDaBiblia(Leitor(ini, SecaoBiblia), legenda.Biblia);
  legenda.Letras = padrao.Letras;
  ChavesDasLetras(Leitor(ini, SecaoLetras), legenda.Letras);
}

bool SalvarLegenda(const IniStore &store, const EstadoLegenda &legenda) {
  const QString arquivo = store.App().At(Arquivo);
  const FileContent content = ReadFileContent(arquivo);
  // What could not be read whole would lose its rest.
  if (content.exists && !content.complete)
    return false;
  const DecodedText old = DecodeText(content.bytes);
  QString texto = old.text;
  bool todas = true;
  Escritor geral(texto, Secao, todas);
  geral("startOnLoad", legenda.StartOnLoad);
  geral("porta", QString::number(legenda.Porta));
  ChavesDaBiblia(Escritor(texto, SecaoBiblia, todas), legenda.Biblia);
  ChavesDasLetras(Escritor(texto, SecaoLetras, todas), legenda.Letras);
  return todas && WriteFileAtomically(arquivo, EncodeText(texto, old.encoding));
}

quint16 PortaDoTexto(const QString &texto) {
  return WholeNumber<quint16>(texto);
}

bool GravaPorta(const IniStore &store, quint16 porta) {
  return store.WriteConfig(Secao, ChavePorta, QString::number(porta));
}

bool GravaStartOnLoad(const IniStore &store, bool ligado) {
  return store.WriteConfig(Secao, ChaveStartOnLoad, Logico(ligado));
}

} // namespace tolmira
