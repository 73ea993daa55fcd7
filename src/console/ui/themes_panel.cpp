#include "console/ui/themes_panel.h"

#include "controls/ui/frame_mark.h"
#include "controls/ui/palette.h"
#include "controls/ui/theme_tile.h"
#include "foundation/real_path.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QImageReader>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int Columns = 8;
// Heights of a tile, px.
constexpr int MenorTile = 56;
constexpr int MenorTileApertado = 44;
constexpr int MaiorTile = 150;
constexpr int MarkMargin = 3; // px that a frame stands out of its tile

QColor FromStored(qint32 colour) { // 0x00BBGGRR
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

} // namespace

ThemesPanel::ThemesPanel(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  auto *head = new QHBoxLayout;
  auto *title = new QLabel(tr("Themes"), this);
  title->setProperty("look", QStringLiteral("caps"));
  title->setMinimumHeight(medidas::Heading);
  head->addWidget(title);
  head->addStretch(1);
  m_altera = new QCheckBox(tr("Change the &theme with every item"), this);
  m_altera->setObjectName(QStringLiteral("CheckAlteraTemaAleatorio"));
  m_altera->setToolTip(tr("Each new item takes a ticked theme by chance"));
  m_altera->setAccessibleName(tr("Change the theme with every item"));
  head->addWidget(m_altera);
  head->addSpacing(MarkMargin);
  column->addLayout(head);
  connect(m_altera, &QCheckBox::clicked, this, [this](bool on) { m_parts.temas.SetCheckAlteraTemaAleatorio(on); });

  m_panel = new QWidget(this);
  m_panel->setObjectName(QStringLiteral("PicImgFundo"));
  auto *grid = new QGridLayout(m_panel);
  grid->setContentsMargins(MarkMargin, MarkMargin, MarkMargin, MarkMargin);
  grid->setSpacing(medidas::Gap);
  for (int n = 1; n <= NumeroDeTemas; ++n) {
    MakeTile(n, m_panel);
    grid->addWidget(m_tile[static_cast<size_t>(n)], (n - 1) / Columns, (n - 1) % Columns);
  }
  column->addWidget(m_panel);

  m_temaAtual = new FrameMark(QColor(cores::Accent), m_panel);
  m_temaAtual->setObjectName(QStringLiteral("PicTemaAtual"));
  m_avisoProximo = new FrameMark(QColor(cores::Held), m_panel);
  m_avisoProximo->setObjectName(QStringLiteral("PicAvisoProximo"));
  m_avisoProximo->SetBlinking(true);

  m_mntrocar = new QMenu(this);
  m_mntrocar->setObjectName(QStringLiteral("mntrocar"));
  m_mntrocar->setToolTipsVisible(true);
  m_mntrocar->addAction(QStringLiteral("Apply Theme"), this, [this] { m_parts.temas.MenuAplicar(m_menuTile); });
  QAction *configure = m_mntrocar->addAction(QStringLiteral("Configure Theme"), this, [this] { Configura(m_menuTile); });
  configure->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E)); // only named here; it is each tile's own

  m_maker.setMaxThreadCount(1);
  m_loader = new QTimer(this);
  m_loader->setInterval(0);
  connect(m_loader, &QTimer::timeout, this, &ThemesPanel::LoadNext);
}

void ThemesPanel::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  FitTiles();
}

void ThemesPanel::SetCompact(bool compact) {
  m_compact = compact;
  FitTiles();
}

// The tiles keep the proportions of a screen, within what reads and what leaves room for the desk.
void ThemesPanel::FitTiles() {
  const int tileWidth = (width() - 2 * MarkMargin - (Columns - 1) * medidas::Gap) / Columns;
  const int tileHeight = std::clamp(tileWidth * 9 / 16, m_compact ? MenorTileApertado : MenorTile, MaiorTile);
  const int rows = NumeroDeTemas / Columns;
  m_panel->setFixedHeight(rows * tileHeight + (rows - 1) * medidas::Gap + 2 * MarkMargin);
}

