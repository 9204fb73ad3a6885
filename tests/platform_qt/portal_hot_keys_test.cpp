#include "platform/qt/portal_hot_keys.h"

#include <gtest/gtest.h>

#include "platform_qt/fake_portal.h"

namespace quill::portal_test {
namespace {

using namespace std::chrono_literals;
using platform::HotKey;
using platform::HotKeyProblem;
using platform::HotKeyResult;
using platform::qt::PortalHotKeys;
using Results = std::vector<HotKeyResult>;

const std::vector<HotKey> kKeys = {{{true, true, true, false, "D"}, 5, "Insert date", "date"},
                                   {{false, false, false, true, "F9"}, 6, "Insert time", "time"}};
const Results kBoth = {{5, HotKeyProblem::None, "Press CTRL+ALT+SHIFT+d"},
                       {6, HotKeyProblem::None, "Press LOGO+F9"}};

class PortalHotKeysTest : public testing::Test {
 protected:
  PortalHotKeysTest() { Make({}); }

  void Make(PortalHotKeys::Options options) {
    options.bus = [this] { return ++connected, program.get(); };
    options.applicationId = QStringLiteral("example.Quill");
    keys = std::make_unique<PortalHotKeys>(std::move(options));
    keys->OnPressed([this](std::uint32_t identifier) { pressed.push_back(identifier); });
  }

  void Bind(const std::vector<HotKey>& set = kKeys) {
    reports.clear();
    keys->Bind(set, [this](Results results) { reports.push_back(std::move(results)); });
  }

  bool Reported(std::size_t count = 1) {
    return Happens([&] { return reports.size() >= count; });
  }

  /// Binds, and expects every key to have this problem.
  void ExpectAll(HotKeyProblem problem) {
    Bind();
    ASSERT_TRUE(Reported());
    for (const HotKeyResult& result : reports.back()) EXPECT_EQ(result.problem, problem) << result.detail;
    EXPECT_EQ(reports.back().size(), kKeys.size());
  }

  Connection program;
  FakePortal portal;
  int connected = 0;
  std::unique_ptr<PortalHotKeys> keys;
  std::vector<Results> reports;
  std::vector<std::uint32_t> pressed;
};

// The keys of a Wayland session: proposed with their names, pressed, and named as the desktop has them.
TEST_F(PortalHotKeysTest, KeysAreProposedAndPressed) {
  EXPECT_EQ(connected, 0);  // nothing may touch the bus while the program starts
  portal.Appear();
  Bind();
  EXPECT_TRUE(reports.empty());
  ASSERT_TRUE(Reported());
  EXPECT_EQ(reports.back(), kBoth);
  EXPECT_EQ(portal.shortcuts,
            (std::vector<std::string>{"date Insert date CTRL+ALT+SHIFT+d", "time Insert time LOGO+F9"}));
  EXPECT_EQ(portal.log, (std::vector<std::string>{"Register", "CreateSession", "BindShortcuts"}));
  portal.Activate(QStringLiteral("nobody's"));
  portal.Activate(QString::fromLatin1("%1_of_another").arg(portal.session), QStringLiteral("date"));
  portal.Activate(QStringLiteral("time"));
  portal.Activate(QStringLiteral("date"));
  EXPECT_TRUE(Happens([&] { return pressed.size() == 2; }));
  EXPECT_EQ(pressed, (std::vector<std::uint32_t>{6, 5}));
  portal.ChangeTrigger(QStringLiteral("date"), QStringLiteral("Press F1"));
  ASSERT_TRUE(Reported(2));
  EXPECT_EQ(reports.back()[0], (HotKeyResult{5, HotKeyProblem::None, "Press F1"}));
}

// Why there are no keys decides what the user is told, and whether another way is tried.
TEST_F(PortalHotKeysTest, FailuresAreToldApart) {
  ExpectAll(HotKeyProblem::NotSupported);  // no portal at all
  portal.Appear();
  portal.manners.knowsHotKeys = false;
  ExpectAll(HotKeyProblem::NotSupported);
  portal.manners = {};
  portal.manners.bindResponse = 1;
  ExpectAll(HotKeyProblem::Refused);
  portal.manners.bindResponse = 2;
  ExpectAll(HotKeyProblem::NotSupported);
  portal.manners = {};
  portal.manners.garbage = true;
  ExpectAll(HotKeyProblem::Taken);
  portal.manners = {};
  portal.manners.notAssigned = {QStringLiteral("date")};
  Bind();
  ASSERT_TRUE(Reported());
  EXPECT_EQ(reports.back()[0].problem, HotKeyProblem::Taken);
  EXPECT_EQ(reports.back()[1], kBoth[1]);
}

// A portal that hangs must not leave the user without keys for ever.
TEST_F(PortalHotKeysTest, ASilentPortalIsGivenUp) {
  portal.Appear();
  portal.manners.answersSessions = false;
  PortalHotKeys::Options impatient;
  impatient.patience = 50ms;
  Make(std::move(impatient));
  ExpectAll(HotKeyProblem::NotSupported);
  EXPECT_EQ(portal.log.at(1), "CreateSession");
}

// Keys of before are free when others are bound, and when the program ends.
TEST_F(PortalHotKeysTest, ASessionEndsWithItsKeys) {
  portal.Appear();
  Bind();
  ASSERT_TRUE(Reported());
  const QString first = portal.session;
  Bind({kKeys[1]});
  ASSERT_TRUE(Reported());
  EXPECT_EQ(reports.back(), Results{kBoth[1]});
  EXPECT_NE(portal.session, first);
  EXPECT_EQ(portal.log[3], "Close");
  portal.Activate(first, QStringLiteral("time"));
  portal.Activate(QStringLiteral("date"));
  portal.Activate(QStringLiteral("time"));
  ASSERT_TRUE(Happens([&] { return !pressed.empty(); }));
  EXPECT_EQ(pressed, std::vector<std::uint32_t>{6});
  keys.reset();
  EXPECT_TRUE(Happens([&] { return portal.session.isEmpty(); }));
}

// The desktop may take the keys away; a portal that was restarted (an update) gives them back.
TEST_F(PortalHotKeysTest, LostKeysAreToldAndAskedForAgain) {
  portal.Appear();
  Bind();
  ASSERT_TRUE(Reported());
  portal.CloseSession();
  ASSERT_TRUE(Reported(2));
  EXPECT_EQ(reports.back()[0].problem, HotKeyProblem::SystemError);
  Bind();
  ASSERT_TRUE(Reported());
  portal.Disappear();
  ASSERT_TRUE(Reported(2));
  EXPECT_EQ(reports.back()[1].problem, HotKeyProblem::SystemError);
  portal.Appear();
  ASSERT_TRUE(Reported(3));
  EXPECT_EQ(reports.back(), kBoth);
}

// The portal has names of its own for keys.
TEST(PortalTrigger, IsWrittenAsTheDesktopReadsIt) {
  const struct {
    platform::KeyCombination keys;
    const char* trigger;
  } cases[] = {{{true, true, true, false, "D"}, "CTRL+ALT+SHIFT+d"},
               {{false, false, false, true, "5"}, "LOGO+5"},
               {{false, false, false, false, "F12"}, "F12"},
               {{true, false, false, false, "Space"}, "CTRL+space"}};
  for (const auto& c : cases) EXPECT_EQ(platform::qt::PortalTrigger(c.keys), c.trigger);
}

}  // namespace
}  // namespace quill::portal_test
