#include "controls/ui/font_box.h"

#include "controls/ui/palette.h"

#include <QFontDatabase>
#include <QHash>
#include <QListView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTimer>

namespace tolmira {

namespace {

constexpr int RowHeight = 28;
constexpr int PopupWidth = 280;

// Names in their own faces. A face takes milliseconds to load, and a page of new ones as long as a text takes to glide
// in, on the same thread: so a name stands in plain letters first, and its face comes in a turn of its own.
class FaceDelegate : public QStyledItemDelegate {
public:
  explicit FaceDelegate(QListView *list) : QStyledItemDelegate(list), m_list(list) {
    m_next.setInterval(0);
    connect(&m_next, &QTimer::timeout, this, &FaceDelegate::LoadNext);
  }

  // Never asks a font: the list would have to load all of them to know its height.
  QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return {PopupWidth, RowHeight}; }

protected:
  void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto known = m_readable.constFind(option->text);
    if (known == m_readable.constEnd()) {
      m_next.start();
    } else if (*known) {
      option->font = FaceOf(option->text);
      option->fontMetrics = QFontMetrics(option->font);
    }
  }

private:
  static QFont FaceOf(const QString &family) {
    QFont face(family);
    face.setPixelSize(RowHeight * 6 / 10);
    return face;
  }

  // One of those in sight.
  void LoadNext() {
    const QRect sight = m_list->viewport()->rect();
    for (QModelIndex row = m_list->indexAt(sight.topLeft()); row.isValid() && m_list->visualRect(row).intersects(sight);
         row = row.siblingAtRow(row.row() + 1)) {
      const QString family = row.data().toString();
      if (m_readable.contains(family))
        continue;
      // A font of signs would write its own name in signs.
      const bool latin = QFontDatabase::writingSystems(family).contains(QFontDatabase::Latin);
      if (latin)
        QFontMetrics(FaceOf(family)).horizontalAdvance(family);
      m_readable.insert(family, latin);
      m_list->update(row);
      return;
    }
    m_next.stop();
  }

  QListView *m_list;
  mutable QTimer m_next;
  QHash<QString, bool> m_readable;
};

} // namespace

FontBox::FontBox(QWidget *parent) : QComboBox(parent) {
  auto *list = new QListView(this);
  list->setUniformItemSizes(true);
  list->setMinimumWidth(PopupWidth);
  setView(list);
  setItemDelegate(new FaceDelegate(list));
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
