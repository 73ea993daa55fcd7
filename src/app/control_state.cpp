#include "app/control_state.h"

#include <QJsonArray>

#include <algorithm>

namespace tolmira {

namespace {

QJsonObject Scalars(const ControlDoors &doors) {
  const EstadoConsole &e = doors.estado;
  return {
      {QStringLiteral("TelaPronta"), e.TelaPronta},
      {QStringLiteral("TipoAtual"), e.TipoAtual},
      {QStringLiteral("TipoAnterior"), e.TipoAnterior},
      {QStringLiteral("SlideShowAtivo"), e.SlideShowAtivo},
      {QStringLiteral("TipoMidia"), e.TipoMidia},
      {QStringLiteral("EstadoYoutube"), e.EstadoYoutube},
      {QStringLiteral("EstadoTela"), e.EstadoTela},
      {QStringLiteral("PaginaAtual"), e.PaginaAtual},
      {QStringLiteral("DisplayVisivel"), doors.displayVisivel && doors.displayVisivel()},
      {QStringLiteral("TelaoEm"), doors.telaoEm ? doors.telaoEm() : QString()},
      {QStringLiteral("SemProjetor"), doors.semProjetor && doors.semProjetor()},
      {QStringLiteral("EstrofeAtual"), e.EstrofeAtual},
      {QStringLiteral("TotalEstrofes"), e.TotalEstrofes},
      {QStringLiteral("SlideAtual"), e.SlideAtual},
      {QStringLiteral("TotalSlides"), e.TotalSlides},
      {QStringLiteral("VersoHtmlAtual"), e.VersoHtmlAtual},
      {QStringLiteral("VersoTextoAtual"), e.VersoTextoAtual},
      {QStringLiteral("TextoLegenda"), doors.textoLegenda ? doors.textoLegenda() : QString()},
      {QStringLiteral("ReferenciaAtual"), e.ReferenciaAtual},
      {QStringLiteral("VersaoBiblia"), e.VersaoBiblia},
      {QStringLiteral("ArquivoAtual"), e.ArquivoAtual},
      {QStringLiteral("TituloAtual"), e.TituloAtual},
      {QStringLiteral("IndiceTema"), e.IndiceTema},
      {QStringLiteral("ProximoTema"), e.ProximoTema},
      {QStringLiteral("ActiveAgenda"), e.ActiveAgenda},
      {QStringLiteral("ModoMovimento"), e.ModoMovimento},
      {QStringLiteral("EnviarAoTelao"), e.EnviarAoTelao},
      {QStringLiteral("FonteTamanho"), e.FonteTamanho},
      {QStringLiteral("FundoPreso"), e.FundoPreso},
  };
}

QJsonArray EstrofesJson(const TabelaEstrofes &estrofes) {
  QJsonArray list;
  // Element 0 of the table stands for nothing.
  for (size_t n = 1; n < estrofes.size(); ++n)
    list.append(QJsonObject{{QStringLiteral("Topo"), estrofes[n].Topo},
                            {QStringLiteral("Base"), estrofes[n].Base},
                            {QStringLiteral("Texto"), estrofes[n].Texto}});
  return list;
}

QJsonArray AgendaJson(const std::vector<EntradaAgenda> &agenda) {
  QJsonArray list;
  for (const EntradaAgenda &entry : agenda)
    list.append(QJsonObject{{QStringLiteral("kind"), entry.kind},
                            {QStringLiteral("label"), entry.label},
                            {QStringLiteral("target"), entry.target}});
  return list;
}

std::vector<EntradaAgenda> AgendaOf(const ControlDoors &doors) {
  return doors.agenda ? doors.agenda() : std::vector<EntradaAgenda>();
}

bool SameEstrofes(const TabelaEstrofes &a, const TabelaEstrofes &b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Estrofe &x, const Estrofe &y) {
    return x.Topo == y.Topo && x.Base == y.Base && x.Texto == y.Texto;
  });
}

} // namespace

QJsonObject StateOf(const ControlDoors &doors) {
  QJsonObject state = Scalars(doors);
  state.insert(QStringLiteral("Estrofes"), EstrofesJson(doors.estado.Estrofes));
  state.insert(QStringLiteral("Agenda"), AgendaJson(AgendaOf(doors)));
  return state;
}

void StateWatch::Start(const ControlDoors &doors) {
  m_scalars = Scalars(doors);
  m_estrofes = doors.estado.Estrofes;
  m_agenda = AgendaOf(doors);
}

QJsonObject StateWatch::Changes(const ControlDoors &doors) {
  QJsonObject changes;
  QJsonObject scalars = Scalars(doors);
  for (auto field = scalars.constBegin(); field != scalars.constEnd(); ++field)
    if (m_scalars.value(field.key()) != field.value())
      changes.insert(field.key(), field.value());
  m_scalars = scalars;
  if (!SameEstrofes(m_estrofes, doors.estado.Estrofes)) {
    m_estrofes = doors.estado.Estrofes;
    changes.insert(QStringLiteral("Estrofes"), EstrofesJson(m_estrofes));
  }
  std::vector<EntradaAgenda> agenda = AgendaOf(doors);
  if (agenda != m_agenda) {
    m_agenda = std::move(agenda);
    changes.insert(QStringLiteral("Agenda"), AgendaJson(m_agenda));
  }
  return changes;
}

} // namespace tolmira
