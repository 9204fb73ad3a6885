#include "ui/hot_key_center.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform_qt/fake_portal.h"
#include "ui/kit/key_text.h"
#include "ui/kit/qt_text.h"

namespace quill::portal_test {
namespace {

using platform::HotKey;
using platform::HotKeyProblem;
using platform::HotKeyRegistrar;
using platform::HotKeyResult;
using ui::HotKeyCenter;
using ui::HotKeyState;

/// What a test sees of one way to register keys, and how it makes it answer.
struct Way {
  bool opens = true;
  HotKeyProblem answer = HotKeyProblem::None;
  std::vector<HotKey> bound;
  HotKeyRegistrar::Report report;
  std::function<void(std::uint32_t)> press;
  int pipe[2] = {-1, -1};
  int dispatched = 0;
  bool alive = false;
};

class TestRegistrar final : public HotKeyRegistrar {
 public:
  explicit TestRegistrar(Way& way) : m_way(way) { m_way.alive = true; }
  ~TestRegistrar() override { m_way.alive = false; }
  void OnPressed(std::function<void(std::uint32_t)> handler) override { m_way.press = std::move(handler); }
  void Bind(std::vector<HotKey> keys, Report report) override {
    m_way.bound = std::move(keys);
    m_way.report = std::move(report);
    Answer(m_way);
  }
  int Descriptor() const override { return m_way.pipe[0]; }
  void Dispatch() override {
    ++m_way.dispatched;
    char byte = 0;
    if (m_way.pipe[0] >= 0 && m_way.dispatched > 1 && read(m_way.pipe[0], &byte, 1) != 1)
      FAIL() << "nothing to read";
  }

  static void Answer(const Way& way) {
    std::vector<HotKeyResult> results;
    for (const HotKey& key : way.bound) results.push_back({key.identifier, way.answer, "detail"});
    way.report(std::move(results));
  }

 private:
  Way& m_way;
};

class HotKeyCenterTest : public testing::Test {
 protected:
  HotKeyCenterTest() {
    center.OnStateChanged([this](const std::vector<HotKeyState>& state) { states.push_back(state); });
  }
  ~HotKeyCenterTest() override {
    for (const int end : {first.pipe[0], first.pipe[1]}) {
      if (end >= 0) close(end);
    }
  }

  static HotKeyCenter::OpenWay Opener(Way& way) {
    return [&way]() -> Result<std::unique_ptr<HotKeyRegistrar>> {
      if (!way.opens) return Failure{std::string("no display")};
      return std::unique_ptr<HotKeyRegistrar>(std::make_unique<TestRegistrar>(way));
    };
  }

  void Use(const std::string& setting) {
    states.clear();
    center.Use(setting, [](const shell::CommandRow& row) { return "name of " + std::string(row.titleKey); });
  }
  bool Published() {
    return Happens([&] { return !states.empty(); });
  }

