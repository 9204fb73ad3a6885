#include "ui/quill_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace quill::ui {
namespace {

/// The feather in a square of 16 units.
QPainterPath Feather() {
  QPainterPath path;
  path.moveTo(14.5, 1.0);
  path.cubicTo(9.0, 1.2, 4.6, 4.4, 4.0, 9.6);
  path.lineTo(3.6, 12.0);
  path.cubicTo(6.6, 12.0, 9.4, 11.4, 11.0, 9.4);
  path.lineTo(9.2, 9.2);
  path.lineTo(12.2, 7.6);
  path.cubicTo(13.8, 5.6, 14.6, 3.2, 14.5, 1.0);
  path.closeSubpath();
  return path;
}

QPainterPath Shaft() {
  QPainterPath path;
  path.moveTo(11.6, 3.6);
  path.cubicTo(7.6, 6.2, 4.8, 9.4, 2.2, 14.6);
  return path;
}

class FeatherEngine final : public QIconEngine {
 public:
  explicit FeatherEngine(bool onDark) : m_onDark(onDark) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 16.0, rect.height() / 16.0);
    const QColor ink = m_onDark ? QColor(0xF2, 0xF2, 0xF2) : QColor(0x5B, 0x2C, 0x83);
    const QColor vein = m_onDark ? QColor(0x30, 0x30, 0x30) : QColor(0xFF, 0xFF, 0xFF);
    painter->fillPath(Feather(), ink);
    painter->strokePath(Shaft(), QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter->setClipPath(Feather());
    painter->strokePath(Shaft(), QPen(vein, 0.9, Qt::SolidLine, Qt::RoundCap));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new FeatherEngine(m_onDark); }

  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    return {{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
  }

 private:
  bool m_onDark;
};

}  // namespace

QIcon QuillIcon(bool onDark) {
  return QIcon(new FeatherEngine(onDark));
}

}  // namespace quill::ui
