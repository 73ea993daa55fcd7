#include "console/bible_loader.h"

#include "bible/books.h"
#include "bible/reference_entry.h"
#include "console/bible_fit.h"
#include "console/page_zoom.h"
#include "console/theme_control.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

const QString Biblia = QStringLiteral("Bíblia");
constexpr int UltimoVersiculo = 1000; // stands for a chapter's last
constexpr int CapitulosDemais = 200;  // no book has as many

// The reference with its chapter moved by `passo`, at the given verse.
QString OutroCapitulo(const QString &reference, int passo, int verso) {
  const QString capitulo = reference.section(u':', 0, 0);
  const qsizetype corte = capitulo.lastIndexOf(u' ');
  if (corte < 0 || !reference.contains(u':'))
    return {};
  const int numero = static_cast<int>(NumericPrefix(capitulo.mid(corte + 1))) + passo;
  if (numero < 1)
    return {};
  return capitulo.left(corte) + u' ' + QString::number(numero) + u':' + QString::number(verso);
}

} // namespace

QString NextCapitulo(const QString &reference) {
  return OutroCapitulo(reference, 1, 1);
}
QString PreviousCapitulo(const QString &reference) {
  return OutroCapitulo(reference, -1, UltimoVersiculo);
}

BibleLoader::BibleLoader(ConsoleContext &console, BibleStore &loja, BibleComposer &biblia,
                         VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_loja(loja), m_biblia(biblia), m_stepper(stepper), m_temas(temas) {
  // The entrance effect is for a verse that was not there; a key that was pressed and let go moves nothing.
  m_stepper.EnviaVersiculo = [this](bool soltouCtrl) { EnviaVersiculo(!soltouCtrl || !NoTelao()); };
  m_temas.AjustaVersiculo = [this] { RecarregaVersiculo(false); };
  m_temas.ReenviaVersiculo = [this] { ReenviaVersiculo(); };
}

void BibleLoader::CarregaVersoes() {
  m_loja.BuildVersionMenu();
  if (m_console.estado.TipoAtual != Biblia)
    m_console.estado.VersaoBiblia = m_loja.VersaoBiblia();
  MostraVersao();
}

void BibleLoader::MostraVersao() {
  PainelConsole &painel = m_console.painel;
  painel.LbVersao = QStringLiteral("Tradução: ") + m_loja.LegendaAtual();
  if (!painel.biblia.Visible)
    painel.LabelDicaBiblia = painel.LbVersao;
  m_console.Atualiza();
}

bool BibleLoader::Mostrando() const {
  return m_console.estado.TipoAtual == Biblia && m_console.painel.biblia.Visible;
}

bool BibleLoader::NoTelao() const {
  const VersoNoTelao &sent = m_biblia.NoTelao();
  const EstadoConsole &estado = m_console.estado;
  return sent.referencia == estado.ReferenciaAtual && sent.texto == estado.TextoBiblia &&
         sent.versao == estado.VersaoBiblia;
}

// Book by its own name, chapter and verse. A reference without a verse number gets that of the last verse.
QString BibleLoader::Canonica(const QString &reference) const {
  QString plain = NormalizeReference(reference);
  const int book = BookNumber(plain);
  if (book == 0)
    return {};
  const QString name = BookName(book);
  // A small "e" ends the number of the verse: "16e18" is the sixteenth, and its neighbour the seventeenth.
  plain = name + plain.mid(name.size()).section(u'e', 0, 0);
  const QString verse = plain.section(u':', 1);
  return NumericPrefix(verse) >= 1 ? plain
                                   : QString(plain.section(u':', 0, 0) + u':' + QString::number(UltimoVersiculo));
}

bool BibleLoader::TemTexto(const QString &reference) {
  QString canonical = Canonica(reference);
  return !TextoDoVersiculo(m_loja.GetVerse(canonical)).trimmed().isEmpty();
}

bool BibleLoader::exibeTextoBiblico(const QString &reference, bool applyTheme, bool show) {
  return Exibe(reference, applyTheme, show, true);
}

bool BibleLoader::Exibe(const QString &reference, bool applyTheme, bool show, bool outroItem) {
  PainelConsole &painel = m_console.painel;
  QString canonical = Canonica(reference);
  const QString text = TextoDoVersiculo(m_loja.GetVerse(canonical)).trimmed();
  if (text.isEmpty()) {
    painel.PicAviso2 = m_console.estado.TipoAtual.isEmpty();
    painel.MensagemTira = m_loja.Versoes().empty()
                              ? QStringLiteral("There is no Bible in the program folder.")
                              : QString(reference + u" was not found in " + m_loja.LegendaAtual() + u'.');
    m_console.Atualiza();
    return false;
  }

  m_console.estado.UltimoTexto.clear();
  if (outroItem)
    m_console.legenda.TextoLegenda.clear();
  painel.SliderExLouvorVisible = painel.SliderExBibliaVisible = painel.ComboFontSizeVisible = false;
  CarregaLeitura(canonical, text, applyTheme, show);
  painel.SliderExBibliaVisible = true;
  m_stepper.MouseUp_Finaliza(false, false);
  // A queued theme was for this item. Walking on into the next chapter is no new item.
  if (applyTheme)
    m_temas.ClearQueue();
  if (m_console.view)
    m_console.view->FocusStrip();
  return true;
}

void BibleLoader::CarregaLeitura(const QString &reference, const QString &text, bool applyTheme, bool show) {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  const bool firstItem = estado.TipoAtual.isEmpty();
  const bool walking = Mostrando();
  const bool newTheme = applyTheme && !estado.FundoPreso && m_temas.TrocaTema(0);
  estado.DefineTipo(Biblia);
  estado.ArquivoAtual.clear();
  estado.TituloAtual = estado.ReferenciaAtual = reference;
  estado.TextoBiblia = text;
  estado.VersaoBiblia = m_loja.VersaoBiblia();
  m_loja.DefineRefAtual(reference);
  if (!walking) {
    // Nothing of a song may be stepped to or sent any more.
    estado.Estrofes.clear();
    estado.TextoEstrofes.clear();
    estado.TotalEstrofes = 0;
    estado.EstrofeAtual = -1;
    estado.VersoTextoAtual.clear();
    estado.ModoMovimento = QStringLiteral("Normal");
    m_stepper.PlaceBelowFrame();
    m_biblia.EsqueceTelao();
    m_tamanhoDito.clear();
  }
  m_console.AjustaEstado();
  estado.FonteTamanho = QString::number(Tamanho(text, reference, estado.VersaoBiblia));

  m_console.faixa.Label1Visible = false;
  m_console.faixa.VersoAtual = reference + u". " + text;
  painel.Label9 = reference;
  painel.Picture4Visible = false;
  painel.Picture7Visible = true;
  painel.PicAviso = painel.PicAviso2 = painel.PicDica2 = painel.PicDica4 = painel.PicDicaAgenda = false;
  painel.MensagemTira.clear();
  painel.LabelDicaBiblia =
      QStringLiteral("Utilize as setas do teclado para mudar o versículo\r\nUtilize CTRL+SETAS para pré-visualizar");
  painel.biblia = {true, text, reference, estado.VersaoBiblia, m_console.ajustes.AlinhamentoBiblia, !NoTelao()};

  // A page that stands is told the new size with the verse: what it shows until then must not change its size.
  const bool stands = estado.PaginaDeTexto() && (walking || !estado.FundoPreso) && !firstItem && !newTheme;
  if (show && !stands)
    m_console.paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, 0);
  ApplyZoom(m_console);
  m_console.Atualiza();
}

