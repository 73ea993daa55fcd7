#include "themes/theme_store.h"

#include "foundation/ini_store.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "themes/thumbnail.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <limits>

namespace tolmira {

namespace {

const QString Separador = QStringLiteral("|");

bool EhNumeroDeTema(int n) {
  return n >= 1 && n <= NumeroDeTemas;
}

QString PrimeiroDaLista(const QString &lista) {
  return SplitField(lista, Separador, 1);
}

// The keys of one theme's section.
class SecaoDoTema {
public:
  SecaoDoTema(const IniSnapshot &ini, int n) : m_ini(ini), m_section(QStringLiteral("Tema-%1").arg(n)) {}

  void Texto(const char16_t *key, QString &field) const { field = Le(key, field); }
  void Ligado(const char16_t *key, bool &field) const {
    field = Le(key, field ? QStringLiteral("1") : QStringLiteral("0")) == u"1";
  }
  // Numbers that are kept as text: what is no number becomes "0".
  void TextoNumerico(const char16_t *key, QString &field) const {
    field = NumberText(std::clamp(NumericPrefix(Le(key, field)), -MaiorNumero, MaiorNumero));
  }
  template <typename Inteiro> void Numero(const char16_t *key, Inteiro &field, double lowest, double highest) const {
    const QString text = Le(key, QString());
    // Only a real number may replace the default: a picture at brightness "abc" would be black.
    if (ComecaComNumero(text))
      field = static_cast<Inteiro>(RoundHalfEven(std::clamp(NumericPrefix(text), lowest, highest)));
  }

private:
  static constexpr double MaiorNumero = std::numeric_limits<qint32>::max();

  static bool ComecaComNumero(const QString &text) {
    const auto digit =
        std::find_if(text.begin(), text.end(), [](QChar c) { return !QStringView(u" +-.").contains(c); });
    return digit != text.end() && *digit >= u'0' && *digit <= u'9';
  }

  QString Le(const char16_t *key, const QString &fallback) const {
    return m_ini.Read(m_section, QString::fromUtf16(key), fallback);
  }

