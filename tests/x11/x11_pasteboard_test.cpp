#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "x11/x11_world.h"

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using platform::Flavour;
using platform::PasteboardSnapshot;
using platform::ReadProblem;
using platform::x11::X11Backend;
using testing::HasSubstr;

class X11PasteboardTest : public testing::Test {
 protected:
  platform::Pasteboard& pasteboard() { return backend->pasteboard(); }

  /// Puts bytes on the clipboard by a program of another maker.
  std::unique_ptr<ChildProcess> Put(const std::string& form, const std::string& printfText) {
    auto owner = world.Start(
        {"sh", "-c",
         "printf '" + printfText + "' | xclip -selection clipboard -t '" + form + "' -i -quiet; echo gone"});
    EXPECT_TRUE(pasteboard().WaitForNewContents(5s)) << form;
    return owner;
  }

  X11World world;
  std::unique_ptr<X11Backend> backend = world.Backend();
};

// Browsers differ in how they write the same characters; OneNote's text must come out alike.
TEST_F(X11PasteboardTest, ReadsEveryEncodingOfATextAsUtf8) {
  const struct {
    Flavour flavour;
    const char* form;
    std::string bytes;
    const char* expected;
  } cases[] = {
      {Flavour::Html, "text/html", R"(<p>\303\251</p>)", "--><p>\xC3\xA9</p><!--"},
      {Flavour::Html, "text/html", R"(\357\273\277<p>\303\251</p>)", "--><p>\xC3\xA9</p><!--"},
      {Flavour::Html, "text/html", R"(\377\376<\0p\0>\0\351\0=\330\000\336)",
       "--><p>\xC3\xA9\xF0\x9F\x98\x80<!--"},
      {Flavour::Html, "text/html", R"(\376\377\0<\0p\0>\0\351)", "--><p>\xC3\xA9<!--"},
      {Flavour::Html, "text/html", R"(<\0p\0>\0\351\0)", "--><p>\xC3\xA9<!--"},
      {Flavour::Text, "UTF8_STRING", R"(\303\251)", "\xC3\xA9"},
      {Flavour::Text, "text/plain;charset=utf-8", R"(\303\251)", "\xC3\xA9"},
      {Flavour::Text, "STRING", R"(\351)", "\xC3\xA9"},
  };
  for (const auto& c : cases) {
    pasteboard().Clear();
    const auto owner = Put(c.form, c.bytes);
    EXPECT_THAT(pasteboard().Read(c.flavour).ValueOr("(absent)"), HasSubstr(c.expected)) << c.bytes;
  }
}

// Large data travels in portions, in both directions, also with programs that are not ours.
TEST_F(X11PasteboardTest, ExchangesLargeDataWithAnotherProgram) {
  pasteboard().Clear();
  const auto owner = world.Start(
      {"sh", "-c",
       "head -c 5000000 /dev/zero | tr '\\0' q | xclip -selection clipboard -t image/png -i -quiet"});
  ASSERT_TRUE(pasteboard().WaitForNewContents(10s));
  EXPECT_EQ(pasteboard().Read(Flavour::Png).ValueOr(""), std::string(5000000, 'q'));

  const std::string ours(4000000, 'w');
  ASSERT_TRUE(pasteboard().Write(Flavour::Html, ours));
  EXPECT_EQ(world.ClipboardAs("text/html"), ours);
}

// After `Clear` the old contents must not be taken for new ones, yet the user must not lose them.
TEST_F(X11PasteboardTest, ClearHidesAndKeepsTheOldContents) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "old"}});
  const PasteboardSnapshot before = pasteboard().Save();
  pasteboard().Clear();
  EXPECT_FALSE(pasteboard().WaitForNewContents(20ms));
  EXPECT_EQ(pasteboard().Read(Flavour::Text).error(), ReadProblem::Absent);
  EXPECT_TRUE(pasteboard().FlavourNames().empty());
  pasteboard().Restore(before);
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "old");
}

// What the user copies while a command runs is newer than what the command would put back.
TEST_F(X11PasteboardTest, DoesNotRestoreOverSomebodyElsesContents) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "old"}});
  const PasteboardSnapshot before = pasteboard().Save();
  ASSERT_TRUE(pasteboard().Write(Flavour::Text, "borrowed"));
  user->Say("own UTF8_STRING newer");
  ASSERT_TRUE(Eventually([&] { return world.ClipboardAs("UTF8_STRING") == "newer"; }));
  pasteboard().Restore(before);
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "newer");

  // The same without any write of ours: the command had only begun.
  pasteboard().Save();
  pasteboard().Clear();
  user->Say("own UTF8_STRING newest");
  ASSERT_TRUE(Eventually([&] { return world.ClipboardAs("UTF8_STRING") == "newest"; }));
  pasteboard().Restore(before);
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "newest");
}

// A manager keeps what it saw of our paste: that is no reason to leave the page's content on the clipboard.
TEST_F(X11PasteboardTest, RestoresAfterAManagerHasTakenOurContentsOver) {
  const PasteboardSnapshot empty = pasteboard().Save();
  EXPECT_TRUE(empty.flavours.empty());
  const auto manager = world.Adversary({"title=manager", "watch=same"});
  ASSERT_TRUE(pasteboard().Write(Flavour::Html, "<p>borrowed</p>"));
  ASSERT_EQ(manager->WaitForLine("took over"), "");
  pasteboard().Restore(empty);
  EXPECT_EQ(world.ClipboardAs("text/html"), "");
}

// An owner that does not answer (a hung program) costs a bounded time and is reported, not mistaken for
// empty.
TEST_F(X11PasteboardTest, BoundsTheWaitForASilentOwner) {
  const auto user = world.Adversary({"title=user", "copy=hang"});
  user->Say("own UTF8_STRING x");
  ASSERT_EQ(user->WaitForLine("owns"), "");
  kill(user->pid(), SIGSTOP);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(pasteboard().Save().complete);
  EXPECT_EQ(pasteboard().Read(Flavour::Text).error(), ReadProblem::OwnerSilent);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 4s);
  kill(user->pid(), SIGCONT);
}

// The result of "copy as plain text" must be readable by every program, under whichever name it asks.
TEST_F(X11PasteboardTest, OffersTextUnderAllItsNames) {
  ASSERT_TRUE(pasteboard().Write(Flavour::Text, "\xC3\xA9"));
  for (const char* form : {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain", "TEXT"}) {
    EXPECT_EQ(world.ClipboardAs(form), "\xC3\xA9") << form;
  }
  EXPECT_EQ(world.ClipboardAs("STRING"), "") << "Latin-1 cannot be promised";
  EXPECT_EQ(world.ClipboardAs("image/png"), "");
}

}  // namespace
}  // namespace quill::x11_test