int BibleLoader::Tamanho(const QString &texto, const QString &referencia, const QString &versao) const {
  const AjustesTexto &ajustes = m_console.ajustes;
  AjusteDeVersiculo tela;
  tela.telaPx = m_console.TelaPx();
  tela.fonte = m_console.estado.FonteTexto;
  tela.EstiloBiblia = ajustes.EstiloBiblia;
  tela.centrado = ajustes.AlinhamentoVertical == u"center";
  tela.escala = ajustes.EscalaBiblia;
  tela.zoom = ajustes.ZoomAjustBiblia;
  return TamanhoBiblia(m_console.legenda.Biblia.maiusculas ? texto.toUpper() : texto,
                       referencia + u" (" + versao + u')', tela, m_console.measure);
}

void BibleLoader::EnviaVersiculo(bool comEfeito) {
  EstadoConsole &estado = m_console.estado;
  if (!Mostrando())
    return;
  if (m_tamanhoDito != estado.FonteTamanho) {
    m_console.EnviaTamanhoDaFonte();
    m_tamanhoDito = estado.FonteTamanho;
  }
  m_biblia.ExibeBiblia(estado.TextoBiblia, estado.ReferenciaAtual, estado.FonteTamanho, comEfeito, false);
  m_console.painel.biblia.Adiante = false;
}

void BibleLoader::RecarregaVersiculo(bool send) {
  EstadoConsole &estado = m_console.estado;
  if (!Mostrando())
    return;
  m_console.AjustaEstado();
  estado.FonteTamanho = QString::number(Tamanho(estado.TextoBiblia, estado.ReferenciaAtual, estado.VersaoBiblia));
  m_console.painel.biblia.Alinhamento = m_console.ajustes.AlinhamentoBiblia;
  // While the operator looks ahead, the projection keeps its verse.
  if (send && estado.EnviarAoTelao)
    EnviaVersiculo(false);
  m_console.Atualiza();
}

