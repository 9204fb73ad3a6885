#include "ui/kit/page_preview.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QUrl>

#include "gui_world.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

const std::string kRedPicture =
    "data:image/png;base64,"
    "iVBORw0KGgoAAAANSUhEUgAAAAQAAAAECAIAAAAmkwkpAAAAEElEQVR4nGP4z8AARwzEcQCukw/x0F8jngAAAABJRU5ErkJggg==";

/// How much of what the preview shows is pure red.
int RedPixels(const std::string& html) {
  PagePreview preview;
  preview.resize(200, 200);
  preview.show();
  preview.ShowHtml(html);
  const QImage image = preview.grab().toImage();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
  }
  return count;
}

// A page may name any file of the user's and any server: only what is in the text itself is shown.
TEST(PagePreview, ShowsPicturesInsideTheTextAndReadsNothingElse) {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("red.png"));
  QImage red(40, 40, QImage::Format_RGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(path));
  QFile style(folder.filePath(QStringLiteral("red.css")));
  ASSERT_TRUE(style.open(QIODevice::WriteOnly));
  style.write("p { background-color: red }");
  style.close();

  EXPECT_GT(RedPixels("<img width=40 height=40 src='" + kRedPicture + "'>"), 1000);
  const std::string file = FromQt(path);
  for (const std::string& address : {file, "file://" + file, "http://127.0.0.1:9" + file}) {
    EXPECT_EQ(RedPixels("<p>a</p><img width=40 height=40 src='" + address + "'>"), 0) << address;
  }
  const std::string sheet = FromQt(style.fileName());
  EXPECT_EQ(RedPixels("<html><head><link rel='stylesheet' type='text/css' href='" + sheet +
                      "'></head><body><p>a</p></body></html>"),
            0);
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
      "width='40' height='40'><image width='40' height='40' xlink:href='" +
      file + "'/></svg>";
  EXPECT_EQ(RedPixels("<img src='data:image/svg+xml;base64," +
                      QByteArray::fromStdString(svg).toBase64().toStdString() + "'>"),
            0);
}

std::string DataAddress(const QImage& image, const char* type = "image/png") {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "png");
  return "data:" + std::string(type) + ";base64," + buffer.data().toBase64().toStdString();
}

// A page full of large pictures must not take the memory, nor the time of every key, to unpack them.
TEST(PagePreview, KeepsFewAndSmallPictures) {
  QImage wide(1200, 100, QImage::Format_RGB32);
  wide.fill(Qt::red);
  PagePreview preview;
  const auto shown = [&](const std::string& address) {
    return preview.loadResource(QTextDocument::ImageResource, QUrl(ToQt(address))).value<QImage>();
  };
  preview.ShowHtml("");
  EXPECT_EQ(shown(DataAddress(wide)).size(), QSize(600, 50));
  EXPECT_EQ(shown(DataAddress(wide, "image/svg+xml")).width(), 600) << "the bytes count, not the name";
  EXPECT_EQ(shown(DataAddress(wide)).cacheKey(), shown(DataAddress(wide)).cacheKey()) << "unpacked again";
  for (int i = 0; i < 36; ++i) EXPECT_EQ(shown(kRedPicture).width(), 4);
  EXPECT_EQ(shown(kRedPicture).width(), 16) << "an empty frame";
  preview.ShowHtml("");
  EXPECT_EQ(shown(kRedPicture).width(), 4) << "another page";
}

// What is shown anew with each key must not jump back to its beginning.
TEST(PagePreview, KeepsItsPlace) {
  PagePreview preview;
  preview.resize(200, 100);
  preview.show();
  std::string page;
  for (int i = 0; i < 100; ++i) page += "<p>line</p>";
  preview.ShowHtml(page);
  preview.verticalScrollBar()->setValue(300);
  preview.ShowHtml(page + "<p>end</p>");
  EXPECT_EQ(preview.verticalScrollBar()->value(), 300);
}

}  // namespace
}  // namespace quill::ui
