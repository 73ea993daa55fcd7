#include "console/text_format_control.h"

#include "console/text_controls.h"
#include "console/song_loader.h"

namespace tolmira {

TextFormatControl::TextFormatControl(ConsoleContext &console, TabelaTemas &temas, SongLoader &loader,
                                     TextControls &textos)
    : m_console(console), m_temas(temas), m_loader(loader), m_textos(textos) {}

TextFormat TextFormatControl::Le() const {
  return {m_console.estado.TemaAtual.Maiusculas, m_console.ajustes.EstiloLouvor};
}

bool TextFormatControl::Aplica(const TextFormat &format) {
  const TextFormat before = Le();
  if (format.estilo != before.estilo)
    m_textos.SliderExLouvor(format.estilo);
  const bool written = format.maiusculas == before.maiusculas || AplicaMaiusculas(format.maiusculas);
  m_console.Atualiza();
  return written;
}

bool TextFormatControl::AplicaMaiusculas(bool maiusculas) {
  EstadoConsole &estado = m_console.estado;
  estado.TemaAtual.Maiusculas = maiusculas;
  m_temas[static_cast<size_t>(estado.IndiceTema)].Maiusculas = maiusculas;
  m_loader.RecarregaMusica(true);
  QString file = m_console.app.At(u"\\Data\\Themes.ini");
  return m_console.store.WriteConfig(QStringLiteral("Tema-%1").arg(estado.IndiceTema), QStringLiteral("Maiusculas"),
                                     maiusculas ? QStringLiteral("1") : QStringLiteral("0"), file);
}

} // namespace tolmira
