#include "controls/ui/font_box.h"

#include "controls/ui/palette.h"

#include <QFontDatabase>
#include <QHash>
#include <QListView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace tolmira {

namespace {

constexpr int RowHeight = 28;
constexpr int PopupWidth = 280;

class FaceDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  // Never asks a font: the list would have to load all of them to know its height.
  QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return {PopupWidth, RowHeight}; }

protected:
  void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QString family = option->text;
    if (!Readable(family))
      return;
    QFont face(family);
    face.setPixelSize(RowHeight * 6 / 10);
    option->font = face;
    option->fontMetrics = QFontMetrics(face);
  }

private:
  // A font of signs would write its own name in signs.
  bool Readable(const QString &family) const {
    const auto known = m_readable.constFind(family);
    if (known != m_readable.constEnd())
      return *known;
    const bool latin = QFontDatabase::writingSystems(family).contains(QFontDatabase::Latin);
    m_readable.insert(family, latin);
    return latin;
  }

  mutable QHash<QString, bool> m_readable;
};

} // namespace

FontBox::FontBox(QWidget *parent) : QComboBox(parent) {
  auto *list = new QListView(this);
  list->setUniformItemSizes(true);
  list->setMinimumWidth(PopupWidth);
  setView(list);
  setItemDelegate(new FaceDelegate(this));
  setMaxVisibleItems(12);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
}

void FontBox::CarregaFontes() {
  QStringList families = QFontDatabase::families();
  // Fonts for text that runs from top to bottom carry an "@" before their name.
  families.removeIf([](const QString &name) { return name.startsWith(u'@'); });
  clear();
  addItems(families);
  setCurrentIndex(-1);
}

void FontBox::ShowFont(const QString &family) {
  setPlaceholderText(family);
  setCurrentIndex(findText(family, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

} // namespace tolmira
