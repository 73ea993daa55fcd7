#include "notices/notice_list.h"

#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

#include <QFile>
#include <QRegularExpression>
#include <utility>

namespace tolmira {

namespace {

const QRegularExpression &FimDeLinha() {
  static const QRegularExpression end(QStringLiteral("\r\n|\r|\n"));
  return end;
}

// What was pasted may have several; two lines of the file would be two notices.
QString NumaLinha(QString aviso) {
  static const QRegularExpression ends(QStringLiteral("\\r\\n|[\\r\\n\\v\\f\u2028\u2029]"));
  return aviso.replace(ends, QStringLiteral(" "));
}

} // namespace

ListaDeAvisos::ListaDeAvisos(const AppFolder &app) : m_arquivo(app.At(u"\\Data\\notices.txt")) {}

void ListaDeAvisos::ListarAvisos() {
  QFile file(MapStoredPath(m_arquivo).text());
  if (file.open(QIODevice::Append))
    file.close();
  const FileContent content = ReadFileContent(m_arquivo);
  m_lidoInteiro = !content.exists || content.complete;
  const DecodedText decoded = DecodeText(content.bytes);
  m_codificacao = decoded.encoding;
  m_avisos.clear();
  for (const QString &line : decoded.text.split(FimDeLinha()))
    if (!line.trimmed().isEmpty())
      m_avisos.append(line);
}

bool ListaDeAvisos::Acrescenta(const QString &aviso) {
  return GravaListaAvisos(m_avisos + QStringList{NumaLinha(aviso)});
}

bool ListaDeAvisos::Troca(qsizetype indice, const QString &aviso) {
  if (indice >= m_avisos.size())
    return false;
  QStringList avisos = m_avisos;
  avisos[indice] = NumaLinha(aviso);
  return GravaListaAvisos(avisos);
}

bool ListaDeAvisos::Exclui(qsizetype indice) {
  QStringList avisos = m_avisos;
  avisos.removeAt(indice);
  return GravaListaAvisos(avisos);
}

bool ListaDeAvisos::ExcluiTodos() {
  const bool antes = std::exchange(m_lidoInteiro, true); // nothing of what was not read is to stay
  if (GravaListaAvisos({}))
    return true;
  m_lidoInteiro = antes;
  return false;
}

bool ListaDeAvisos::GravaListaAvisos(const QStringList &avisos) {
  QString text;
  for (const QString &aviso : avisos)
    text += aviso + CRLF;
  if (!m_lidoInteiro || !WriteFileAtomically(m_arquivo, EncodeText(text, m_codificacao)))
    return false;
  m_avisos = avisos;
  return true;
}

} // namespace tolmira
