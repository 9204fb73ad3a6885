#include "shell/application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "shell/command_world.h"
#include "shell/temporary_folder.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The program around a recorded desktop.
struct ApplicationWorld {
  ApplicationWorld() : world(test::Copied("<p>abc</p>")) {}

  nlohmann::json Answer(std::string_view request) {
    return nlohmann::json::parse(application.Answer(request));
  }

  test::CommandWorld world;
  Application application{
      Application::Parts{world.globals, world.strings, world.clock, world.recording,
                         [this] {
                           return platform::Backend{"recording", &world.recording, &world.recording, nullptr};
                         },
                         world.recording, world.recording, world.log}};
};

// Other processes of the user may send anything; each request gets one line that says what happened.
TEST(Application, AnswersRequests) {
  ApplicationWorld world;
  EXPECT_EQ(world.Answer(R"({"ping":true})")["ok"], true);
  const nlohmann::json done = world.Answer(R"({"trigger":"UpperCase","explain":true})");
  EXPECT_EQ(done["ok"], true);
  EXPECT_THAT(done["steps"].dump(), HasSubstr("target: recording"));
  EXPECT_EQ(world.world.PastedFragment(), "<p>ABC</p>");
  EXPECT_EQ(world.Answer(R"({"trigger":3})")["action"], "MenuItemUpperCaseClick");
  for (const char* wrong : {"", "null", "[]", "{", R"({"trigger":null})", R"({"trigger":"NoSuch"})",
                            R"({"trigger":3.5})", R"({"trigger":[1]})", "{\"trigger\":\"\xFF\"}"}) {
    const nlohmann::json answer = world.Answer(wrong);
    EXPECT_EQ(answer["ok"], false) << wrong;
    EXPECT_TRUE(answer.contains("error")) << wrong;
  }
}

// Whatever happens inside a command, the user is told and the next command runs.
TEST(Application, SurvivesACommandThatThrows) {
  ApplicationWorld world;
  const CommandRow broken = {
      "Broken",
      CommandGroup::Text,
      0,
      0,
      "menuUpperCase",
      0,
      Needs::Nothing,
      [](CommandContext&, const CommandRow&) { throw std::runtime_error("no more memory"); }};
  EXPECT_THAT(world.application.RunAndWait({&broken, {}, true, false}).messages,
              ElementsAre(HasSubstr("no more memory")));
  EXPECT_TRUE(world.application.RunAndWait({FindCommand("UpperCase"), {}, true, false}).ran);
  EXPECT_EQ(world.world.PastedFragment(), "<p>ABC</p>");
}

// A window must open at once, also while a command waits for its user.
TEST(Application, WindowsOpenWhileACommandRuns) {
  ApplicationWorld world;
  std::promise<void> go;
  world.application.RunJob(
      "long", [&](CommandContext&) { go.get_future().wait(); }, [](const Outcome&) {});
  const nlohmann::json refused = world.Answer(R"({"trigger":"UpperCase"})");
  EXPECT_EQ(refused["ok"], false);
  EXPECT_THAT(refused["messages"].dump(), HasSubstr("long"));
  EXPECT_EQ(world.Answer(R"({"trigger":"MenuItemShowMenuClick"})")["ok"], true);
  ASSERT_EQ(world.world.recording.windows().size(), 1u);
  EXPECT_NE(std::any_cast<MenuRequest>(&world.world.recording.windows()[0]), nullptr);
  // A link that meets a command is told, not lost in silence.
  EXPECT_EQ(world.Answer(R"({"url":"qvar://%HOME%/a"})")["ok"], true);
  ASSERT_EQ(world.world.recording.windows().size(), 2u);
  EXPECT_THAT(std::any_cast<NoticeRequest>(world.world.recording.windows()[1]).text, HasSubstr("long"));
  go.set_value();
}

// A link goes to its handler as the raw text; anything else than "qvar://" in lower case is no link of ours.
TEST(Application, HandsOnVariableLinksOnly) {
  ApplicationWorld world;
  for (const char* other : {"QVAR://a", "qvar:/a", "https://a", " qvar://a", ""}) {
    EXPECT_EQ(world.Answer(nlohmann::json{{"url", other}}.dump())["ok"], true);
  }
  std::promise<Outcome> done;
  world.application.OpenLink("qvar://%ONEDRIVE%/a b#c", [&](Outcome outcome) { done.set_value(outcome); });
  EXPECT_TRUE(done.get_future().get().ran);
  EXPECT_EQ(world.world.recording.messages().size(), 1u);
}

// A key or language that the command line sets must hold in the running program, without a restart.
TEST(Application, TellsThatSettingsWereChangedOutside) {
  const test::TemporaryFolder folder;
  test::CommandWorld world;
  world.globals.folders.SettingsFile = folder.path() / "quillapp.plist";
  std::promise<std::string> told;
  Application application{
      {world.globals, world.strings, world.clock, world.recording,
       [&] {
         return platform::Backend{"recording", &world.recording, &world.recording, nullptr};
       },
       world.recording, world.recording, world.log,
       [&](const Settings& settings) { told.set_value(settings.Language); }}};
  Globals outside = world.globals;
  ASSERT_TRUE(ChangeSetting(outside, *FindSetting("Language"), "ja").ok());
  EXPECT_FALSE(ChangeSetting(outside, *FindSetting("Language"), "tlh").ok());
  EXPECT_EQ(outside.settings.Language, "ja") << "a refused text must change nothing";
  application.AskMenuState([](const MenuState&) {});
  EXPECT_EQ(told.get_future().get(), "ja");
}

}  // namespace
}  // namespace quill::shell
