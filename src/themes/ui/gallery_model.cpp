#include "themes/ui/gallery_model.h"

namespace tolmira {

namespace {

constexpr int MemoryKiB = 64 * 1024; // some 850 small copies: several pages of a very large window

} // namespace

GalleryModel::GalleryModel(QObject *parent) : QAbstractListModel(parent), m_copias(MemoryKiB) {}

void GalleryModel::SetNomes(const QStringList &nomes) {
  beginResetModel();
  m_nomes = nomes;
  // What could not be read may be readable by now: a copy that was still under way.
  for (const QString &nome : m_copias.keys())
    if (m_copias.object(nome)->problem != PictureProblem::None)
      m_copias.remove(nome);
  NumeraLinhas();
  endResetModel();
}

void GalleryModel::NumeraLinhas() {
  m_linhas.clear();
  m_linhas.reserve(m_nomes.size());
  for (int linha = 0; linha < m_nomes.size(); ++linha)
    m_linhas.insert(m_nomes[linha], linha);
}

void GalleryModel::Remove(int linha) {
  if (linha < 0 || linha >= m_nomes.size())
    return;
  beginRemoveRows({}, linha, linha);
  m_copias.remove(m_nomes.takeAt(linha));
  NumeraLinhas();
  endRemoveRows();
}

void GalleryModel::Recebe(const QString &nome, const PictureImage &imagem) {
  const int linha = LinhaDe(nome);
  if (linha < 0)
    return;
  const auto cost = static_cast<int>(imagem.image.sizeInBytes() / 1024) + 1;
  m_copias.insert(nome, new PictureImage(imagem), cost);
  emit dataChanged(index(linha), index(linha));
}

void GalleryModel::Esquece(const QString &nome) {
  m_copias.remove(nome);
}

const PictureImage *GalleryModel::Copia(int linha) const {
  return m_copias.object(m_nomes.value(linha));
}

int GalleryModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_nomes.size());
}

QVariant GalleryModel::data(const QModelIndex &index, int role) const {
  if (!index.isValid() || index.row() >= m_nomes.size())
    return {};
  const QString &nome = m_nomes[index.row()];
  if (role == Qt::DisplayRole)
    return nome;
  if (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
    return {};
  const PictureImage *copia = Copia(index.row());
  if (!copia)
    return nome;
  if (copia->problem != PictureProblem::None)
    return QString(nome + (role == Qt::ToolTipRole ? u"\n" : u", ") + Motivo(copia->problem));
  return role == Qt::ToolTipRole ? tr("%1\n%2 × %3 pixels").arg(nome).arg(copia->size.width()).arg(copia->size.height())
                                 : nome;
}

QString GalleryModel::Motivo(PictureProblem problem) {
  switch (problem) {
  case PictureProblem::None:
    return {};
  case PictureProblem::Missing:
    return tr("The file is gone");
  case PictureProblem::NoPicture:
    return tr("Not a picture");
  case PictureProblem::CutOff:
    return tr("Part of the file is missing");
  case PictureProblem::TooLarge:
    return tr("Too large to be shown");
  }
  return {};
}

} // namespace tolmira
