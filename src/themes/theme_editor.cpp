#include "themes/theme_editor.h"

#include "foundation/ini_text.h"
#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "foundation/video_folder.h"
#include "themes/picture_file.h"
#include "themes/picture_folder.h"
#include "themes/small_copy.h"
#include "themes/theme_store.h"

#include <QFileInfo>
#include <algorithm>

namespace tolmira {

namespace {

const QString Titulos = QStringLiteral("Tolmira");
const QString Separador = QStringLiteral("|");
const QString Config = QStringLiteral("Config");
const QString SemRotacao = QStringLiteral("-1");
constexpr int MaiorPosicao = 5; // of the interval list
constexpr int QualidadeDaMiniatura = 90;
constexpr int ConcessoesAoSalvar = 10;

using Chaves = QList<std::pair<QString, QString>>;

QString Digito(bool ligado) {
  return ligado ? QStringLiteral("1") : QStringLiteral("0");
}

QString NomesNus(const QStringList &imagens) {
  QString nomes;
  for (const QString &imagem : imagens)
    nomes += FileNameOf(imagem) + Separador;
  return nomes;
}

// What every theme says, in the order of the file.
void JuntaComum(Chaves &chaves, const TemaRecord &t) {
  const auto junta = [&chaves](const char *chave, const QString &valor) {
    chaves.append({QString::fromLatin1(chave), valor});
  };
  junta("Font_Name", t.Font_Name);
  junta("Font_Cor", t.Font_Cor);
  junta("MoveImagens", Digito(t.MoveImagens));
  junta("FontSombra_Enabled", Digito(t.FontSombra_Enabled));
  junta("FontSombra_Cor", t.FontSombra_Cor);
  junta("FontSombra_Blur", t.FontSombra_Blur);
  junta("FontSombra_Down", t.FontSombra_Down);
  junta("FontSombra_Right", t.FontSombra_Right);
  junta("FontSombra_Opacity", t.FontSombra_Opacity);
  junta("FontBorda_Enabled", Digito(t.FontBorda_Enabled));
  junta("FontBorda_Cor", t.FontBorda_Cor);
  junta("FontBorda_Espessura", t.FontBorda_Espessura);
  junta("brightness", QString::number(t.brightness));
  junta("contrast", QString::number(t.contrast));
  junta("blur", QString::number(t.blur));
  junta("saturate", QString::number(t.saturate));
  junta("Tipo", t.Tipo);
  junta("CordeFundo", QString::number(t.CordeFundo));
  junta("Maiusculas", Digito(t.Maiusculas));
  junta("Efeito_Imagem_delay", t.Efeito_Imagem_delay);
  junta("Efeito_Imagem-Fx", t.Efeito_Imagem_Fx);
  junta("Efeito_Imagem-FxExtra", t.Efeito_Imagem_FxExtra);
  junta("Efeito_Imagem-FxOut", t.Efeito_Imagem_FxOut);
  junta("Efeito_Imagem_speed", t.Efeito_Imagem_speed);
  junta("Efeito_Imagem_sync", t.Efeito_Imagem_sync);
  junta("Efeito_Imagem_timeout", t.Efeito_Imagem_timeout);
  junta("Efeito_Texto_delay", t.Efeito_Texto_delay);
  junta("Efeito_Texto-Fx", t.Efeito_Texto_Fx);
  junta("Efeito_Texto-FxExtra", t.Efeito_Texto_FxExtra);
  junta("Efeito_Texto-FxOut", t.Efeito_Texto_FxOut);
  junta("Efeito_Texto_speed", t.Efeito_Texto_speed);
  junta("Efeito_Texto_sync", t.Efeito_Texto_sync);
  junta("Efeito_Texto_timeout", t.Efeito_Texto_timeout);
}

} // namespace

void ThemeEditor::SetIndex(int n) {
  m_n = std::clamp(n, 1, NumeroDeTemas);
  tema = m_parts.temas[static_cast<size_t>(m_n)];
  m_antes = tema;
  m_textVideo = SplitField(tema.Video, Separador, 1);
  m_textVideoAntes = m_textVideo;
  m_imagem = 1;
}

QString ThemeEditor::Titulo() const {
  return QStringLiteral("THEME %1 - Settings").arg(m_n);
}

bool ThemeEditor::Alterado() const {
  return tema != m_antes || (tema.Tipo == TipoVideo && m_textVideo != m_textVideoAntes);
}

void ThemeEditor::MaiusculasMudaram(bool maiusculas) {
  if (tema.Maiusculas == m_antes.Maiusculas)
    tema.Maiusculas = maiusculas;
  m_antes.Maiusculas = maiusculas;
}

QString ThemeEditor::GetTextoTema() const {
  const QString texto = textoDoOperador.trimmed().isEmpty() ? QStringLiteral("Vaelis") : textoDoOperador;
  return tema.Maiusculas ? texto.toUpper() : texto;
}

bool ThemeEditor::VideoExiste() const {
  return FileExists(SplitField(m_textVideo, Separador, 1));
}

bool ThemeEditor::CheckTipo(const QString &tipo) {
  tema.Tipo = tipo;
  if (tipo == TipoVideo && !VideoExiste()) {
    m_textVideo.clear();
    return false;
  }
  if (tipo == TipoVideo)
    tema.Video = m_textVideo;
  return tipo != TipoImagem || !Imagens().isEmpty();
}

QStringList ThemeEditor::Imagens() const {
  return tema.Imagem.split(Separador, Qt::SkipEmptyParts);
}

bool ThemeEditor::PicIntervaloVisible() const {
  return tema.Tipo == TipoImagem && Imagens().size() > 1;
}

int ThemeEditor::PicIntervalo() const {
  // A code that no timer runs by is "None"; saving it as something else would set the pictures in motion.
  return IntervaloDoCodigo(tema.Efeito_Imagem_timeout) > 0 ? tema.Efeito_Imagem_timeout.toInt() : 0;
}

void ThemeEditor::DefinePicIntervalo(int posicao) {
  tema.Efeito_Imagem_timeout = QString::number(std::clamp(posicao, 0, MaiorPosicao));
}

bool ThemeEditor::AdicionarAoTema(const QString &path) {
  if (!FileExists(path))
    return false;
  const QString nome = TrazParaTema(m_parts.store.App(), MapStoredPath(path).text(), m_n);
  if (nome.isEmpty()) {
    Diz(QStringLiteral("Could not copy the image to the images folder."));
    return false;
  }
  const QString imagem = m_parts.store.App().At(u"\\Images\\") + nome;
  if (NomesNus(Imagens() + QStringList(imagem)).size() > IniValueLimit) {
    Diz(QStringLiteral("This theme cannot hold more pictures."));
    return false;
  }
  CriaMiniatura(m_parts.store.App(), nome, false);
  tema.Tipo = TipoImagem;
  tema.Imagem += imagem + Separador;
  m_imagem = static_cast<int>(Imagens().size());
  return true;
}

void ThemeEditor::RemoveImagem(int posicao) {
  QStringList imagens = Imagens();
  if (posicao < 1 || posicao > imagens.size())
    return;
  imagens.removeAt(posicao - 1);
  tema.Imagem = imagens.isEmpty() ? QString() : QString(imagens.join(Separador) + Separador);
  m_imagem = std::clamp(m_imagem, 1, std::max(1, static_cast<int>(imagens.size())));
}

void ThemeEditor::MoveImagem(int posicao, int paraOnde) {
  QStringList imagens = Imagens();
  if (std::min(posicao, paraOnde) < 1 || std::max(posicao, paraOnde) > imagens.size())
    return;
  imagens.move(posicao - 1, paraOnde - 1);
  tema.Imagem = imagens.join(Separador) + Separador;
  m_imagem = paraOnde;
}

bool ThemeEditor::CommandVideo() {
  const QString padrao = m_parts.store.App().At(u"\\Videos");
  const QString pasta = m_parts.store.ReadConfig(Config, PastaVideosOld, padrao);
  const QString path =
      m_parts.prompt.OpenFile(Titulos, MapStoredPath(pasta).text(), FiltroDeVideos + u";;All files (*)");
  if (path.isEmpty())
    return false;
  // A "|" would end the path where the theme is read.
  if (!FileExists(path) || path.contains(u'|')) {
    Diz(QStringLiteral("Arquivo de vídeo não encontrado"));
    return false;
  }
  m_parts.store.WriteConfig(Config, PastaVideosOld, QFileInfo(path).path());
  tema.Tipo = TipoVideo;
  tema.Video = m_textVideo = path;
  return true;
}

int ThemeEditor::ProximaImagem() {
  const int total = static_cast<int>(Imagens().size());
  if (total == 0)
    return 0;
  m_imagem = m_imagem >= total ? 1 : m_imagem + 1;
  return m_imagem;
}

void ThemeEditor::AtualizaImagens() {
  QString existentes;
  for (const QString &imagem : Imagens())
    if (FileExists(imagem))
      existentes += imagem + Separador;
  tema.Imagem = existentes;
  m_imagem = std::clamp(m_imagem, 1, std::max(1, static_cast<int>(Imagens().size())));
}

bool ThemeEditor::SalvarDados(const std::function<QImage()> &retrato) {
  Chaves chaves;
  TemaRecord novo = tema;
  if (tema.Tipo == TipoVideo) {
    if (!VideoExiste()) {
      Diz(QStringLiteral("Selecione um arquivo de vídeo, ou troque para Imagem ou Cor de Fundo"));
      return false;
    }
    novo.Video = m_textVideo;
    if (m_textVideo.toLower() != m_antes.Video.toLower()) {
      chaves.append({QStringLiteral("vid"), m_parts.store.App().CompactAppPath(m_textVideo)});
      chaves.append({QStringLiteral("img"), QString()});
    }
  } else if (tema.Tipo == TipoImagem) {
    AtualizaImagens();
    novo.Imagem = tema.Imagem;
    if (tema.Imagem.isEmpty()) {
      Diz(QStringLiteral("Selecione um arquivo de fundo, ou troque para Vídeo ou Cor de Fundo"));
      return false;
    }
    chaves.append({QStringLiteral("img"), NomesNus(Imagens())});
    chaves.append({QStringLiteral("vid"), QString()});
  }
  // As it will be loaded: the thumbnail is named after what the theme really uses.
  if (novo.Tipo != TipoImagem) {
    novo.Imagem.clear();
    novo.MoveImagens = false;
  }
  if (novo.Tipo != TipoVideo)
    novo.Video.clear();
  novo.Efeito_Imagem_timeout = PicIntervaloVisible() ? QString::number(PicIntervalo()) : SemRotacao;
  chaves.append({QStringLiteral("Intervalo"), novo.Efeito_Imagem_timeout});
  JuntaComum(chaves, novo);

  if (!GravaArquivo(chaves)) {
    Diz(QStringLiteral("The theme could not be saved. The disk may be full or write-protected."));
    return false;
  }
  m_parts.temas[static_cast<size_t>(m_n)] = novo;
  if (retrato)
    GravaMiniatura(retrato());
  m_parts.yielder.Yield(ConcessoesAoSalvar);
  m_parts.loja.LoadTemas(m_n);
  m_antes = tema = m_parts.temas[static_cast<size_t>(m_n)];
  m_textVideoAntes = m_textVideo;
  return true;
}

bool ThemeEditor::GravaArquivo(const Chaves &chaves) {
  const QString arquivo = m_parts.store.App().At(u"\\Data\\Themes.ini");
  const FileContent content = ReadFileContent(arquivo);
  // What could not be read whole would lose its rest: the other fifteen themes.
  if (content.exists && !content.complete)
    return false;
  const DecodedText old = DecodeText(content.bytes);
  const QString secao = QStringLiteral("Tema-%1").arg(m_n);
  QString texto = old.text;
  for (const auto &[chave, valor] : chaves) {
    const std::optional<QString> com = WithIniValue(texto, secao, chave, valor);
    if (!com)
      return false;
    texto = *com;
  }
  return WriteFileAtomically(arquivo, EncodeText(texto, old.encoding));
}

// A picture that cannot be made or written leaves the tile without one; the theme is saved all the same.
void ThemeEditor::GravaMiniatura(const QImage &retrato) {
  const QSize tile = m_parts.tilePx;
  if (retrato.isNull() || tile.isEmpty())
    return;
  const QImage cobre = retrato.scaled(tile, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
  const QRect meio(QPoint((cobre.width() - tile.width()) / 2, (cobre.height() - tile.height()) / 2), tile);
  SalvaJpeg(cobre.copy(meio), m_parts.loja.CaminhoMiniatura(m_n), QualidadeDaMiniatura);
}

void ThemeEditor::Diz(const QString &texto) {
  m_parts.prompt.Message(MessageKind::Warning, Titulos, texto);
}

} // namespace tolmira
