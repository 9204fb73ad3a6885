#include "ui/windows/image_table/picture_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QImageWriter>
#include <atomic>
#include <memory>

#include "gui_world.h"
#include "shell/temporary_folder.h"
#include "ui/windows/image_table/picture_thumbnails.h"

namespace quill::ui {
namespace {

constexpr int kEdge = 40;

struct Facts : testing::Test {
  std::string Write(const std::string& name, const QImage& image, const char* format,
                    QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setTransformation(turned);
    EXPECT_TRUE(writer.write(image));
    return folder.Write(name, {buffer.data().constData(), std::size_t(buffer.data().size())}).string();
  }

  test::TemporaryFolder folder;
};

/// Left half red, right half blue.
QImage TwoColours(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  for (int y = 0; y < height; ++y) {
    for (int x = width / 2; x < width; ++x) image.setPixel(x, y, qRgb(0, 0, 255));
  }
  return image;
}

// A thumbnail shows the whole picture, in its proportions, and a small one is not blown up.
TEST_F(Facts, FitIntoTheSquare) {
  const PictureFacts wide = ReadPictureFacts(Write("a.png", TwoColours(400, 200), "png"), kEdge);
  EXPECT_EQ(wide.size, QSize(400, 200));
  EXPECT_EQ(wide.thumbnail.size(), QSize(40, 20));
  EXPECT_EQ(wide.bytes, std::filesystem::file_size(folder.path() / "a.png"));
  const PictureFacts line = ReadPictureFacts(Write("line.bmp", TwoColours(2, 4000), "bmp"), kEdge);
  EXPECT_EQ(line.thumbnail.size(), QSize(1, 40));
  const PictureFacts small = ReadPictureFacts(Write("small.png", TwoColours(8, 6), "png"), kEdge);
  EXPECT_EQ(small.thumbnail.size(), QSize(8, 6));
}

// A photograph taken with the camera on its side is upright, in the thumbnail and in its size.
TEST_F(Facts, ObeyTheCamera) {
  const std::string file =
      Write("side.jpg", TwoColours(400, 200), "jpeg", QImageIOHandler::TransformationRotate90);
  const PictureFacts facts = ReadPictureFacts(file, kEdge);
  EXPECT_EQ(facts.size, QSize(200, 400));
  ASSERT_EQ(facts.thumbnail.size(), QSize(20, 40));
  EXPECT_GT(qRed(facts.thumbnail.pixel(10, 3)), 200);
  EXPECT_GT(qBlue(facts.thumbnail.pixel(10, 36)), 200);
}

// What cannot be drawn is no error, and nothing that would hold or fill the memory is tried.
TEST_F(Facts, KnowWhatTheyCannotShow) {
  const PictureFacts emf = ReadPictureFacts(folder.Write("a.emf", "\x01\0\0\0 emf").string(), kEdge);
  EXPECT_TRUE(emf.thumbnail.isNull());
  EXPECT_TRUE(emf.size.isEmpty());
  EXPECT_TRUE(emf.bytes.has_value());
  const PictureFacts text = ReadPictureFacts(folder.Write("svg.png", "<svg xmlns='x'/>").string(), kEdge);
  EXPECT_TRUE(text.thumbnail.isNull());
  EXPECT_FALSE(ReadPictureFacts((folder.path() / "gone.png").string(), kEdge).bytes.has_value());
  const std::string pipe = (folder.path() / "pipe.png").string();
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(ReadPictureFacts(pipe, kEdge).bytes.has_value());

  std::string bomb(26, '\0');  // the head of a bitmap that says it has 50000 × 50000 pixels
  bomb.replace(0, 2, "BM");
  bomb[10] = 26, bomb[14] = 12, bomb[22] = 1, bomb[24] = 24;
  bomb.replace(18, 4, "\x50\xC3\x50\xC3");
  EXPECT_TRUE(ReadPictureFacts(folder.Write("bomb.bmp", bomb).string(), kEdge).thumbnail.isNull());
}

// A name that is no UTF-8 is a file like any other.
TEST_F(Facts, ReadFilesWithAnyName) {
  const PictureFacts facts = ReadPictureFacts(Write("caf\xE9.png", TwoColours(10, 10), "png"), kEdge);
  EXPECT_FALSE(facts.thumbnail.isNull());
}

// Scrolling through thousands of pictures must not have all of them decoded: few at a time, only the last
// that were looked at, each once.
TEST(PictureThumbnails, ReadFewAndWhatIsLookedAtLast) {
  struct Counts {
    std::atomic<int> now = 0, most = 0, all = 0;
    std::atomic<bool> isHeld = true;
  };
  const auto counts = std::make_shared<Counts>();
  PictureThumbnails thumbnails(kEdge, [counts](const std::string&, int) {
    counts->most = std::max<int>(counts->most, ++counts->now);
    counts->isHeld.wait(true);
    ++counts->all;
    --counts->now;
    return PictureFacts{{}, {1, 1}, 1};
  });
  std::vector<std::string> arrived;
  QObject::connect(&thumbnails, &PictureThumbnails::Arrived,
                   [&](const std::string& path) { arrived.push_back(path); });
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 5000; ++i) EXPECT_EQ(thumbnails.FindOrRead(std::to_string(i)), nullptr);
  }
  counts->isHeld = false;
  counts->isHeld.notify_all();
  ASSERT_TRUE(WaitUntil([&] { return thumbnails.Find("4999") != nullptr; }));
  EXPECT_LE(counts->most, 2);
  EXPECT_LE(counts->all, 110);
  EXPECT_EQ(arrived.back(), "4999");
  EXPECT_EQ(thumbnails.Find("2500"), nullptr);
  EXPECT_EQ(thumbnails.FindOrRead("4999")->size, QSize(1, 1));
}

}  // namespace
}  // namespace quill::ui
