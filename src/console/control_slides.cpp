#include "console/control_slides.h"

#include "console/page_zoom.h"
#include "console/stepping.h"
#include "console/theme_control.h"
#include "display/slide_html.h"
#include "display/text_style.h"
#include "display/verse_text.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <algorithm>

namespace tolmira {

namespace {

constexpr int EsperaDaAnotacao = 400; // ms after the last step, so that quick steps write nothing

bool TemEfeitoDeSaida(const TemaRecord &visual) {
  const QString &efeito = visual.Efeito_Texto_FxOut;
  return !efeito.isEmpty() && efeito.compare(u"none", Qt::CaseInsensitive) != 0;
}

bool MesmoNome(const QString &a, const QString &b) {
  return FileNameOf(a).compare(FileNameOf(b), Qt::CaseInsensitive) == 0;
}

} // namespace

ControlSlides::ControlSlides(ConsoleContext &console, SlidePages &paginas, VerseStepper &stepper, ThemeControl &temas)
    : m_console(console), m_paginas(paginas), m_stepper(stepper), m_temas(temas) {
  m_timerSlides = console.clock.NewTimer([this] { TickSlides(); });
  m_timerAnota = console.clock.NewTimer([this] { Anota(); });
  m_temas.RedesenhaSlides = [this] { Envia(m_console.estado.SlideAtual, true, true); };
}

QString ControlSlides::Resolve(const QString &name) const {
  if (name.contains(u'\\') || name.contains(u'/')) {
    const QString path = m_console.app.ExpandAppPath(name);
    return FileExists(path) ? path : QString();
  }
  const QString inItsFolder = m_console.app.At(u"\\Slides\\") + name;
  for (const QString &path : {inItsFolder, QString(inItsFolder + u".sld")})
    if (FileExists(path))
      return path;
  return {};
}

bool ControlSlides::TemSlides(const QString &path) const {
  return LeSlidesParaExibir(path).Count() > 0;
}

bool ControlSlides::Le(const QString &path) {
  SlideDocument lido = LeSlidesParaExibir(path);
  if (lido.Count() < 1)
    return false;
  lido.visual.Font_Name = FonteInstalada(lido.visual.Font_Name);
  m_documento = lido;
  m_caminho = path;
  return true;
}

bool ControlSlides::LoadmSlide(const QString &path, int index, const QString &caption) {
  if (!Le(path)) {
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), QStringLiteral("There is no slide."));
    return false;
  }
  m_console.painel.Label9 = m_console.estado.TituloAtual = caption;
  Mostra(index);
  return true;
}

// Nothing of a song or a passage may be stepped to or sent any more.
void ControlSlides::TomaConsole() {
  EstadoConsole &estado = m_console.estado;
  PainelConsole &painel = m_console.painel;
  estado.DefineTipo(QStringLiteral("Slides"));
  m_temas.StopRotation();
  m_temas.ClearQueue(); // a queued theme was for this item, which has a look of its own
  estado.ArquivoAtual.clear();
  estado.ReferenciaAtual.clear();
  estado.TextoBiblia.clear();
  estado.Estrofes.clear();
  estado.TextoEstrofes.clear();
  estado.TotalEstrofes = 0;
  estado.EstrofeAtual = -1;
  estado.VersoHtmlAtual.clear();
  estado.VersoTextoAtual.clear();
  estado.UltimoTexto.clear();
  m_console.legenda.TextoLegenda.clear();
  estado.ModoMovimento = QStringLiteral("Normal");
  m_stepper.PlaceBelowFrame();
  m_console.faixa.Label1Visible = false;
  painel.biblia.Visible = false;
  painel.Picture4Visible = painel.Picture7Visible = false;
  painel.PicAviso = painel.PicAviso2 = painel.PicDica2 = painel.PicDica3 = painel.PicDica4 = false;
  painel.PicDicaAgenda = false;
  painel.MensagemTira.clear();
}

void ControlSlides::Mostra(int index) {
  EstadoConsole &estado = m_console.estado;
  const int carga = ++m_carga;
  // A document that was on show before may be due for its next slide while the pages are built.
  m_timerSlides->Stop();
  m_timerAnota->Stop();
  TomaConsole();
  estado.TotalSlides = m_documento.Count();
  estado.SlideAtual = m_console.painel.SlideEscolhido = m_documento.Tem(index) ? index : 0;
  updateCombos();
  ApplyZoom(m_console);
  m_console.Atualiza();
  CarregarSlides(estado.SlideAtual, 0);
  // While the pages were built the operator may have gone on, and then that stands.
  if (carga == m_carga && Visible() && estado.SlideAtual == index)
    ExibirSlideNoTelao(index, true, true);
}

void ControlSlides::CarregarSlides(int index, int alvo) {
  if (m_documento.Count() < 1) {
    m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), QStringLiteral("There is no slide."));
    return;
  }
  m_paginas.CarregarSlides(m_documento, index, alvo);
}

void ControlSlides::ExibirSlideNoTelao(int index, bool mudaImagem, bool mudaTexto) {
  if (!Visible() || !m_documento.Tem(index))
    return;
  if (const int intervalo = IntervaloDoCodigo(QString::number(m_documento.Intervalo)); intervalo > 0)
    m_timerSlides->Start(intervalo);
  else
    m_timerSlides->Stop();
  m_console.estado.SlideAtual = m_console.painel.SlideEscolhido = index;
  m_console.painel.MensagemTira.clear();
  Envia(index, mudaImagem, mudaTexto);
  m_timerAnota->Start(EsperaDaAnotacao);
  m_console.Atualiza();
}

