#include <gtest/gtest.h>

#include <QImage>

#include "equation_world.h"
#include "tools/equation.h"
#include "tools/latex_page.h"

namespace quill::test {
namespace {

QImage Decoded(const ui::EquationPicture& picture) {
  const QByteArray base64 = picture.dataUrl.mid(picture.dataUrl.indexOf(',') + 1).toLatin1();
  return QImage::fromData(QByteArray::fromBase64(base64), "PNG");
}

int Ink(const QImage& image) {
  int ink = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ink += qAlpha(image.pixel(x, y)) > 128;
  }
  return ink;
}

// Sharp on dense screens and in print, and still as large as the text around it.
TEST(Picture, HasTwiceThePixelsOfItsShownSize) {
  NEEDS_MATHJAX();
  const Result<ui::EquationPicture> picture = EquationWorld::Warm().Picture(R"(\frac{a+b}{c})");
  ASSERT_TRUE(picture.ok()) << picture.error();
  const QImage image = Decoded(*picture);
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.width(), picture->size.width * tools::kPictureScale);
  EXPECT_EQ(image.height(), picture->size.height * tools::kPictureScale);
  EXPECT_GT(picture->size.width, 20);
  EXPECT_LT(picture->size.width, 80);
  EXPECT_GT(Ink(image), 200);
  EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << "the page's colour shines through";
}

// What HTML writes as an entity, and quotes, must not end the picture: it is drawn from XML.
TEST(Picture, IsDrawnWhateverTheFormulaHolds) {
  NEEDS_MATHJAX();
  for (const char* formula : {R"(\text{a b  c})", R"(a<b \& "c" 'd')", R"(\text{größer 數學 <b>&nbsp;</b>})",
                              R"(\unicode{x263a}\;\bbox[yellow,4px]{x})", R"(\color{red}{x}\tag{7})"}) {
    const Result<ui::EquationPicture> picture = EquationWorld::Warm().Picture(formula);
    ASSERT_TRUE(picture.ok()) << formula << ": " << picture.error();
    EXPECT_GT(Ink(Decoded(*picture)), 30) << formula;
  }
}

// A long sum is wide: the size follows the formula, not the preview.
TEST(Picture, IsAsWideAsItsFormula) {
  NEEDS_MATHJAX();
  std::string sum = "x_1";
  for (int i = 2; i <= 100; ++i) sum += "+x_{" + std::to_string(i) + "}";
  const Result<ui::EquationPicture> picture = EquationWorld::Warm().Picture(sum);
  ASSERT_TRUE(picture.ok()) << picture.error();
  EXPECT_GT(picture->size.width, 2000);
  EXPECT_LT(picture->size.height, 40);
}

}  // namespace
}  // namespace quill::test
