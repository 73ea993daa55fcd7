#pragma once

#include "foundation/app_folder.h"
#include "themes/picture_file.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QThreadPool>
#include <mutex>
#include <optional>

namespace tolmira {

// Brings small copies, and single pictures at a larger size, beside the interface thread. Its threads give way to all
// others: the projection moves meanwhile. The signals come on the thread of the object.
class SmallCopyLoader : public QObject {
  Q_OBJECT

public:
  explicit SmallCopyLoader(const AppFolder &app, QObject *parent = nullptr);
  ~SmallCopyLoader() override; // waits for the pictures that are being decoded

  // The small copies wanted from now on, the most wanted first, in place of all that were wanted before. An empty list
  // stops. A name is that of a picture of the gallery, or a full stored path.
  void Deseja(const QStringList &nomes);
  // One picture as large as fits into `area` (px), before all small copies; in place of one that still waits.
  void Amplia(const QString &nome, const QSize &area);

signals:
  void Pronta(const QString &nome, const tolmira::PictureImage &imagem);
  void Ampliada(const QString &nome, const tolmira::PictureImage &imagem);

private:
  struct Tarefa {
    QString nome;
    QSize area; // empty for a small copy
  };
  void Acorda();
  void Trabalha();
  std::optional<Tarefa> Toma();

  const AppFolder m_app;
  std::mutex m_mutex;
  QStringList m_fila;
  QSet<QString> m_emTrabalho;
  std::optional<Tarefa> m_ampliar;
  int m_trabalhadores = 0;
  QThreadPool m_pool;
};

} // namespace tolmira
