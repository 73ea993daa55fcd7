#include "console/projection_status.h"

#include "bible/bible_store.h"

#include <QObject>

namespace tolmira {

namespace {

const QString Live = QStringLiteral("live");
const QString Ready = QStringLiteral("ready");
const QString Held = QStringLiteral("held");
const QString Off = QStringLiteral("off");

bool TextoNoConsole(const OlharDaTela &olhar) {
  return olhar.faixa.Label1Visible || olhar.painel.biblia.Visible || olhar.estado.EhSlides();
}

// Ctrl is down: the console walks ahead and the projection stands.
bool Preso(const OlharDaTela &olhar) {
  return olhar.estado.TelaPronta && !olhar.estado.EnviarAoTelao && TextoNoConsole(olhar);
}

// What runs without verses of its own.
bool SemVersos(const QString &tipo) {
  return tipo == u"Slides" || tipo == u"SlideShow" || tipo == u"Video" || tipo == u"Youtube";
}

QString PrimeiraLinha(const EstadoConsole &estado, int verso) {
  const QString texto = estado.TextoEstrofes.value(verso - 1);
  for (const QString &linha : texto.split(QStringLiteral("<br>")))
    if (!linha.trimmed().isEmpty())
      return linha.trimmed();
  return {};
}

QString QualSaiu(const EstadoConsole &estado) {
  if (estado.EhLetra() && estado.EstrofeAtual > 0)
    return QObject::tr("Verse %1 of %2").arg(estado.EstrofeAtual).arg(estado.TotalEstrofes);
  if (estado.EhSlides() && estado.SlideAtual > 0)
    return QObject::tr("Slide %1 of %2").arg(estado.SlideAtual).arg(estado.TotalSlides);
  return estado.TipoAtual == u"Bíblia" ? estado.ReferenciaAtual : QString();
}

void DizDoShow(const PainelSlideShow &show, SituacaoDaTela &dita) {
  dita.LbEstadoTela = show.Acabou   ? QObject::tr("SHOW ENDED")
                      : show.Parado ? QObject::tr("SHOW PAUSED")
                                    : QObject::tr("SLIDE SHOW");
  dita.CorDoEstado = show.Acabou ? Ready : show.Parado ? Held : Live;
  dita.LbDetalheTela = show.Acabou ? QString() : show.Imagem;
}

void DizDoVideo(const PainelVideo &video, SituacaoDaTela &dita) {
  switch (video.situacao) {
  case PainelVideo::Situacao::Tocando:
    dita.LbEstadoTela = QObject::tr("VIDEO");
    dita.CorDoEstado = Live;
    break;
  case PainelVideo::Situacao::Parado:
    dita.LbEstadoTela = QObject::tr("VIDEO PAUSED");
    dita.CorDoEstado = Held;
    break;
  case PainelVideo::Situacao::Acabou:
    dita.LbEstadoTela = QObject::tr("VIDEO ENDED");
    dita.CorDoEstado = Ready;
    break;
  case PainelVideo::Situacao::Falhou:
    dita.LbEstadoTela = QObject::tr("VIDEO FAILED");
    dita.CorDoEstado = Off;
    dita.LbDetalheTela = video.Aviso.isEmpty() ? QObject::tr("%1 cannot be played").arg(video.Nome) : video.Aviso;
    return;
  }
  dita.LbDetalheTela = video.Tempo.isEmpty() ? video.Nome : QString(video.Nome + u" · " + video.Tempo);
  if (video.ImagemIlegivel)
    dita.LbDetalheTela = QObject::tr("Sound alone, the picture cannot be decoded · %1").arg(dita.LbDetalheTela);
}

QString DizDaCamera(const PainelCamera &camera) {
  switch (camera.situacao) {
  case Cameras::Situacao::Desligada:
    break;
  case Cameras::Situacao::Abrindo:
    return QObject::tr("Camera opening: %1").arg(camera.Nome);
  case Cameras::Situacao::NoTelao:
    return QObject::tr("Camera: %1").arg(camera.Nome);
  case Cameras::Situacao::Falhou:
    return QObject::tr("Camera cannot be opened: %1").arg(camera.Nome);
  case Cameras::Situacao::Saiu:
    return QObject::tr("Camera unplugged: %1").arg(camera.Nome);
  }
  return {};
}

void DizOQueSaiu(const OlharDaTela &olhar, SituacaoDaTela &dita) {
  const EstadoConsole &estado = olhar.estado;
  const auto diz = [&dita](const QString &aviso, const QString &cor, const QString &detalhe) {
    dita.LbEstadoTela = aviso;
    dita.CorDoEstado = cor;
    dita.LbDetalheTela = detalhe;
  };
  if (!estado.TelaPronta)
    return diz(QObject::tr("STARTING"), QString(), QString());
  if (olhar.painel.SemProjetor)
    return diz(QObject::tr("NO PROJECTOR"), Off, QObject::tr("The second monitor is missing: nothing is shown"));
  if (estado.EstadoTela == u"OcultarTexto")
    diz(QObject::tr("TEXT HIDDEN"), Held, QObject::tr("F5 brings the text back"));
  else if (estado.EstadoTela == u"TelaPreta")
    diz(QObject::tr("BLACK SCREEN"), Off, QObject::tr("F5 brings the picture back"));
  else if (estado.EstadoTela == u"PadraoDeFundo")
    diz(QObject::tr("BACKGROUND ONLY"), Held, QObject::tr("F5 brings the text back"));
  else if (estado.EstadoTela == u"Hide")
    diz(QObject::tr("NO PROJECTION"), Off, QObject::tr("F5 brings the projection back"));
  else if (olhar.painel.slideShow.Ativo && estado.TipoAtual == u"SlideShow")
    DizDoShow(olhar.painel.slideShow, dita);
  else if (olhar.painel.video.Ativo)
    DizDoVideo(olhar.painel.video, dita);
  else if (Preso(olhar))
    diz(QObject::tr("HELD"), Held, QObject::tr("The projection stands until Ctrl is released"));
  else if (estado.VersoHtmlAtual.isEmpty() && !SemVersos(estado.TipoAtual))
    diz(QObject::tr("LIVE, NO TEXT"), Ready, QString());
  else
    diz(QObject::tr("LIVE"), Live, QualSaiu(estado));
  const auto acrescenta = [&dita](const QString &nota) {
    dita.LbDetalheTela = dita.LbDetalheTela.isEmpty() ? nota : QString(dita.LbDetalheTela + u" · " + nota);
  };
  if (const QString camera = DizDaCamera(olhar.painel.camera); !camera.isEmpty())
    acrescenta(camera);
  if (olhar.painel.Ensaio) {
    const std::vector<OpcaoDeTela> &telas = olhar.painel.telas;
    const bool porEscolha = !telas.empty() && !telas.front().marcada;
    const QString nota = porEscolha ? QObject::tr("Rehearsal window on your own screen")
                                    : QObject::tr("Rehearsal window: there is no second monitor");
    acrescenta(nota);
  }
}

QString ProximoDaMusica(const OlharDaTela &olhar, bool preso) {
  const EstadoConsole &estado = olhar.estado;
  if (preso) {
    const QString linha = PrimeiraLinha(estado, estado.EstrofeAtual);
    return linha.isEmpty() ? QObject::tr("On release: no text") : QObject::tr("On release: %1").arg(linha);
  }
  for (int verso = qMax(estado.EstrofeAtual, 0) + 1; verso <= estado.TotalEstrofes; ++verso)
    if (const QString linha = PrimeiraLinha(estado, verso); !linha.isEmpty())
      return QObject::tr("Next: %1").arg(linha);
  return QObject::tr("Last verse");
}

QString ProximoDaPassagem(const OlharDaTela &olhar, bool preso) {
  const PainelBiblia &biblia = olhar.painel.biblia;
  if (preso)
    return QObject::tr("On release: %1").arg(biblia.Referencia);
  const qsizetype doisPontos = biblia.Referencia.lastIndexOf(u':');
  const int verso = QStringView(biblia.Referencia).mid(doisPontos + 1).toInt();
  for (int n = verso + 1; n < olhar.capitulo.size(); ++n)
    if (const QString texto = TextoDoVersiculo(olhar.capitulo[n]); !texto.trimmed().isEmpty())
      return QObject::tr("Next: verse %1, %2").arg(QString::number(n), texto.simplified());
  return QObject::tr("Last verse of the chapter");
}

QString NomeDoSlide(const SlideDocument &slides, int index) {
  const Slide &slide = slides.Em(index);
  const QString texto = (slide.Titulo.trimmed().isEmpty() ? slide.Texto : slide.Titulo).simplified();
  return texto.isEmpty() ? QObject::tr("slide %1").arg(index)
                         : QObject::tr("slide %1, %2").arg(QString::number(index), texto);
}

QString ProximoDosSlides(const OlharDaTela &olhar, bool preso) {
  const int escolhido = olhar.painel.SlideEscolhido;
  if (preso && olhar.slides.Tem(escolhido))
    return QObject::tr("On release: %1").arg(NomeDoSlide(olhar.slides, escolhido));
  if (olhar.slides.Tem(escolhido + 1))
    return QObject::tr("Next: %1").arg(NomeDoSlide(olhar.slides, escolhido + 1));
  if (olhar.slides.Count() > 1 && IntervaloDoCodigo(QString::number(olhar.slides.Intervalo)) > 0)
    return QObject::tr("Next: %1").arg(NomeDoSlide(olhar.slides, 1));
  return QObject::tr("Last slide");
}

// The chosen entry is what stands on the console, or the passage that the operator walked on from.
bool EstaNoConsole(const OlharDaTela &olhar) {
  const ListTarefas &lista = olhar.lista;
  if (lista.SelectedName() == olhar.painel.Label9)
    return true;
  const auto capitulo = [](const QString &referencia) { return referencia.section(u':', 0, 0); };
  return olhar.painel.biblia.Visible && lista.SelectedKind() == 1 &&
         capitulo(lista.SelectedCaption()) == capitulo(olhar.painel.biblia.Referencia);
}

void DizOQueVem(const OlharDaTela &olhar, SituacaoDaTela &dita) {
  const bool preso = Preso(olhar);
  const ListTarefas &lista = olhar.lista;
  const QString escolhida = lista.HasSelection() ? lista.SelectedName() : QString();
  const bool item = !olhar.painel.Label9.isEmpty();
  QStringList depois;
  if (olhar.estado.EhSlides())
    dita.LbProximo = ProximoDosSlides(olhar, preso);
  else if (olhar.painel.biblia.Visible)
    dita.LbProximo = ProximoDaPassagem(olhar, preso);
  else if (olhar.faixa.Label1Visible && olhar.estado.TotalEstrofes > 0)
    dita.LbProximo = ProximoDaMusica(olhar, preso);
  else if (!item)
    dita.LbProximo =
        escolhida.isEmpty() ? QObject::tr("Nothing is chosen") : QObject::tr("Enter shows: %1").arg(escolhida);
  if (item && !escolhida.isEmpty() && !EstaNoConsole(olhar))
    depois << QObject::tr("Then: %1").arg(escolhida);
  if (olhar.estado.ProximoTema > 0)
    depois << QObject::tr("Theme %1 with the next item").arg(olhar.estado.ProximoTema);
  dita.LbDepois = depois.join(QStringLiteral(" · "));
}

void DizQuemOuve(const OlharDaTela &olhar, SituacaoDaTela &dita) {
  switch (olhar.painel.Legendas) {
  case ServidorDeLegendas::Desligado:
    dita.LbServidorLegenda = QObject::tr("Captions off");
    break;
  case ServidorDeLegendas::SemCliente:
    dita.LbServidorLegenda = QObject::tr("Captions: no client");
    dita.CorDasLegendas = Live;
    break;
  case ServidorDeLegendas::ComCliente:
    dita.LbServidorLegenda = QObject::tr("Captions: client");
    dita.CorDasLegendas = Live;
    break;
  }
}

} // namespace

SituacaoDaTela DescreveSituacao(const OlharDaTela &olhar) {
  SituacaoDaTela dita;
  DizOQueSaiu(olhar, dita);
  DizOQueVem(olhar, dita);
  DizQuemOuve(olhar, dita);
  return dita;
}

} // namespace tolmira