void ControlSlides::Envia(int index, bool mudaImagem, bool mudaTexto) {
  if (!Visible() || !m_documento.Tem(index))
    return;
  if (mudaImagem) {
    const QString imagem = QString::number(index - 1);
    m_console.canal.SendToDisplay(u"GotoSlideImage|#" + imagem);
    CallPageScript(m_console.previa(), QStringLiteral("GotoSlideImage"), QString(imagem));
  }
  if (mudaTexto)
    EnviaTexto(Alvo::Ambas);
}

QString ControlSlides::TextoDoSlide(bool previa) const {
  return EscapaApostrofos(GetSlideTextoFormatado(m_documento, m_console.estado.SlideAtual, m_paginas.LarguraPx(previa),
                                                 m_console.ajustes.TransparenciaFaixa));
}

void ControlSlides::EnviaTexto(Alvo alvo) {
  if (!m_documento.Tem(m_console.estado.SlideAtual))
    return;
  if (alvo != Alvo::Previa) {
    const TemaRecord &visual = m_documento.visual;
    const QString saida = TemEfeitoDeSaida(visual) ? SemSeparador(visual.Efeito_Texto_FxOut) : QStringLiteral("|#");
    m_console.canal.SendToDisplay(u"UpdateText|#" + TextoDoSlide(false) + u"|#" + saida);
  }
  if (alvo != Alvo::Telao)
    CallPageScript(m_console.previa(), QStringLiteral("UpdateTextHtml"), TextoDoSlide(true));
}

void ControlSlides::updateCombos() {
  if (m_console.view)
    m_console.view->ThemesChanged();
}

void ControlSlides::Escolhe(int index) {
  if (!Visible() || !m_documento.Tem(index))
    return;
  m_console.painel.SlideEscolhido = index;
  m_console.painel.MensagemTira.clear();
  if (m_console.estado.EnviarAoTelao)
    ExibirSlideNoTelao(index, true, true);
  else
    m_console.Atualiza();
}

void ControlSlides::Passo(int delta) {
  const int agora = m_console.painel.SlideEscolhido;
  const int novo = std::clamp(agora + delta, 1, std::max(1, m_documento.Count()));
  if (novo != agora)
    Escolhe(novo);
}

void ControlSlides::SoltouCtrl() {
  if (m_console.estado.EnviarAoTelao && m_console.painel.SlideEscolhido != m_console.estado.SlideAtual)
    Escolhe(m_console.painel.SlideEscolhido);
}

void ControlSlides::TickSlides() {
  if (!Visible()) {
    m_timerSlides->Stop();
    return;
  }
  // The projection stands as long as Ctrl holds it.
  if (m_console.estado.EnviarAoTelao)
    ExibirSlideNoTelao(m_console.estado.SlideAtual % std::max(1, m_documento.Count()) + 1, true, true);
}

void ControlSlides::DocumentoMudou(const QString &oldName, const QString &newName) {
  // The editor saves to one folder; a document that was shown from elsewhere is another one.
  const bool daPasta = IsSameFile(m_caminho, m_console.app.At(u"\\Slides\\") + FileNameOf(m_caminho));
  if (!daPasta || (!MesmoNome(m_caminho, oldName) && !MesmoNome(m_caminho, newName)))
    return;
  const bool outroNome = MesmoNome(m_caminho, oldName) && !MesmoNome(oldName, newName);
  const QString novo = Resolve(FileNameOf(newName));
  // One that lost its slides cannot be shown: what is out stays.
  if (novo.isEmpty() || !Le(novo))
    return;
  if (outroNome)
    m_console.estado.TituloAtual = FileNameWithoutExtension(novo, QStringLiteral("."));
  m_console.estado.SlideAtual = std::clamp(m_console.estado.SlideAtual, 1, m_documento.Count());
  if (Visible())
    Volta();
}

void ControlSlides::Fecha() {
  ++m_carga;
  m_timerSlides->Stop();
  m_timerAnota->Stop();
  m_documento = SlideDocument();
  m_caminho.clear();
  m_console.estado.SlideAtual = m_console.estado.TotalSlides = m_console.painel.SlideEscolhido = 0;
  updateCombos();
}

bool ControlSlides::Volta() {
  if (m_documento.Count() < 1)
    return false;
  m_console.painel.Label9 = m_console.estado.TituloAtual;
  Mostra(std::max(1, m_console.estado.SlideAtual));
  return true;
}

void ControlSlides::Anota() {
  m_timerAnota->Stop();
  if (Visible() && m_console.estado.PaginaDeSlides())
    m_paginas.AnotaPaginas(m_documento, m_console.estado.SlideAtual);
}

void ControlSlides::PreviaMudou() {
  EnviaTexto(Alvo::Previa);
  const int larguraTelao = m_paginas.LarguraPx(false);
  const int larguraPrevia = m_paginas.LarguraPx(true);
  if (larguraTelao > 0 && larguraPrevia > 0)
    CallPageScript(m_console.previa(), QStringLiteral("ChangeCSS"), QStringLiteral("texto"),
                   QStringLiteral("text-shadow"),
                   ContornoTexto(m_documento.visual) + u',' +
                       SombraTexto(m_documento.visual, larguraPrevia / static_cast<double>(larguraTelao)));
}

// The page began with the slide that was noted; a step that is younger than the note goes on from there.
void ControlSlides::PaginaVoltou(Alvo qual) {
  if (!Visible() || !m_console.estado.PaginaDeSlides())
    return;
  m_console.ChamaPaginas(QStringLiteral("GotoSlideImage"), QString::number(m_console.estado.SlideAtual - 1), {}, {},
                         qual);
  EnviaTexto(qual);
}

} // namespace tolmira
