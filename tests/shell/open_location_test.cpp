#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/command_world.h"

namespace quill::shell {
namespace {

using platform::ScriptProblem;
using test::CommandWorld;

// A click in a list opens the place and nothing else: what the user has on the clipboard stays there.
TEST(OpenLocation, OpensTheLinkInOneNote) {
  CommandWorld world;
  EXPECT_TRUE(NSOneNoteMain(world.services, world.globals).OpenLocation("onenote:https://h/a.one#b&end"));
  EXPECT_EQ(world.recording.transcript(), "run open onenote:https://h/a.one#b&end");
}

// Links come from pages of other people: one that ends the script's string would run commands of theirs.
TEST(OpenLocation, KeepsALinkFromBecomingAScript) {
  CommandWorld world;
  NSOneNoteMain(world.services, world.globals).OpenLocation("onenote:\"\ndo shell script \"rm\\");
  EXPECT_EQ(world.recording.transcript(), "run open onenote:%22do shell script %22rm%5C");
}

// Without OneNote a click would seem to do nothing.
TEST(OpenLocation, SaysWhyNothingOpened) {
  CommandWorld world;
  world.recording.FailScripts({ScriptProblem::TargetMissing});
  NSOneNoteMain main(world.services, world.globals);
  EXPECT_FALSE(main.OpenLocation("onenote:x"));
  EXPECT_THAT(world.recording.messages(),
              testing::ElementsAre(std::string(world.strings.Text("errScriptTargetMissing"))));
  EXPECT_FALSE(main.OpenLocation(""));
  EXPECT_EQ(world.recording.messages().size(), 1u) << "no link is no problem";
}

}  // namespace
}  // namespace quill::shell
