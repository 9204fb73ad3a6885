#include "platform/qt/qt_pasteboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>
#include <future>

#include "practice/practice_world.h"

namespace quill::platform::qt {
namespace {

using std::chrono::milliseconds;
using test::WaitUntil;

/// Puts raw forms on the clipboard as another application would.
void SomebodyWrites(const std::vector<FlavourData>& flavours) {
  auto* data = new QMimeData;
  for (const FlavourData& flavour : flavours) {
    data->setData(QString::fromStdString(flavour.name), QByteArray::fromStdString(flavour.bytes));
  }
  QGuiApplication::clipboard()->setMimeData(data);
}

// Browsers and office programs disagree about the bytes of "text/html".
TEST(QtPasteboard, ReadsHtmlInEveryEncoding) {
  using namespace std::string_literals;
  const std::string kCases[] = {"<p>\xc3\xa4</p>", "\xef\xbb\xbf<p>\xc3\xa4</p>",
                                "\xff\xfe<\0p\0>\0\xe4\0<\0/\0p\0>\0"s,
                                "\xfe\xff\0<\0p\0>\0\xe4\0<\0/\0p\0>"s, "<\0p\0>\0\xe4\0<\0/\0p\0>\0\0\0"s};
  QtPasteboard pasteboard;
  for (const std::string& bytes : kCases) {
    SomebodyWrites({{"text/html", bytes}});
    EXPECT_EQ(pasteboard.Read(Flavour::Html).ValueOr("none"), "<p>\xc3\xa4</p>");
  }
  EXPECT_EQ(pasteboard.Read(Flavour::Png).error(), ReadProblem::Absent);
}

// What stands there before the copy must not be taken for its result, and must not be lost by it either.
TEST(QtPasteboard, ClearHidesTheOldContentsAndLosesNothing) {
  QtPasteboard pasteboard;
  SomebodyWrites({{"text/plain", "old"}});
  pasteboard.Clear();
  EXPECT_EQ(pasteboard.Read(Flavour::Text).error(), ReadProblem::Absent);
  EXPECT_FALSE(pasteboard.WaitForNewContents(milliseconds(1)));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "old");

  // A command waits on its own thread while the copy arrives on this one.
  auto waited =
      std::async(std::launch::async, [&] { return pasteboard.WaitForNewContents(std::chrono::seconds(5)); });
  SomebodyWrites({{"text/plain", "new"}});
  EXPECT_TRUE(waited.get());
  EXPECT_EQ(pasteboard.Read(Flavour::Text).ValueOr("none"), "new");
}

// The user's clipboard comes back whole after a command, unless it has become somebody else's meanwhile.
TEST(QtPasteboard, RestoresEveryFormUnlessSomebodyElseWrote) {
  QtPasteboard pasteboard;
  const std::string binary("\0\xff\x01", 3);
  SomebodyWrites({{"text/plain", "user"}, {"text/html", "<b>user</b>"}, {"application/x-own", binary}});
  const PasteboardSnapshot saved = pasteboard.Save();
  EXPECT_TRUE(saved.complete);
  const auto borrowAndRestore = [&](bool interrupted) {
    pasteboard.Clear();
    SomebodyWrites({{"text/html", "<p>copied</p>"}});
    EXPECT_TRUE(pasteboard.WaitForNewContents(milliseconds(0)));
    EXPECT_TRUE(pasteboard.Write(Flavour::Html, "<p>changed</p>"));
    EXPECT_EQ(pasteboard.FlavourNames(), std::vector<std::string>{"text/html"});
    if (interrupted) SomebodyWrites({{"text/plain", "newer"}});
    pasteboard.Restore(saved);
  };
  borrowAndRestore(false);
  const QMimeData* now = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(now->data("text/plain"), "user");
  EXPECT_EQ(now->data("text/html"), "<b>user</b>");
  EXPECT_EQ(now->data("application/x-own").toStdString(), binary);
  borrowAndRestore(true);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "newer");
}

// A GUI thread that hangs must not take the command thread with it.
TEST(QtPasteboard, ASilentOwnerEndsInADeadline) {
  QtPasteboard pasteboard(nullptr, milliseconds(50));
  SomebodyWrites({{"text/plain", "unreachable"}});
  // Nobody runs this thread's events while it waits for the answer.
  auto read = std::async(std::launch::async, [&] { return pasteboard.Read(Flavour::Text); });
  EXPECT_EQ(read.get().error(), ReadProblem::OwnerSilent);
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace quill::platform::qt