void ThemesPanel::MakeTile(int n, QWidget *panel) {
  auto *tile = new ThemeTile(n, panel);
  tile->setObjectName(QStringLiteral("PicImgFundoB%1").arg(n));
  tile->SetContent({});
  tile->setToolTip(tr("Theme %1. While a text is on show a press keeps it for the next item;\n"
                      "otherwise, and on the active theme, it is applied at once. Ctrl+E changes the theme itself.")
                       .arg(n));
  connect(tile, &ThemeTile::clicked, this, [this, n] { m_parts.temas.PressTile(n); });
  connect(tile, &ThemeTile::MenuWanted, this, [this, n](const QPoint &at) {
    m_menuTile = n;
    m_mntrocar->popup(at);
  });
  auto *settings =
      new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_E), tile, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  connect(settings, &QShortcut::activated, this, [this, n] { Configura(n); });
  auto *box = new QCheckBox(tile);
  box->setObjectName(QStringLiteral("ChkIM%1").arg(n));
  box->setAccessibleName(tr("Theme %1 takes part in the rotation").arg(n));
  box->setToolTip(tr("This theme takes part in the rotation"));
  box->setCursor(Qt::ArrowCursor);
  auto *corner = new QVBoxLayout(tile);
  corner->setContentsMargins(0, 4, 4, 0);
  corner->addWidget(box, 0, Qt::AlignTop | Qt::AlignRight);
  corner->addStretch(1);
  connect(box, &QCheckBox::clicked, this, [this, n](bool on) { m_parts.temas.SetChkIM(n, on); });
  m_tile[static_cast<size_t>(n)] = tile;
  m_chkIM[static_cast<size_t>(n)] = box;
}

void ThemesPanel::Configura(int n) {
  if (AbreConfigTema)
    AbreConfigTema(n);
}

void ThemesPanel::RecarregaTile(int n) {
  if (!m_loaded)
    return;
  m_waiting.push_back(n);
  m_loader->start();
}

void ThemesPanel::Atualiza() {
  const PainelConsole &painel = m_parts.console.painel;
  const auto frame = [this](FrameMark *mark, int slot) {
    const bool shown = slot >= 1 && slot <= NumeroDeTemas;
    if (shown)
      mark->Around(m_tile[static_cast<size_t>(slot)], MarkMargin);
    mark->setVisible(shown);
  };
  frame(m_temaAtual, painel.PicTemaAtual);
  frame(m_avisoProximo, painel.PicAvisoProximo);
  const QSignalBlocker quiet(m_altera);
  m_altera->setChecked(m_parts.temas.CheckAlteraTemaAleatorio());
  for (int n = 1; n <= NumeroDeTemas; ++n) {
    QCheckBox *box = m_chkIM[static_cast<size_t>(n)];
    const QSignalBlocker quietBox(box);
    box->setVisible(painel.ChkIMVisible);
    box->setChecked(m_parts.temas.ChkIM(n));
  }
}

void ThemesPanel::ThemesChanged() {
  Atualiza();
  if (!m_loaded)
    return;
  const TabelaTemas &temas = m_parts.temas.Temas();
  for (int n = 1; n <= NumeroDeTemas; ++n)
    if (!(temas[static_cast<size_t>(n)] == m_shown[static_cast<size_t>(n)]))
      m_waiting.push_back(n);
  if (!m_waiting.empty())
    m_loader->start();
}

void ThemesPanel::CarregaTiles() {
  m_loaded = true;
  m_waiting.clear();
  for (int n = 1; n <= NumeroDeTemas; ++n)
    m_waiting.push_back(n);
  m_loader->start();
}

void ThemesPanel::LoadNext() {
  if (m_waiting.empty()) {
    m_loader->stop();
    return;
  }
  const int n = m_waiting.front();
  m_waiting.pop_front();
  m_shown[static_cast<size_t>(n)] = m_parts.temas.Temas()[static_cast<size_t>(n)];
  const TemaTile tile = m_parts.loja.CarregaTile(n);
  ShowTile(n, tile);
  if (!tile.imagemAFazer.isEmpty())
    MakeThumbnailOf(n, tile);
}

void ThemesPanel::MakeThumbnailOf(int n, TemaTile tile) {
  ++m_making;
  m_maker.start([this, n, tile, tema = m_shown[static_cast<size_t>(n)]]() mutable {
    const bool made = FazMiniatura(tile, TamanhoDoTile);
    QMetaObject::invokeMethod(
        this,
        [this, n, tile, tema, made] {
          --m_making;
          if (made && tema == m_shown[static_cast<size_t>(n)]) // else it has changed meanwhile
            ShowTile(n, tile);
        },
        Qt::QueuedConnection);
  });
}

void ThemesPanel::ShowTile(int n, const TemaTile &tile) {
  ThemeTile::Content content;
  if (!tile.miniatura.isEmpty()) {
    QImageReader reader(MapStoredPath(tile.miniatura).text());
    reader.setDecideFormatFromContent(true);
    content.picture = QPixmap::fromImage(reader.read());
  }
  content.colour = FromStored(tile.corDeFundo);
  content.count = tile.contagem;
  content.video = tile.emblemaVideo;
  m_tile[static_cast<size_t>(n)]->SetContent(content);
}

} // namespace tolmira
