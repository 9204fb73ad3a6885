#pragma once
#include <QProxyStyle>

namespace quill::ui {

/// Qt's own style, as a desktop without a style of its own uses it, brought up to date: buttons without
/// pictures and with room around their texts, grey texts without a shadow, plain pictures in message boxes,
/// and fields and check boxes that are seen on a dark ground. GUI thread.
class PlainStyle final : public QProxyStyle {
 public:
  PlainStyle();

  /// Makes it the application's style where that is Qt's own; a desktop's native style stays. To be called
  /// before the first window is made.
  static void UseWhereNothingIsNative();

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace quill::ui
