#include "console/console_core.h"

#include "console/projection_status.h"
#include "display/text_style.h"

#include <utility>

namespace tolmira {

ConsoleCore::ConsoleCore(const ConsoleDoors &doors)
    : canal(estado, doors.telao),
      letras(estado, ajustes, canal, doors.telao, doors.previa, doors.measure, doors.random),
      biblia(
          estado, ajustes, legenda.Biblia, canal, doors.telao, doors.previa,
          [this] { return contexto.view ? contexto.view->PreviewWidthPx() : 0; }, doors.random),
      paginas(doors.app, doors.store, estado, ajustes, canal, letras, Hosts(doors), doors.random, doors.yielder),
      paginasDeSlides(doors.app, doors.store, estado, ajustes, canal, Hosts(doors), doors.random, doors.yielder),
      contexto{doors.app,    doors.store,   estado,      legenda,     ajustes,     faixa,        painel,
               canal,        letras,        paginas,     doors.clock, doors.random, doors.yielder,
               doors.prompt, doors.measure, doors.telao, doors.previa},
      loja(doors.app, temas), lojaBiblia(doors.app, doors.store),
      agenda(doors.app, doors.store, estado, painel, faixa, contexto.view, doors.prompt), stepper(contexto),
      temaControle(contexto, temas), loader(contexto, stepper, temaControle),
      leitura(contexto, lojaBiblia, biblia, stepper, temaControle),
      slides(contexto, paginasDeSlides, stepper, temaControle), controles(contexto), textos(contexto, loader, leitura),
      efeitos(contexto, temaControle, loader, leitura, slides), formato(contexto, temas, loader, textos),
      video(contexto, stepper, temaControle), controleDeVideo(estado, [this] { return Wmp(); }, doors.yielder),
      controleDaWeb(estado, [this] { return contexto.Pagina(Alvo::Telao); }),
      videoDaWeb(contexto, stepper, temaControle, video, controleDaWeb),
      cameras([this](const QString &script, Alvo alvo) { contexto.ScriptNasPaginas(script, alvo); },
              [this] { contexto.Atualiza(); }, doors.prompt),
      flow(contexto, agenda, loader, leitura, slides, temaControle, video, videoDaWeb), show(contexto, stepper, temaControle),
      teclas(contexto, stepper, flow, agenda, leitura, slides) {
  flow.MostraTelao = [this] {
    if (estado.EstadoTela == u"Hide")
      controles.SetScreenState(0);
    canal.SendToDisplay(QStringLiteral("Show"));
  };
  show.FechaVideo = [this] { flow.cancelaWMP(); };
  show.VoltaAosSlides = [this] { return slides.Volta(); };
  contexto.descreve = [this] {
    cameras.StatusTelaCamera(estado.PaginaDeTexto());
    painel.camera = {cameras.Pode(), cameras.Como(cameras.Ligada()), cameras.Nome()};
    painel.situacao =
        DescreveSituacao({estado, painel, faixa, agenda.Lista(), lojaBiblia.Capitulo(), slides.Documento()});
  };
}

void ConsoleCore::PaginaVoltou(Alvo qual) {
  efeitos.PaginaVoltou(qual);
  loader.PaginaVoltou(qual);
  leitura.PaginaVoltou(qual);
  textos.PaginaVoltou(qual);
  slides.PaginaVoltou(qual);
  show.PaginaVoltou(qual);
  videoDaWeb.PaginaVoltou(qual);
  for (const Alvo cada : {Alvo::Telao, Alvo::Previa})
    if (qual == cada || qual == Alvo::Ambas)
      cameras.PaginaMontada(cada);
}

void ConsoleCore::PreviaMudou() {
  if (estado.TelaPronta && slides.Visible())
    slides.PreviaMudou();
  if (!estado.TelaPronta || !estado.PaginaDeTexto())
    return;
  contexto.EnviaTamanhoDaFonte(Alvo::Previa);
  leitura.ReenviaVersiculo(Alvo::Previa); // its size stands in the verse itself
  const int larguraTelao = contexto.TelaPx().width();
  const int larguraPrevia = contexto.view ? contexto.view->PreviewWidthPx() : 0;
  if (larguraTelao > 0 && larguraPrevia > 0)
    CallPageScript(contexto.Pagina(Alvo::Previa), QStringLiteral("ChangeCSS"), QStringLiteral("texto"),
                   QStringLiteral("text-shadow"),
                   ContornoTexto(estado.TemaAtual) + u',' +
                       SombraTexto(estado.TemaAtual, larguraPrevia / static_cast<double>(larguraTelao)));
}

MediaPlayer *ConsoleCore::Wmp() const {
  Display *display = contexto.telao();
  return display ? display->wmp() : nullptr;
}

// While Ctrl is held the frame holds another verse than the projection, and a page that is built anew gets that of the
// projection.
int ConsoleCore::VersoNoTelao() const {
  if (!estado.EhLetra() || estado.EnviarAoTelao)
    return estado.EstrofeAtual;
  if (estado.VersoTextoAtual.isEmpty())
    return -1;
  return static_cast<int>(estado.TextoEstrofes.indexOf(estado.VersoTextoAtual)) + 1;
}

void ConsoleCore::TelaMudou() {
  loader.AjustaQuadro();
  if (slides.Visible()) {
    slides.CarregarSlides(estado.SlideAtual, 0);
    contexto.Atualiza();
    return;
  }
  const int noTelao = VersoNoTelao();
  int noQuadro = std::exchange(estado.EstrofeAtual, noTelao > 0 ? noTelao : -1);
  const bool adiante = noQuadro != estado.EstrofeAtual;
  const QStringList antes = estado.TextoEstrofes;
  loader.RecarregaMusica(false);
  leitura.RecarregaVersiculo(false);
  const int montada = estado.EstrofeAtual;
  if (estado.PaginaDeTexto() && !video.EmExibicao()) { // whose sound the building would end
    paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, 0);
    leitura.ReenviaVersiculo();
  }
  // While the page was built the operator may have gone on, and then the frame is right already.
  if (!adiante || estado.EstrofeAtual != montada)
    return;
  if (noQuadro > 0)
    noQuadro = MesmoLugar(antes, noQuadro, estado.TextoEstrofes);
  estado.EstrofeAtual = noQuadro;
  if (noQuadro > 0)
    stepper.PlaceAt(noQuadro);
  contexto.Atualiza();
  // Ctrl was let go meanwhile, and what went out was the projection's verse, which stood in the frame then.
  if (noQuadro > 0 && estado.EnviarAoTelao)
    stepper.MouseUp_Finaliza(false, false);
}

