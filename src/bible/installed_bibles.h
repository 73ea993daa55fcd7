#pragma once

#include "web/web_client.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>
#include <memory>

namespace tolmira {

// A Bible that is installed on the computer as a SWORD module.
struct BibliaInstalada {
  QString modulo;    // "engKJV2006eb"
  QString idioma;    // "en"
  QString descricao; // "King James Version"
};

// What the importer prints for `--list`: a line a module, its three fields separated by tabs.
QList<BibliaInstalada> LeBibliasInstaladas(const QByteArray &saida);

// The short name that a module's version gets here, such as the importer takes; empty when nothing serves.
QString NomeCurtoDoModulo(const QString &modulo);

// The importer, a program of its own (docs/bibles.md). A task that is dropped ends it.
class ImportadorDeBiblias {
public:
  // `programa` is its real path. Where there is none, nothing is installed and no import succeeds.
  explicit ImportadorDeBiblias(QString programa) : m_programa(std::move(programa)) {}
  static QString Programa(); // beside this one; empty when it is missing

  using Instaladas = std::function<void(const QList<BibliaInstalada> &)>;
  using Importou = std::function<void(bool sim)>;
  [[nodiscard]] std::unique_ptr<WebTask> Lista(Instaladas pronto);
  // Writes both files of the version into the folder (real path), replacing what is there of that name.
  [[nodiscard]] std::unique_ptr<WebTask> Importa(const QString &modulo, const QString &nomeCurto, const QString &pasta,
                                                 Importou pronto);

private:
  QString m_programa;
};

} // namespace tolmira
