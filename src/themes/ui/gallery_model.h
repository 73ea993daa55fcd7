#pragma once

#include "themes/picture_file.h"

#include <QAbstractListModel>
#include <QCache>
#include <QHash>
#include <QStringList>

namespace tolmira {

// The names of the pictures, and as many of their small copies as memory is given for.
class GalleryModel : public QAbstractListModel {
  Q_OBJECT

public:
  explicit GalleryModel(QObject *parent);

  void SetNomes(const QStringList &nomes);
  const QStringList &Nomes() const { return m_nomes; }
  int LinhaDe(const QString &nome) const { return m_linhas.value(nome, -1); }
  void Remove(int linha);

  void Recebe(const QString &nome, const PictureImage &imagem);
  void Esquece(const QString &nome); // the file changed
  void EsqueceTodas() { m_copias.clear(); }
  bool Tem(const QString &nome) const { return m_copias.contains(nome); }
  // Null while it has not come; owned by the model, until the next call of Recebe.
  const PictureImage *Copia(int linha) const;

  int rowCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;

  // What stands in an empty cell instead of the picture; empty when there is no problem.
  static QString Motivo(PictureProblem problem);

private:
  void NumeraLinhas();

  QStringList m_nomes;
  QHash<QString, int> m_linhas;
  QCache<QString, PictureImage> m_copias; // costs in KiB
};

} // namespace tolmira