void ConsoleCore::LegendasSalvas() {
  loader.RecarregaMusica(true);
  leitura.RecarregaVersiculo(true);
}

void ConsoleCore::TelaoRefeito() {
  constexpr int Telao = 1;
  if (slides.Visible()) {
    slides.CarregarSlides(estado.SlideAtual, Telao);
    return;
  }
  if (show.EstaNoTelao()) {
    show.TelaoRefeito();
    return;
  }
  if (video.EmExibicao()) {
    video.TelaoRefeito();
    return;
  }
  if (videoDaWeb.EmExibicao()) {
    videoDaWeb.TelaoRefeito();
    return;
  }
  paginas.MontaPagina(estado.TemaAtual, estado.EstrofeAtual, Telao);
  leitura.ReenviaVersiculo(); // of a passage the builder only tells the preview
}

PageBuilder::Hosts ConsoleCore::Hosts(const ConsoleDoors &doors) {
  PageBuilder::Hosts hosts;
  hosts.telao = doors.telao;
  hosts.previa = doors.previa;
  hosts.larguraPrevia = [this] { return contexto.view ? contexto.view->PreviewWidthPx() : 0; };
  hosts.fonteDisplay = [this] { return loader.FonteDisplay(); };
  hosts.ajustaTelaFundo = [](bool) {}; // the layers follow the display's own commands
  hosts.paginaMontada = [this](Alvo qual) { cameras.PaginaMontada(qual); };
  hosts.exibeBiblia = [this] {
    biblia.ExibeBiblia(estado.TextoBiblia, estado.ReferenciaAtual, estado.FonteTamanho, false, true);
  };
  return hosts;
}

} // namespace tolmira
