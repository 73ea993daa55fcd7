#include "themes/picture_gallery.h"

#include "foundation/real_path.h"
#include "foundation/text_fields.h"
#include "foundation/trash.h"
#include "themes/theme_record.h"

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>
#include <algorithm>

namespace tolmira {

namespace {

const QString Separador = QStringLiteral(" (-) ");
const QString Titulo = QStringLiteral("Tolmira");

struct Entrada {
  QString nome;
  QDateTime data;
};

QFileInfoList Arquivos(const AppFolder &app, QStringView pasta, const QString &padrao) {
  return QDir(MapStoredPath(app.At(pasta)).text())
      .entryInfoList(SplitText(padrao, QStringLiteral(";")), QDir::Files, QDir::Unsorted);
}

// A name with a "\" in it cannot be spelt as a stored path.
bool TemCaminho(const QString &nome) {
  return !nome.contains(u'\\');
}

QString Traduz(const char *texto) {
  return QCoreApplication::translate("PictureGallery", texto);
}

} // namespace

QString TextoDaData(const QDateTime &data) {
  return data.toString(QStringLiteral("yyyy-MM-dd-h-m"));
}

QString NomeDaEntrada(const QString &entrada) {
  const qsizetype at = entrada.indexOf(Separador);
  return at < 0 ? entrada : entrada.mid(at + Separador.size());
}

QStringList PictureGallery::Lista(const QString &padrao) const {
  QStringList nomes;
  for (const QFileInfo &file : Arquivos(m_app, u"\\Images", padrao))
    if (TemCaminho(file.fileName()))
      nomes.append(file.fileName());
  QCollator ordem;
  ordem.setCaseSensitivity(Qt::CaseInsensitive);
  ordem.setNumericMode(true);
  std::sort(nomes.begin(), nomes.end(), ordem);
  return nomes;
}

QStringList PictureGallery::ListaPorData(const QString &padrao) const {
  QHash<QString, QDateTime> pequenas;
  for (const QFileInfo &file : Arquivos(m_app, u"\\Images\\Mini", padrao))
    pequenas.insert(file.fileName().toLower(), file.lastModified());

  std::vector<Entrada> entradas;
  for (const QFileInfo &file : Arquivos(m_app, u"\\Images", padrao))
    if (TemCaminho(file.fileName()))
      entradas.push_back({file.fileName(), pequenas.value(file.fileName().toLower(), file.lastModified())});
  // Hours and minutes stand in the texts without leading zeros, so the order is that of the dates behind them: ten
  // o'clock comes after nine. It also goes on where the texts end, at the minute.
  std::sort(entradas.begin(), entradas.end(),
            [](const Entrada &a, const Entrada &b) { return a.data != b.data ? a.data > b.data : a.nome < b.nome; });

  QStringList textos;
  for (const Entrada &entrada : entradas)
    textos.append(TextoDaData(entrada.data) + Separador + entrada.nome);
  return textos;
}

QString PictureGallery::Uso(const QString &nome) const {
  const auto eEla = [&nome](const QString &outra) { return outra.compare(nome, Qt::CaseInsensitive) == 0; };
  QStringList temas;
  const IniSnapshot ini(m_app.At(u"\\Data\\Themes.ini"));
  for (int n = 1; n <= NumeroDeTemas; ++n) {
    const QString lista = ini.Read(QStringLiteral("Tema-%1").arg(n), QStringLiteral("img"), QString());
    const QStringList imagens = SplitText(lista, QStringLiteral("|"));
    if (std::any_of(imagens.begin(), imagens.end(), eEla))
      temas.append(QString::number(n));
  }
  const bool fundo = eEla(m_store.ReadConfig(QStringLiteral("Config"), QStringLiteral("padraodefundo"), QString()));
  QStringList usos;
  if (!temas.isEmpty())
    usos.append((temas.size() == 1 ? Traduz("theme %1") : Traduz("the themes %1")).arg(temas.join(u", ")));
  if (fundo)
    usos.append(Traduz("the default background"));
  return usos.isEmpty() ? QString() : Traduz("This picture is used by %1.").arg(usos.join(Traduz(" and by ")));
}

bool PictureGallery::Exclui(const QString &nome, UserPrompt &prompt) const {
  const QStringList simNao{QStringLiteral("Yes"), QStringLiteral("No")};
  const QString path = MapStoredPath(Caminho(nome)).text();
  const QString uso = Uso(nome);
  if (!uso.isEmpty() && prompt.Ask(Titulo, uso + u'\n' + Traduz("Do you want to delete it all the same?"), simNao) != 0)
    return false;
  if (QFileInfo(path).isFile() && !MoveToTrash(path)) {
    const QString question =
        Traduz("“%1” cannot be moved to the trash.").arg(nome) + u'\n' + Traduz("Do you want to delete it for good?");
    if (prompt.Ask(Titulo, question, simNao) != 0)
      return false;
    if (!QFile::remove(path) && QFileInfo::exists(path)) {
      prompt.Message(MessageKind::Warning, Titulo, Traduz("“%1” could not be deleted.").arg(nome));
      return false;
    }
  }
  if (QFileInfo::exists(path)) // a folder in its place
    return false;
  QFile::remove(MapStoredPath(m_app.At(u"\\Images\\Mini\\") + nome).text());
  return true;
}

QString PictureGallery::PastaAddImg() const {
  const QString pasta = m_store.ReadConfig(QStringLiteral("Config"), QStringLiteral("pastaAddImg"), QString());
  if (QFileInfo(MapStoredPath(pasta).text()).isDir())
    return pasta;
  return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void PictureGallery::GuardaPastaAddImg(const QString &pasta) const {
  m_store.WriteConfig(QStringLiteral("Config"), QStringLiteral("pastaAddImg"), pasta);
}

} // namespace tolmira
