#include "ui/windows/image/picture_loader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QLoggingCategory>
#include <QtEndian>

#include "image/pictures.h"
#include "shell/string_table.h"
#include "shell/temporary_folder.h"

namespace quill::ui {
namespace {

/// The decoders write about every damaged byte.
class PictureLoader : public testing::Test {
 protected:
  void SetUp() override { QLoggingCategory::setFilterRules(QStringLiteral("*=false")); }
  void TearDown() override { QLoggingCategory::setFilterRules({}); }
};

// What `PictureProblem` a decoding ends with; nothing when there is a picture.
std::optional<PictureProblem> Refusal(const QByteArray& bytes) {
  const PictureResult result = DecodePicture(bytes);
  return result.ok() ? std::nullopt : std::optional(result.error());
}

template <class Number>
QByteArray Big(Number number) {
  QByteArray bytes(sizeof(Number), '\0');
  qToBigEndian(number, bytes.data());
  return bytes;
}

template <class Number>
QByteArray Little(Number number) {
  QByteArray bytes(sizeof(Number), '\0');
  qToLittleEndian(number, bytes.data());
  return bytes;
}

quint32 Crc(const QByteArray& bytes) {
  quint32 crc = 0xFFFFFFFF;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int i = 0; i < 8; ++i) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

QByteArray PngChunk(const QByteArray& name, const QByteArray& data) {
  return Big(quint32(data.size())) + name + data + Big(Crc(name + data));
}

QByteArray PngOf(quint32 width, quint32 height, char depth) {
  return "\x89PNG\r\n\x1a\n" +
         PngChunk("IHDR", Big(width) + Big(height) + QByteArray(1, depth) + QByteArray(4, '\0')) +
         PngChunk("IDAT", qCompress(QByteArray(64, '\0')).mid(4)) + PngChunk("IEND", {});
}

QByteArray GifOf(const QByteArray& size) {
  // One frame of one pixel.
  return "GIF89a" + size + QByteArray("\x80\0\0\xFF\xFF\xFF\0\0\0", 9) + QByteArray(",\0\0\0\0", 5) + size +
         QByteArray("\0\x02\x02\x44\x01\0;", 7);
}

QByteArray BmpOf(qint32 width, qint32 height) {
  const QByteArray pixels(64, '\0');
  return "BM" + Little(quint32(54 + pixels.size())) + Little(quint32(0)) + Little(quint32(54)) +
         Little(quint32(40)) + Little(width) + Little(height) + Little(quint16(1)) + Little(quint16(24)) +
         QByteArray(24, '\0') + pixels;
}

const QByteArray kSvg =
    "<?xml version=\"1.0\"?>\n<!-- drawn -->\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" "
    "height=\"30\"><rect width=\"40\" height=\"30\" fill=\"#0000ff\"/></svg>\n";

struct Sample {
  const char* name;
  QByteArray bytes;
  QSize size;
  bool exact;
};

std::vector<Sample> Samples() {
  const QImage image = Patterned(97, 61);
  return {{"png", Encoded(image, "png"), image.size(), true},
          {"jpeg", Encoded(image, "jpeg"), image.size(), false},
          {"bmp", Encoded(image, "bmp"), image.size(), true},
          {"tiff", Encoded(image, "tiff"), image.size(), true},
          {"webp", Encoded(image, "webp"), image.size(), false},
          {"gif", GifOf(QByteArray("\1\0\1\0", 4)), {1, 1}, false},
          {"svg", kSvg, {40, 30}, false}};
}

// Whatever a page holds opens, with its own pixels, and whatever its name says.
TEST_F(PictureLoader, ReadsEveryFormatByItsContent) {
  const test::TemporaryFolder folder;
  for (const Sample& sample : Samples()) {
    const auto file = folder.Write(sample.name == std::string("png") ? "picture.jpg" : "picture.png",
                                   {sample.bytes.constData(), std::size_t(sample.bytes.size())});
    const PictureResult result = LoadPicture(file);
    ASSERT_TRUE(result.ok()) << sample.name;
    EXPECT_EQ(result->image.size(), sample.size) << sample.name;
    EXPECT_EQ(result->levels.front().size(), sample.size) << sample.name;
    if (sample.exact) {
      EXPECT_EQ(result->image.convertToFormat(QImage::Format_RGB32), Patterned(97, 61)) << sample.name;
    }
  }
}

// Half a download must not be taken for the picture, however much of it there is.
TEST_F(PictureLoader, RefusesPicturesThatAreCutShort) {
  for (const Sample& sample : Samples()) {
    const qsizetype length = sample.bytes.size();
    for (const qsizetype kept : {length / 10, length / 3, length / 2, length * 3 / 4, length - 12}) {
      if (kept <= 0) continue;
      EXPECT_NE(Refusal(sample.bytes.first(kept)), std::nullopt)
          << sample.name << " " << kept << "/" << length;
    }
  }
}

// Damage of any kind ends in words, never in a crash.
TEST_F(PictureLoader, SurvivesDamage) {
  for (const Sample& sample : Samples()) {
    for (qsizetype at = 0; at < qMin(sample.bytes.size(), qsizetype(400)); ++at) {
      QByteArray damaged = sample.bytes;
      damaged[at] = static_cast<char>(damaged[at] ^ 0xA5);
      const PictureResult result = DecodePicture(damaged);
      if (result.ok()) {
        EXPECT_FALSE(result->image.isNull()) << sample.name << " " << at;
      }
    }
    EXPECT_NE(Refusal(sample.bytes.first(8) + QByteArray(5000, '\x7f')), std::nullopt) << sample.name;
  }
}

// A few bytes can ask for more memory than there is.
TEST_F(PictureLoader, RefusesHugePicturesBeforeDecoding) {
  EXPECT_EQ(Refusal(PngOf(20000, 10000, 8)), PictureProblem::TooManyPixels);
  EXPECT_EQ(Refusal(PngOf(20000, 10000, 1)), PictureProblem::TooManyPixels);
  EXPECT_EQ(Refusal(GifOf("\xFF\xFF\xFF\xFF")), PictureProblem::TooManyPixels);
  EXPECT_EQ(Refusal(BmpOf(20000, 10000)), PictureProblem::TooManyPixels);
  EXPECT_EQ(Refusal(BmpOf(1000, -1000)), PictureProblem::Damaged) << "64 bytes for a million pixels";
  EXPECT_NE(Refusal(PngOf(0x7FFFFFFF, 0x7FFFFFFF, 8)), std::nullopt);
  EXPECT_EQ(
      Refusal(QByteArray(kSvg).replace("width=\"40\" height=\"30\">", "width=\"20000\" height=\"10000\">")),
      PictureProblem::TooManyPixels);
  const auto entry = [](quint16 tag, quint32 value) {
    return Little(tag) + Little(quint16(4)) + Little(quint32(1)) + Little(value);
  };
  const QByteArray tiff = QByteArray("II*\0", 4) + Little(quint32(8)) + Little(quint16(8)) +
                          entry(256, 60000) + entry(257, 60000) + entry(258, 8) + entry(259, 1) +
                          entry(262, 1) + entry(273, 8) + entry(278, 60000) + entry(279, 60000) +
                          Little(quint32(0));
  EXPECT_EQ(Refusal(tiff), PictureProblem::TooManyPixels);
  QByteArray jpeg = Encoded(Patterned(8, 8), "jpeg");
  const qsizetype frame = jpeg.indexOf("\xFF\xC0");
  ASSERT_GT(frame, 0);
  jpeg.replace(frame + 5, 4, QByteArray("\xFF\xDC\xFF\xDC", 4));
  EXPECT_EQ(Refusal(jpeg), PictureProblem::TooManyPixels);
}

// Names lie, folders and pipes are not pictures, and nothing of that may hold the window up.
TEST_F(PictureLoader, TellsWhatIsWrongWithAFile) {
  const test::TemporaryFolder folder;
  const auto problem = [](const std::filesystem::path& file) {
    const PictureResult result = LoadPicture(file);
    return result.ok() ? std::nullopt : std::optional(result.error());
  };
  EXPECT_EQ(problem(folder.Write("a.png", "just words")), PictureProblem::NotAPicture);
  EXPECT_EQ(problem(folder.Write("empty.png", "")), PictureProblem::NotAPicture);
  EXPECT_EQ(problem(folder.Write("page.svg", "<html><body>no drawing</body></html>")),
            PictureProblem::NotAPicture);
  EXPECT_EQ(problem(folder.path() / "gone.png"), PictureProblem::Unreadable);
  EXPECT_EQ(problem(folder.path()), PictureProblem::Unreadable);
  ASSERT_EQ(::mkfifo((folder.path() / "pipe.png").c_str(), 0600), 0);
  EXPECT_EQ(problem(folder.path() / "pipe.png"), PictureProblem::Unreadable);
  const auto large = folder.Write("large.png", "\x89PNG\r\n\x1a\n");
  std::filesystem::resize_file(large, static_cast<std::uintmax_t>(kMostPictureBytes) + 1);
  EXPECT_EQ(problem(large), PictureProblem::TooManyBytes);
  const shell::StringTable strings;
  for (int i = 0; i <= static_cast<int>(PictureProblem::Damaged); ++i) {
    EXPECT_TRUE(strings.Has(PictureProblemKey(static_cast<PictureProblem>(i)))) << i;
  }
}

// A photo that was taken upright is shown upright.
TEST_F(PictureLoader, TurnsAPhotoAsItsCameraSays) {
  QByteArray jpeg = Encoded(Patterned(64, 32), "jpeg");
  const QByteArray tiff = "MM" + Big(quint16(42)) + Big(quint32(8)) + Big(quint16(1)) + Big(quint16(0x0112)) +
                          Big(quint16(3)) + Big(quint32(1)) + Big(quint16(6)) + Big(quint16(0)) +
                          Big(quint32(0));
  const QByteArray exif = QByteArray("Exif\0\0", 6) + tiff;
  jpeg.insert(2, "\xFF\xE1" + Big(quint16(exif.size() + 2)) + exif);
  const PictureResult result = DecodePicture(jpeg);
  ASSERT_TRUE(result.ok());
  EXPECT_EQ(result->image.size(), QSize(32, 64));
}

// A preview inside a photo has an end mark of its own, which says nothing about the photo.
TEST_F(PictureLoader, IsNotMisledByAPreview) {
  QByteArray jpeg = Encoded(Patterned(200, 200), "jpeg");
  const QByteArray preview = "preview\xFF\xD9";
  jpeg.insert(2, "\xFF\xE1" + Big(quint16(preview.size() + 2)) + preview);
  EXPECT_EQ(Refusal(jpeg), std::nullopt);
  EXPECT_EQ(Refusal(jpeg + "trailing bytes"), std::nullopt);
  EXPECT_EQ(Refusal(jpeg.first(jpeg.size() / 2)), PictureProblem::Damaged);
}

}  // namespace
}  // namespace quill::ui
