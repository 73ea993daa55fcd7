#include "console/song_loader.h"

#include <cmath>

#include "console/page_zoom.h"
#include "console/song_fit.h"
#include "console/theme_control.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "songs/pagination.h"
#include "songs/song_text.h"

namespace tolmira {

namespace {

// The frame takes the projection's proportions, as wide as the panel lets it and never higher than this part of it. A
// stanza that is as tall as the frame is split.
constexpr double ParteDoQuadro = 0.72;
constexpr double LarguraDaFaixa = 0.72;
constexpr double FatorFonteGrande = 1.2;

// CarregaEstrofes cuts at blank lines, where a verse without text would vanish. Empty pieces take its place, so that
// verse n stays element n - 1.
QStringList TextoDasEstrofes(const PaginatedSong &paged) {
  QString texto;
  for (int i = 1; i <= paged.TotalEstrofes; ++i)
    if (const QString &verso = paged.Estrofes[static_cast<size_t>(i)].Texto; !verso.isEmpty())
      texto += (texto.isEmpty() ? QString() : QStringLiteral("\r\n\r\n")) + verso;
  QStringList pieces = CarregaEstrofes(texto);
  for (int i = 1; i <= paged.TotalEstrofes; ++i)
    if (paged.Estrofes[static_cast<size_t>(i)].Texto.isEmpty())
      pieces.insert(std::min<qsizetype>(i - 1, pieces.size()), QString());
  return pieces;
}

int Linhas(const QString &verso) { return static_cast<int>(verso.count(u"<br>")) + 1; }

} // namespace

int MesmoLugar(const QStringList &antes, int n, const QStringList &agora) {
  const int total = static_cast<int>(agora.size());
  const QString linhas = QStringLiteral("<br>");
  if (antes.size() == agora.size() || n > antes.size() ||
      antes.join(linhas).compare(agora.join(linhas), Qt::CaseInsensitive) != 0)
    return std::min(n, total);
  int linha = 0;
  for (int i = 0; i < n - 1; ++i)
    linha += Linhas(antes[i]);
  for (int i = 0; i < total; ++i) {
    linha -= Linhas(agora[i]);
    if (linha < 0)
      return i + 1;
  }
  return total;
}

SongLoader::SongLoader(ConsoleContext &console, VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_stepper(stepper), m_temas(temas) {
  // A new theme can change font and capitals, so the song is prepared again before its page is built.
  m_temas.ReapresentaTexto = [this] { RecarregaMusica(false); };
}

bool SongLoader::ListMusicasDuploClique(const QString &caption, const QString &fileName, bool applyTheme, bool show) {
  const QString path = ResolveSongPath(m_console.app, fileName);
  if (path.isEmpty()) {
    m_console.prompt.Message(
        MessageKind::Warning, QStringLiteral("Tolmira"),
        QStringLiteral("Item not found.\n\nThe file may have been deleted or moved to another location."));
    return false;
  }
  m_console.legenda.TextoLegenda.clear();
  PainelConsole &painel = m_console.painel;
  painel.Label9 = caption;
  m_console.estado.EstrofeAtual = -1;
  m_console.estado.ModoMovimento = QStringLiteral("Normal");
  painel.PicAviso2 = painel.PicDica2 = painel.PicDica3 = painel.PicDica4 = painel.PicDicaAgenda = false;
  CarregaLouvor(path, applyTheme, show);
  // A queued theme was for this item, also where a picture that stands kept it from being taken.
  if (applyTheme)
    m_temas.ClearQueue();
  painel.PicAviso = true;
  m_console.Atualiza();
  return true;
}

void SongLoader::CarregaLouvor(const QString &path, bool applyTheme, bool show) {
  EstadoConsole &estado = m_console.estado;
  const bool firstItem = estado.TipoAtual.isEmpty();
  m_console.painel.PicAviso2 = false;

  const bool newTheme = applyTheme && !estado.FundoPreso && m_temas.TrocaTema(0);
  PreparaTexto(path);
  estado.VersoHtmlAtual.clear();
  estado.VersoTextoAtual.clear();
  estado.UltimoTexto.clear();
  estado.EstrofeAtual = -1;
  m_stepper.PlaceBelowFrame();
  m_console.faixa.Label1Visible = true;

  if (show) {
    if (estado.PaginaDeTexto() && !estado.FundoPreso && !firstItem && !newTheme) {
      m_console.EnviaTamanhoDaFonte();
      m_console.ChamaPaginas(QStringLiteral("UpdateTextHtml"), QStringLiteral("nada"));
    } else {
      m_console.paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, 0);
    }
  }
  ApplyZoom(m_console);
  m_console.Atualiza();
}

void SongLoader::PreparaTexto(const QString &path) {
  EstadoConsole &estado = m_console.estado;
  m_console.AjustaEstado();

  const PreparedSong song = PrepareSongText(m_console.app, path, estado.TemaAtual.Maiusculas);
  estado.ArquivoAtual = path;
  estado.TituloAtual = song.fileName;
  estado.ReferenciaAtual.clear();
  estado.TextoBiblia.clear();
  estado.DefineTipo(song.tipo == TipoLouvor::Harpa ? QStringLiteral("Harpa") : QStringLiteral("Louvor"));
  estado.TextoMaiusculo = song.maiusculo;
  m_console.painel.Picture4Visible = true;
  m_console.painel.Picture7Visible = false;
  m_console.painel.biblia.Visible = false;
  m_console.painel.MensagemTira =
      song.text.trimmed().isEmpty() ? QStringLiteral("There is no text in this file.") : QString();

  AjustaQuadro();
  QString texto = song.text;
  const SongRoom sala = Sala(texto, m_console.ajustes);
  AjustaTamanhos(sala);

  FaixaTexto &faixa = m_console.faixa;
  estado.PaginandoEstrofes = true;
  const PaginatedSong paged = PaginateVerses(texto, sala.pagina, m_console.measure);
  estado.Estrofes = paged.Estrofes;
  estado.TotalEstrofes = paged.TotalEstrofes;
  estado.TextoEstrofes = TextoDasEstrofes(paged);
  estado.PaginandoEstrofes = false;
  faixa.Label1Texto = paged.TextoPaginado;
  m_referencia = {1, faixa.PainelLargura, faixa.FrameHeight};
}

int SongLoader::LarguraDaTira() const { return static_cast<int>(LarguraDisponivelPx() * TwipsPerPixel); }

double SongLoader::LarguraDisponivelPx() const {
  return LarguraDaFaixa * m_console.faixa.PainelLargura / TwipsPerPixel;
}

SongRoom SongLoader::Sala(const QString &texto, const AjustesTexto &ajustes) const {
  const QString fonte = m_console.FonteDoTema();
  SongRoom sala;
  sala.tamanhoBase = TamanhoBase(texto,
                                 {m_console.TelaPx(), fonte, true, ajustes.FontSizeClass, ajustes.EstiloLouvor,
                                  ajustes.AlinhamentoVertical == u"center"},
                                 m_console.measure);
  sala.pagina.font = {fonte, 14, true};
  sala.pagina.font.sizePt = TamanhoLabel1(texto, sala.pagina.font, LarguraDisponivelPx(), m_console.measure) *
                            (ajustes.FonteGrande ? FatorFonteGrande : 1.0);
  sala.pagina.wrapWidthPx = LarguraDaTira() / static_cast<double>(TwipsPerPixel);
  sala.pagina.limitTwips = AlturaDoQuadro();
  return sala;
}

void SongLoader::AjustaTamanhos(const SongRoom &sala) {
  FaixaTexto &faixa = m_console.faixa;
  m_console.estado.FonteTamanho = QString::number(RoundHalfEven(sala.tamanhoBase));
  faixa.Label1Largura = LarguraDaTira();
  faixa.Label1Fonte = sala.pagina.font;
  AlinhaTira();
}

void SongLoader::AlinhaTira() {
  FaixaTexto &faixa = m_console.faixa;
  faixa.Alinhamento = m_console.ajustes.Alinhamento;
  faixa.Label1Esquerda = faixa.Alinhamento == 0 ? 0 : (faixa.PainelLargura - faixa.Label1Largura) / 2;
}

double SongLoader::FonteDisplay() const {
  const double size = NumericPrefix(m_console.estado.FonteTamanho);
  if (size > 0)
    return size;
  // Before the first item: the size of the class on this projection.
  const QSize tela = m_console.TelaPx();
  const AjustesTexto &ajustes = m_console.ajustes;
  return TamanhoBase(QString(),
                     {tela, m_console.estado.TemaAtual.Font_Name, true, ajustes.FontSizeClass, ajustes.EstiloLouvor,
                      ajustes.AlinhamentoVertical == u"center"},
                     m_console.measure);
}

void SongLoader::RecarregaMusica(bool send) {
  EstadoConsole &estado = m_console.estado;
  if (!estado.EhLetra() || !m_console.faixa.Label1Visible)
    return;
  const QString path = estado.ArquivoAtual;
  // A file that has gone meanwhile must not take the song off the console.
  if (path.endsWith(u".txt", Qt::CaseInsensitive) && !FileExists(path))
    return;
  const int verso = estado.EstrofeAtual;
  const QStringList antes = estado.TextoEstrofes;
  PreparaTexto(path);
  if (verso > 0) {
    estado.EstrofeAtual = MesmoLugar(antes, verso, estado.TextoEstrofes);
    m_stepper.PlaceAt(estado.EstrofeAtual);
  } else if (estado.ModoMovimento == u"Acima") {
    m_console.faixa.Label1Topo += m_console.faixa.FrameTop - m_stepper.fimdolabel() - TwipsPerPixel;
  } else {
    m_stepper.PlaceBelowFrame();
  }
  if (send) {
    m_console.EnviaTamanhoDaFonte();
    ReenviaVerso();
  }
  m_console.Atualiza();
}

void SongLoader::ReenviaVerso() {
  if (m_console.estado.EnviarAoTelao)
    m_console.letras.ExibeVerso(m_console.estado.EstrofeAtual, true);
  else
    m_console.letras.ReenviaVerso();
}

void SongLoader::PaginaVoltou(Alvo qual) {
  EstadoConsole &estado = m_console.estado;
  if (!estado.PaginaDeTexto() && !estado.PaginaDeSlides())
    return;
  const bool oculto = estado.EstadoTela == u"OcultarTexto";
  m_console.ChamaPaginas(QStringLiteral("ChangeCSS"), QStringLiteral("texto"), QStringLiteral("display"),
                         oculto ? QStringLiteral("none") : QStringLiteral("block"), qual);
  if (!estado.EhLetra())
    return;
  m_console.EnviaTamanhoDaFonte(qual);
  // Not the verse in the frame: the operator may be looking ahead.
  m_console.letras.ReenviaVerso(qual);
}

int SongLoader::AlturaDoQuadro() const {
  const FaixaTexto &faixa = m_console.faixa;
  const QSize tela = m_console.TelaPx();
  const double proporcao = tela.width() > 0 ? static_cast<double>(tela.height()) / tela.width() : 0.5625;
  return static_cast<int>(std::min(faixa.PainelLargura * proporcao, faixa.PainelAltura * ParteDoQuadro));
}

void SongLoader::AjustaQuadro() {
  FaixaTexto &faixa = m_console.faixa;
  faixa.FrameHeight = AlturaDoQuadro();
  faixa.FrameWidth = faixa.PainelLargura;
  faixa.FrameLeft = 0;
  faixa.FrameTop = (faixa.PainelAltura - faixa.FrameHeight) / 2;
}

void SongLoader::PainelMudou() {
  EstadoConsole &estado = m_console.estado;
  FaixaTexto &faixa = m_console.faixa;
  AjustaQuadro();
  if (!faixa.Label1Visible || m_referencia.painelLargura <= 0 || m_referencia.frameHeight <= 0 ||
      faixa.PainelLargura <= 0 || faixa.FrameHeight <= 0)
    return;
  // Text measures are linear in the font size, so the strip is scaled as a whole instead of being paged anew: a resize
  // in the middle of a song must not move a line from one verse into another.
  const double escala = std::min(static_cast<double>(faixa.PainelLargura) / m_referencia.painelLargura,
                                 static_cast<double>(faixa.FrameHeight) / m_referencia.frameHeight);
  const double mudanca = escala / m_referencia.escala;
  m_referencia.escala = escala;
  const auto scaled = [mudanca](int twips) { return static_cast<int>(std::lround(twips * mudanca)); };
  faixa.Label1Fonte.sizePt *= mudanca;
  faixa.Label1Largura = scaled(faixa.Label1Largura);
  AlinhaTira();
  for (Estrofe &verso : estado.Estrofes) {
    verso.Topo = scaled(verso.Topo);
    verso.Base = scaled(verso.Base);
  }
  if (estado.EstrofeAtual > 0)
    m_stepper.PlaceAt(estado.EstrofeAtual);
  else if (estado.ModoMovimento == u"Acima")
    faixa.Label1Topo = scaled(faixa.Label1Topo);
  else
    m_stepper.PlaceBelowFrame();
  m_console.Atualiza();
}

} // namespace tolmira
