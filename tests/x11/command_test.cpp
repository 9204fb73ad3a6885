#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "platform/backend.h"
#include "platform/recording/recording.h"
#include "shell/application.h"
#include "x11/chromium_world.h"

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;
using shell::Application;
using shell::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;

/// The whole program without its own screen, on a real X display.
class CommandTest : public testing::Test {
 protected:
  CommandTest() {
    globals.scripts = shell::BuiltInScripts();
    application = std::make_unique<Application>(Application::Parts{
        globals, strings, clock, screen,
        [this] {
          return platform::Backend{"x11", &backend->desktop(), &backend->pasteboard(), nullptr};
        },
        screen, screen, log});
  }

  Outcome Run(std::string_view action) {
    return application->RunAndWait({shell::FindCommand(action), {}, true, true});
  }

  std::string Text(std::string_view key) const { return std::string(strings.Text(key)); }

  X11World world;
  std::unique_ptr<platform::x11::X11Backend> backend = world.Backend();
  shell::Globals globals;
  shell::StringTable strings;
  platform::SystemClock clock;
  platform::recording::Recording screen;
  shell::Log log;
  std::unique_ptr<Application> application;
};

// The product's main job with a real browser: the words change where they stand, once, and the clipboard is
// the user's again.
TEST_F(CommandTest, UpperCaseChangesTheSelectionInChromium) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "user's own"}, {"image/png", "not really"}});
  ChromiumWorld page(world,
                     "<p>before</p><p id=\"sel\">stra\xC3\x9F"
                     "e <b>and</b> more</p><p>after</p>");
  const Outcome outcome = Run("UpperCase");
  EXPECT_THAT(outcome.messages, ElementsAre());
  const std::string dom = page.WaitForDom("STRASSE");
  EXPECT_THAT(dom, HasSubstr("AND"));
  EXPECT_THAT(dom, HasSubstr("before"));
  EXPECT_THAT(dom, HasSubstr("after"));
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "user's own");
  EXPECT_EQ(world.ClipboardAs("image/png"), "not really");
}

// A date goes in without eating what stands before the caret; plain text stays on the clipboard.
TEST_F(CommandTest, InsertsAndCopiesInChromium) {
  ChromiumWorld page(world, "<p id=\"sel\">some\xC2\xA0words</p>");
  EXPECT_THAT(Run("CopyPlainText").messages, ElementsAre());
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "some words");
  EXPECT_THAT(Run("InsertDateTime").messages, ElementsAre());
  EXPECT_THAT(page.WaitForDom("20"), HasSubstr(":"));
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "some words");
}

struct Disturbance {
  const char* manner;
  const char* messageKey;
};

// Whatever the other application does, the user gets one clear message, the clipboard back, and can go on.
TEST_F(CommandTest, SurvivesBadManners) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "user's own"}});
  const Disturbance disturbances[] = {
      {"copy=never", "msgLoadTextError"},
      {"answer=never", "errClipboardSilent"},
      {"copy=hang", "errScriptNoAnswer"},
      {"copy=close", "errScriptTargetClosed"},
  };
  for (const Disturbance& disturbance : disturbances) {
    const auto window = world.Adversary({disturbance.manner});
    EXPECT_THAT(Run("UpperCase").messages, ElementsAre(Text(disturbance.messageKey))) << disturbance.manner;
    EXPECT_EQ(KeysOf(*window).find("BackSpace"), std::string::npos) << disturbance.manner;
  }
  EXPECT_THAT(Run("UpperCase").messages, ElementsAre(Text("errScriptTargetMissing")));
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "user's own");
  for (const char* manner : {"copy=late", "answer=late"}) {
    const auto late = world.Adversary({manner});
    EXPECT_THAT(Run("UpperCase").messages, ElementsAre()) << manner;
    EXPECT_THAT(late->WaitForLine("pasted "), HasSubstr("COPIED")) << manner;
  }
}

// A second click while a command waits for the application is refused with the first one's name.
TEST_F(CommandTest, RefusesASecondCommand) {
  const auto window = world.Adversary({"copy=late"});
  std::promise<Outcome> first;
  application->Run({shell::FindCommand("UpperCase"), {}, true, false},
                   [&](Outcome outcome) { first.set_value(outcome); });
  const Outcome second = Run("LowerCase");
  EXPECT_FALSE(second.ran);
  ASSERT_EQ(second.messages.size(), 1u);
  EXPECT_THAT(second.messages[0], HasSubstr(Text("menuUpperCase")));
  EXPECT_TRUE(first.get_future().get().ran);
  EXPECT_TRUE(Run("LowerCase").ran);
}

}  // namespace
}  // namespace quill::x11_test
