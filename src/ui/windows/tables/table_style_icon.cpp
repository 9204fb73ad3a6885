#include "ui/windows/tables/table_style_icon.h"

#include <QColor>
#include <QIconEngine>
#include <QPainter>
#include <cmath>

#include "tools/table_style.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

constexpr int kRows = 5;
constexpr int kColumns = 4;
constexpr QRgb kLines = 0xFFA3A3A3;

class Engine final : public QIconEngine {
 public:
  explicit Engine(const tools::TableStyle& style) : m_style(style) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    const double scale = std::abs(painter->deviceTransform().m11());
    const auto edge = [scale](double at) { return std::round(at * scale) / scale; };
    const double line = edge(1);
    const QSizeF cell((rect.width() - line) / kColumns, (rect.height() - line) / kRows);
    painter->fillRect(rect, QColor::fromRgba(kLines));
    for (int row = 0; row < kRows; ++row) {
      for (int column = 0; column < kColumns; ++column) {
        const QPointF begin(edge(rect.x() + column * cell.width()), edge(rect.y() + row * cell.height()));
        const QPointF end(edge(rect.x() + (column + 1) * cell.width()),
                          edge(rect.y() + (row + 1) * cell.height()));
        painter->fillRect(QRectF(begin + QPointF(line, line), end),
                          QColor(ToQt(tools::CellColor(m_style, row + 1, column == 0))));
      }
    }
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new Engine(*this); }

 private:
  tools::TableStyle m_style;
};

}  // namespace

QIcon TableStyleIcon(const tools::TableStyle& style) {
  return QIcon(new Engine(style));
}

}  // namespace quill::ui
