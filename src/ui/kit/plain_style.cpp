#include "ui/kit/plain_style.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>

#include "ui/kit/dark.h"

namespace quill::ui {
namespace {

const QString kBaseStyle = QStringLiteral("fusion");

/// What a message box says with its picture.
struct Sign {
  QStyle::StandardPixmap which;
  const char* themeName;
  QRgb ground;
  const char* letter;
  bool triangle;
};

constexpr Sign kSigns[] = {{QStyle::SP_MessageBoxInformation, "dialog-information", 0xff2f7fd0, "i", false},
                           {QStyle::SP_MessageBoxQuestion, "dialog-question", 0xff7b52ab, "?", false},
                           {QStyle::SP_MessageBoxWarning, "dialog-warning", 0xffd98b00, "!", true},
                           {QStyle::SP_MessageBoxCritical, "dialog-error", 0xffc8372d, "!", false}};

QPixmap Painted(const Sign& sign, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const double edge = size / 16.0;
  const QRectF room = QRectF(0, 0, size, size).adjusted(edge, edge, -edge, -edge);
  QPainterPath ground;
  if (sign.triangle) {
    ground.addPolygon(
        QPolygonF({QPointF(room.center().x(), room.top()), room.bottomRight(), room.bottomLeft()}));
    ground.closeSubpath();
    painter.setPen(QPen(QColor(sign.ground), edge * 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  } else {
    ground.addEllipse(room);
    painter.setPen(Qt::NoPen);
  }
  painter.setBrush(QColor(sign.ground));
  painter.drawPath(ground);
  QFont font = QApplication::font();
  font.setPixelSize(std::max(6, size * (sign.triangle ? 9 : 11) / 16));
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  const double lower = sign.triangle ? size / 8.0 : 0;  // a triangle's middle is not that of its square
  painter.drawText(QRectF(0, lower, size, size - lower), Qt::AlignCenter, QString::fromLatin1(sign.letter));
  return pixmap;
}

QIcon IconOf(const Sign& sign) {
  if (QIcon::hasThemeIcon(QString::fromLatin1(sign.themeName))) {
    return QIcon::fromTheme(QString::fromLatin1(sign.themeName));
  }
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 96, 128}) icon.addPixmap(Painted(sign, size));
  return icon;
}

/// Half-way between the texts and the ground they stand on.
QColor OutlineColor(const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText), ground = palette.color(QPalette::Window);
  const auto mix = [](int a, int b) { return (a * 2 + b * 3) / 5; };
  return {mix(text.red(), ground.red()), mix(text.green(), ground.green()), mix(text.blue(), ground.blue())};
}

/// Draws over the base style's outline, which is darker than any dark ground.
void PaintOutline(QPainter& painter, const QStyleOption& option, bool emphasised) {
  if (!IsDark(option.palette)) return;
  const bool enabled = (option.state & QStyle::State_Enabled) != 0;
  QColor color = emphasised && enabled ? option.palette.color(QPalette::Link) : OutlineColor(option.palette);
  if (!enabled) color.setAlphaF(0.5F);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
  painter.restore();
}

}  // namespace

PlainStyle::PlainStyle() : QProxyStyle(kBaseStyle) {}

void PlainStyle::UseWhereNothingIsNative() {
  if (QApplication::style()->name() == kBaseStyle) QApplication::setStyle(new PlainStyle);
}

int PlainStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

int PlainStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int base = QProxyStyle::pixelMetric(metric, option, widget);
  // The room beside the texts of lists and their headers.
  return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin ? base + 2 : base;
}

QSize PlainStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (type == CT_PushButton && button != nullptr && !button->text.isEmpty()) {
    const int room = button->fontMetrics.averageCharWidth() * 4;
    size.setWidth(std::max(size.width(), contents.width() + room));
  }
  return size;
}

void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool focused = (option->state & State_HasFocus) != 0;
  if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit) {
    PaintOutline(*painter, *option, focused);
  } else if (element == PE_PanelButtonCommand) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isDefault = button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
    if (isDefault || focused) PaintOutline(*painter, *option, true);
  }
}

void PlainStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_SpinBox) PaintOutline(*painter, *option, (option->state & State_HasFocus) != 0);
}

QIcon PlainStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
  for (const Sign& sign : kSigns) {
    if (sign.which == which) return IconOf(sign);
  }
  return QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace quill::ui