void BibleLoader::ReenviaVersiculo(Alvo alvo) {
  const VersoNoTelao &verso = m_biblia.NoTelao();
  if (m_console.estado.TipoAtual != Biblia || verso.referencia.isEmpty())
    return;
  m_biblia.ReenviaBiblia(QString::number(Tamanho(verso.texto, verso.referencia, verso.versao)), alvo);
}

void BibleLoader::PaginaVoltou(Alvo qual) {
  if (m_console.estado.TipoAtual != Biblia)
    return;
  m_console.EnviaTamanhoDaFonte(qual);
  ReenviaVersiculo(qual);
}

void BibleLoader::CMDProximo_Click(int direction) {
  EstadoConsole &estado = m_console.estado;
  if (estado.TipoAtual != Biblia || !estado.ReferenciaAtual.contains(u':'))
    return;
  const std::optional<Passo> passo = Vizinho(estado.ReferenciaAtual, direction == 0);
  m_loja.DefineRefAtual(estado.ReferenciaAtual);
  if (passo) {
    if (estado.EnviarAoTelao)
      estado.FundoPreso = false; // a move of the text takes the screen back from a background placed by hand
    if (passo->outroCapitulo) {
      Exibe(passo->referencia, false, true, false);
    } else {
      CarregaLeitura(passo->referencia, passo->texto, false, true);
      m_stepper.MouseUp_Finaliza(false, false);
    }
  }
  if (m_console.view)
    m_console.view->FocusStrip();
}

// Leaves the chapter of `reference` as the store's current one. Another window may have read elsewhere meanwhile, and a
// version that was just chosen may lack the verse but not its chapter.
bool BibleLoader::TemCapitulo(const QString &reference) {
  QString verse = reference;
  if (!m_loja.GetVerse(verse).isEmpty())
    return true;
  QString last = reference.section(u':', 0, 0) + u':' + QString::number(UltimoVersiculo);
  return !m_loja.GetVerse(last).isEmpty();
}

std::optional<BibleLoader::Passo> BibleLoader::Vizinho(const QString &reference, bool frente) {
  if (!TemCapitulo(reference))
    return std::nullopt;
  QString ref = reference;
  if (std::optional<Passo> passo = NoCapitulo(ref, frente))
    return passo;

  for (int n = 0; n < CapitulosDemais; ++n) {
    ref = frente ? NextCapitulo(ref) : PreviousCapitulo(ref);
    if (ref.isEmpty() || !TemCapitulo(ref))
      return std::nullopt;
    const QString text = TextoDoVersiculo(m_loja.GetVerse(ref)).trimmed();
    if (!text.isEmpty())
      return Passo{ref, text, true};
    if (std::optional<Passo> passo = NoCapitulo(ref, frente)) {
      passo->outroCapitulo = true;
      return passo;
    }
  }
  return std::nullopt;
}

// The nearest verse with a text in the store's current chapter; `reference` moves to where the walk ended.
std::optional<BibleLoader::Passo> BibleLoader::NoCapitulo(QString &reference, bool frente) {
  for (;;) {
    m_loja.DefineRefAtual(reference);
    const QString text = (frente ? m_loja.NextVerse(reference) : m_loja.PreviousVerse(reference)).trimmed();
    if (m_loja.RefAtual() == reference)
      return std::nullopt;
    reference = m_loja.RefAtual();
    if (!text.isEmpty())
      return Passo{reference, text, false};
  }
}

bool BibleLoader::TrocaVersao(int index) {
  EstadoConsole &estado = m_console.estado;
  estado.BibliaMudando = true;
  const bool changed = m_loja.ChooseVersion(index);
  if (changed) {
    MostraVersao();
    if (!Mostrando()) {
      estado.VersaoBiblia = m_loja.VersaoBiblia();
    } else {
      QString reference = estado.ReferenciaAtual;
      const QString text = TextoDoVersiculo(m_loja.GetVerse(reference)).trimmed();
      if (text.isEmpty()) {
        m_console.painel.MensagemTira = reference + u" was not found in " + m_loja.LegendaAtual() + u'.';
      } else {
        CarregaLeitura(reference, text, false, true);
        m_stepper.MouseUp_Finaliza(false, false);
      }
    }
  }
  estado.BibliaMudando = false;
  m_console.Atualiza();
  return changed;
}

} // namespace tolmira
