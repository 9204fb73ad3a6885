#include "shell/template_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "files/name_number.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/library_requests.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using test::CommandWorld;
using test::Copied;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class Templates : public testing::Test {
 protected:
  Templates() : world(Copied("<p>a<br>&lt;b&gt;</p>")) {
    world.globals.folders.TemplateFolder = folder.path() / "Template";
  }

  void Select(std::string_view fragment) { world.recording.SetSelection(Copied(fragment)); }
  /// Runs "Save as Template" and types these names, one after the other.
  void Save(const std::vector<std::string>& typed) {
    for (const std::string& name : typed) world.recording.AnswerText(name);
    NSOneNoteMain(world.services, world.globals).Run(8);
  }
  void Insert(std::string_view name) {
    CommandContext context{world.services, world.globals, files::NumberOfName(name)};
    Template(context, *FindCommand("MenuItemTemplateClick"));
  }
  /// Opens the window, has it wish these one after the other, and closes it.
  void Serve(const std::vector<TemplateWish>& wishes) {
    for (const TemplateWish& wish : wishes) world.recording.AnswerDialog<TemplatesRequest>(wish);
    CommandContext context{world.services, world.globals};
    Template(context, *FindCommand("MenuItemTemplateClick"));
  }
  std::string File(const fs::path& name) { return ReadFile(folder.path() / name).ValueOr("missing"); }
  std::string Text(std::string_view key) { return std::string(world.strings.Text(key)); }
  const std::vector<std::string>& Told() { return world.recording.messages(); }

  test::TemporaryFolder folder;
  CommandWorld world;
};

// What was selected comes back on another day and another machine: same markup, pictures inside, dates of
// then.
TEST_F(Templates, ComeBackWithPicturesAndDates) {
  const std::string png("\x89PNG\r\n\x1a\nrest");
  const fs::path picture = folder.Write("my pic.png", png);
  folder.Write("secret.txt", "no picture");
  const std::string source = "file://" + folder.path().string();
  Select("<p>On &lt;&lt;Date&gt;&gt;<br>&nbsp;<img src=\"" + source + "/my%20pic.png\"><img src=\"" + source +
         "/secret.txt\"></p>");
  Save({"Weekly & review"});
  EXPECT_EQ(Told().at(0), Text("msgSaveTemplateSuccess") + "\nPictures that could not be put into it: 1.");
  EXPECT_TRUE(world.recording.pastes().empty()) << "the selection stays as it is";
  fs::remove(picture);
  const std::string body = "<br/>&nbsp;<img src=\"data:image/png;base64,iVBORw0KGgpyZXN0\"/><img src=\"" +
                           source + "/secret.txt\"/></p>";
  EXPECT_EQ(File("Template/Weekly & review.htm"),
            "<html><head></head><body>\r\n<p>On &lt;&lt;Date&gt;&gt;" + body + "\r\n</body></html>");
  world.clock.Set(std::chrono::sys_days(std::chrono::year(2031) / 5 / 6) + std::chrono::hours(12));
  Insert("Weekly & review");
  ASSERT_EQ(world.recording.pastes().size(), 1u);
  EXPECT_EQ(world.recording.pastes()[0].contents.html,
            "<html><head></head><body>\r\n<p>On 2031-05-06" + body + "\r\n</body></html>");
  EXPECT_FALSE(world.recording.pastes()[0].replaceSelection);
  EXPECT_EQ(world.recording.clipboard().text, "the user's own");
}

// A template of the same name is replaced, a cancelled question writes nothing.
TEST_F(Templates, ReplaceOneOfTheirName) {
  folder.Write("Template/a.htm", "old");
  Save({});
  EXPECT_EQ(File("Template/a.htm"), "old");
  EXPECT_THAT(Told(), IsEmpty());
  Save({"  a "});
  EXPECT_THAT(File("Template/a.htm"), HasSubstr("<p>a<br/>&lt;b&gt;</p>"));
  EXPECT_THAT(Told(), ElementsAre(Text("msgSaveTemplateSuccess")));
}

// A name that leads elsewhere is refused with its reason and asked for again, until there is a good one.
TEST_F(Templates, AskAgainForABadName) {
  Save({"../evil", " ", "x.htm", "/tmp/x", "good"});
  EXPECT_THAT(Told(), ElementsAre(Text("errTemplateName"), Text("errTemplateNameEmpty"),
                                  Text("errTemplateNameExtension"), Text("errTemplateName"),
                                  Text("msgSaveTemplateSuccess")));
  EXPECT_THAT(File("Template/good.htm"), HasSubstr("<p>a"));
  EXPECT_FALSE(fs::exists(folder.path() / "evil.htm"));
}

// A template that cannot be written or read is told with the file, and pastes nothing.
TEST_F(Templates, TellWhatFails) {
  folder.Write("Template/bad.htm", "\xFF");
  fs::create_directory(folder.path() / "Template" / "dir.htm");
  Save({"dir"});
  Insert("bad");
  Insert("never was");
  Serve({{TemplateWish::Kind::Delete, "gone"}});
  EXPECT_THAT(Told(),
              ElementsAre(StartsWith(Text("msgSaveTemplateFailure")), StartsWith(Text("errReadTemplate")),
                          Text("errTemplateGone"), StartsWith(Text("errDeleteTemplate"))));
  EXPECT_THAT(Told()[1], HasSubstr("bad.htm"));
  EXPECT_THAT(world.recording.pastes(), IsEmpty());
}

// Exported templates can be taken in elsewhere; what is there stays, and is told.
TEST_F(Templates, AreExportedAndImported) {
  folder.Write("Template/a.htm", "a");
  folder.Write("Template/sub/b.htm", "b");
  folder.Write("out/a.htm", "the other's");
  using enum TemplateWish::Kind;
  world.recording.AnswerOpenPanel({folder.path() / "out"});
  Serve({{Export, ""}});
  EXPECT_EQ(File("out/a.htm"), "the other's");
  EXPECT_EQ(File("out/sub/b.htm"), "b");
  EXPECT_THAT(world.recording.transcript(), HasSubstr("open file " + (folder.path() / "out").string()));
  EXPECT_THAT(Told(), ElementsAre("There already, and left as they are: 1."));
  folder.Write("out/c.htm", "c");
  world.recording.AnswerOpenPanel({folder.path() / "out"});
  Serve({{Import, ""}, {Export, ""}});
  EXPECT_EQ(File("Template/a.htm"), "a");
  EXPECT_EQ(File("Template/c.htm"), "c");
  EXPECT_EQ(Told().size(), 2u) << "a cancelled panel says nothing";
}

// Somebody who stops a long export does not want its folder opened.
TEST_F(Templates, CopyingCanBeCancelled) {
  for (int i = 0; i < 9; ++i) folder.Write("Template/" + std::to_string(i) + ".htm", "x");
  fs::create_directory(folder.path() / "out");
  world.recording.AnswerOpenPanel({folder.path() / "out"});
  world.recording.CancelProgressAfter(4);
  Serve({{TemplateWish::Kind::Export, ""}});
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path() / "out"), {}), 2);
  EXPECT_THAT(world.recording.transcript(), testing::Not(HasSubstr("open file")));
}

}  // namespace
}  // namespace quill::shell