  const IniSnapshot &m_ini;
  const QString m_section;
};

void LeEfeitos(const SecaoDoTema &secao, TemaRecord &tema) {
  secao.Texto(u"Efeito_Imagem_delay", tema.Efeito_Imagem_delay);
  secao.Texto(u"Efeito_Imagem_easing", tema.Efeito_Imagem_easing);
  secao.Texto(u"Efeito_Imagem-Fx", tema.Efeito_Imagem_Fx);
  secao.Texto(u"Efeito_Imagem-FxExtra", tema.Efeito_Imagem_FxExtra);
  secao.Texto(u"Efeito_Imagem_speed", tema.Efeito_Imagem_speed);
  secao.Texto(u"Efeito_Imagem_sync", tema.Efeito_Imagem_sync);
  secao.Texto(u"Efeito_Texto_delay", tema.Efeito_Texto_delay);
  secao.Texto(u"Efeito_Texto_easing", tema.Efeito_Texto_easing);
  secao.Texto(u"Efeito_Texto-Fx", tema.Efeito_Texto_Fx);
  secao.Texto(u"Efeito_Texto-FxExtra", tema.Efeito_Texto_FxExtra);
  secao.Texto(u"Efeito_Texto-FxOut", tema.Efeito_Texto_FxOut);
  secao.Texto(u"Efeito_Texto_speed", tema.Efeito_Texto_speed);
  secao.Texto(u"Efeito_Texto_sync", tema.Efeito_Texto_sync);
  secao.Texto(u"Efeito_Texto_timeout", tema.Efeito_Texto_timeout);
}

void LeFonte(const SecaoDoTema &secao, TemaRecord &tema) {
  secao.Texto(u"Font_Name", tema.Font_Name);
  secao.Ligado(u"Font_Bold", tema.Font_Bold);
  secao.TextoNumerico(u"Font_Cor", tema.Font_Cor);
  secao.Ligado(u"FontSombra_Enabled", tema.FontSombra_Enabled);
  secao.TextoNumerico(u"FontSombra_Right", tema.FontSombra_Right);
  secao.TextoNumerico(u"FontSombra_Down", tema.FontSombra_Down);
  secao.TextoNumerico(u"FontSombra_Blur", tema.FontSombra_Blur);
  secao.Texto(u"FontSombra_Opacity", tema.FontSombra_Opacity);
  secao.TextoNumerico(u"FontSombra_Cor", tema.FontSombra_Cor);
  secao.Ligado(u"FontBorda_Enabled", tema.FontBorda_Enabled);
  secao.TextoNumerico(u"FontBorda_Cor", tema.FontBorda_Cor);
  secao.TextoNumerico(u"FontBorda_Espessura", tema.FontBorda_Espessura);
}

void LeFundo(const SecaoDoTema &secao, TemaRecord &tema) {
  constexpr double lowest = std::numeric_limits<qint16>::min();
  constexpr double highest = std::numeric_limits<qint16>::max();
  secao.Numero(u"brightness", tema.brightness, lowest, highest);
  secao.Numero(u"contrast", tema.contrast, lowest, highest);
  secao.Numero(u"saturate", tema.saturate, lowest, highest);
  secao.Numero(u"blur", tema.blur, lowest, highest);
  secao.Numero(u"CordeFundo", tema.CordeFundo, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
}

} // namespace

ThemeStore::ThemeStore(const AppFolder &app, TabelaTemas &temas) : m_app(app), m_temas(temas) {}

void ThemeStore::LoadTemas(int n) {
  if (n != 0 && !EhNumeroDeTema(n))
    return;
  const IniSnapshot ini(m_app.At(u"\\Data\\Themes.ini"));
  const int first = n == 0 ? 1 : n;
  const int last = n == 0 ? NumeroDeTemas : n;
  for (int i = first; i <= last; ++i) {
    m_temas[static_cast<std::size_t>(i)] = LeTema(ini, i);
    excluiMiniInvalidos(i);
  }
}

TemaRecord ThemeStore::LeTema(const IniSnapshot &ini, int n) const {
  const SecaoDoTema secao(ini, n);
  const TemaRecord &old = m_temas[static_cast<std::size_t>(n)];
  TemaRecord tema;
  tema.Font_Size = old.Font_Size;
  tema.Efeito_Imagem_FxOut = old.Efeito_Imagem_FxOut;

  const QString corDeFundo = tema.Tipo;
  secao.Texto(u"Tipo", tema.Tipo);
  if (tema.Tipo == u"Imagem") {
    secao.Texto(u"img", tema.Imagem);
    tema.Imagem = ImagensExistentes(tema.Imagem);
    if (tema.Imagem.isEmpty())
      tema.Tipo = corDeFundo;
  } else if (tema.Tipo == u"Video") {
    secao.Texto(u"vid", tema.Video);
    tema.Video = m_app.ExpandAppPath(tema.Video);
    if (!FileExists(PrimeiroDaLista(tema.Video))) {
      tema.Video.clear();
      tema.Tipo = corDeFundo;
    }
  } else {
    tema.Tipo = corDeFundo; // a kind that nobody can draw is a plain colour
  }

  if (tema.Tipo == u"Imagem")
    secao.Texto(u"Efeito_Imagem_timeout", tema.Efeito_Imagem_timeout);
  else
    tema.Efeito_Imagem_timeout = QStringLiteral("-1");

  secao.Ligado(u"Maiusculas", tema.Maiusculas);
  secao.Ligado(u"MoveImagens", tema.MoveImagens);
  LeEfeitos(secao, tema);
  LeFonte(secao, tema);
  LeFundo(secao, tema);
  return tema;
}

// The full paths of those pictures that are there, up to the first empty name.
QString ThemeStore::ImagensExistentes(const QString &nomes) const {
  QString paths;
  const QStringList pieces = SplitText(nomes, Separador);
  for (const QString &name : pieces) {
    if (name.isEmpty())
      break;
    const QString path = m_app.At(u"\\Images\\") + name;
    if (FileExists(path))
      paths += path + Separador;
  }
  return paths;
}

bool FazMiniatura(TemaTile &tile, const QSize &tilePx) {
  if (tile.imagemAFazer.isEmpty() || !MakeThumbnail(tile.imagemAFazer, tile.destino, tilePx))
    return false;
  tile.miniatura = tile.destino;
  return true;
}

TemaTile ThemeStore::CarregaTile(int n) const {
  TemaTile tile;
  if (!EhNumeroDeTema(n))
    return tile;
  const TemaRecord &tema = m_temas[static_cast<std::size_t>(n)];
  const QString miniatura = CaminhoMiniatura(n);
  if (tema.Tipo == u"Imagem") {
    const int count = ContaImagens(tema.Imagem);
    if (count > 1)
      tile.contagem = QStringLiteral("%1 Imagens").arg(count);
    const QString picture = PrimeiroDaLista(tema.Imagem);
    if (FileExists(miniatura)) {
      tile.miniatura = miniatura;
    } else if (FileExists(picture)) {
      tile.imagemAFazer = picture;
      tile.destino = miniatura;
    }
  } else if (tema.Tipo == u"Video") {
    tile.emblemaVideo = true;
    if (FileExists(miniatura))
      tile.miniatura = miniatura;
  } else {
    tile.corDeFundo = tema.CordeFundo;
  }
  return tile;
}

QString ThemeStore::ChaveMiniatura(const TemaRecord &tema) {
  const QString file = FileNameOf(PrimeiroDaLista(tema.Tipo == u"Video" ? tema.Video : tema.Imagem));
  const auto digit = [](bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); };
  return QStringList{QString::number(file.size()), QString(tema.Font_Name).remove(u' '),
                     QString(tema.Tipo).remove(u' '), digit(tema.FontSombra_Enabled), digit(tema.FontBorda_Enabled)}
      .join(u'_');
}

QString ThemeStore::CaminhoMiniatura(int n) const {
  if (!EhNumeroDeTema(n))
    return {};
  return m_app.At(u"\\Data\\mini\\tema") + QString::number(n) + u'-' +
         ChaveMiniatura(m_temas[static_cast<std::size_t>(n)]) + QStringLiteral(".jpg");
}

void ThemeStore::excluiMiniInvalidos(int n) {
  if (!EhNumeroDeTema(n))
    return;
  const QDir folder(MapStoredPath(m_app.At(u"\\Data\\mini")).text());
  const QString valid = FileNameOf(CaminhoMiniatura(n)).toLower();
  const QStringList found = folder.entryList({QStringLiteral("tema%1-*.jpg").arg(n)}, QDir::Files | QDir::Hidden);
  for (const QString &name : found) {
    if (name.toLower() != valid)
      QFile::remove(folder.filePath(name));
  }
}

int SorteiaTema(int proximoTema, std::array<bool, NumeroDeTemas + 1> &ticked, RandomSource &random) {
  constexpr int mostDraws = 300;
  const bool queued = EhNumeroDeTema(proximoTema);
  for (int draw = 0; draw < mostDraws; ++draw) {
    const int slot = queued ? proximoTema : std::min(static_cast<int>(random.Draw() * 15) + 1, NumeroDeTemas);
    if (ticked[static_cast<std::size_t>(slot)])
      return slot;
    if (queued)
      break; // every further draw would be the same slot
  }
  ticked[1] = true;
  return 1;
}

} // namespace tolmira