  Way first, second;
  std::vector<std::string> pressed;
  std::vector<std::vector<HotKeyState>> states;
  HotKeyCenter center{[this](const shell::CommandRow& row) { pressed.emplace_back(row.action); },
                      {Opener(first), Opener(second)}};
};

// The first way that knows hot keys is used and stays; nothing happens before the event loop runs.
TEST_F(HotKeyCenterTest, KeysAreRegisteredAndPressed) {
  Use("MenuItemUpperCaseClick=F9");
  EXPECT_FALSE(first.alive);
  ASSERT_TRUE(Published());
  EXPECT_FALSE(second.alive);
  ASSERT_EQ(first.bound.size(), states.back().size());
  EXPECT_EQ(first.bound[0].name, "name of menuCopyPlainText");
  EXPECT_EQ(first.bound[0].id, "MenuItemCopyPlainTextClick");
  EXPECT_EQ(states.back()[0].problem, HotKeyProblem::None);
  first.press(first.bound[1].identifier);
  first.press(4000);
  EXPECT_EQ(pressed, std::vector<std::string>{"MenuItemInsertDateClick"});
  first.answer = HotKeyProblem::SystemError;
  TestRegistrar::Answer(first);
  EXPECT_EQ(center.State()[0].problem, HotKeyProblem::SystemError);
  EXPECT_TRUE(first.alive);
}

// Between a change in the options and the registration an old key must not run the action that is now in its
// place.
TEST_F(HotKeyCenterTest, OldKeysDoNothingOnceOthersAreChosen) {
  Use("");
  ASSERT_TRUE(Published());
  Use("MenuItemCopyPlainTextClick=;MenuItemInsertDateClick=");
  first.press(0);
  TestRegistrar::Answer(first);
  EXPECT_TRUE(states.empty());
  ASSERT_TRUE(Published());
  EXPECT_TRUE(pressed.empty());
  first.press(0);
  EXPECT_EQ(pressed, std::vector<std::string>{"MenuItemInsertTimeClick"});
}

// A desktop without a portal for keys gets them the other way; a user who said no is not got around.
TEST_F(HotKeyCenterTest, OnlyAnUnsupportedWayIsLeft) {
  first.answer = HotKeyProblem::NotSupported;
  Use("");
  ASSERT_TRUE(Published());
  EXPECT_FALSE(first.alive);
  EXPECT_TRUE(second.alive);
  EXPECT_EQ(states.back()[0].problem, HotKeyProblem::None);

  Way refusing, other;
  refusing.answer = HotKeyProblem::Refused;
  HotKeyCenter careful([](const shell::CommandRow&) {}, {Opener(refusing), Opener(other)});
  careful.Use("", [](const shell::CommandRow&) { return std::string(); });
  EXPECT_TRUE(Happens([&] { return careful.State()[0].problem == HotKeyProblem::Refused; }));
  EXPECT_FALSE(other.alive);
}

// Without any way the options window can say why.
TEST_F(HotKeyCenterTest, NoWayAtAllIsTold) {
  first.opens = second.opens = false;
  Use("");
  ASSERT_TRUE(Published());
  EXPECT_EQ(states.back()[0].problem, HotKeyProblem::NotSupported);
  EXPECT_EQ(states.back()[0].detail, "no display");
}

// Keys arrive on a connection that nobody else looks at.
TEST_F(HotKeyCenterTest, TheConnectionIsWatched) {
  ASSERT_EQ(pipe(first.pipe), 0);
  Use("");
  ASSERT_TRUE(Published());
  EXPECT_EQ(first.dispatched, 1);
  ASSERT_EQ(write(first.pipe[1], "x", 1), 1);
  EXPECT_TRUE(Happens([&] { return first.dispatched == 2; }));
}

// Each problem has words of its own that name the keys; a key without a problem has none.
TEST(KeyText, NamesTheKeysAndTheProblem) {
  const shell::StringTable strings;
  const platform::KeyCombination keys{true, true, true, true, "D"};
  EXPECT_EQ(ui::FromQt(ui::HotKeyText(keys)), "Ctrl+Alt+Shift+Super+D");
  EXPECT_EQ(ui::FromQt(ui::HotKeyText({false, false, false, false, "F9"})), "F9");
  using enum HotKeyProblem;
  QSet<QString> texts;
  for (const HotKeyProblem problem : {Taken, NoSuchKey, NotSupported, Refused, SystemError}) {
    const QString text = ui::HotKeyProblemText(strings, keys, problem, "");
    EXPECT_TRUE(text.contains(ui::HotKeyText(keys))) << ui::FromQt(text);
    EXPECT_EQ(text, text.trimmed());
    texts.insert(text);
  }
  EXPECT_EQ(texts.size(), 5);
  EXPECT_TRUE(ui::HotKeyProblemText(strings, keys, None, "").isEmpty());
}

}  // namespace
}  // namespace quill::portal_test
