#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/link_requests.h"
#include "shell/onedrive_actions.h"
#include "shell/temporary_folder.h"
#include "shell/url_handler.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using test::CommandWorld;
using test::Copied;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

/// A user with a home folder and, when a test adds it, a OneDrive client.
struct LinkWorld : CommandWorld {
  explicit LinkWorld(std::string_view fragment = {})
      : CommandWorld(fragment.empty() ? platform::recording::Contents{} : Copied(fragment)) {
    globals.folders.roots.userLibrary = folder.path() / "Library";
    globals.folders.roots.home = folder.path() / "home";
  }

  std::string Path(const std::string& name) const { return (folder.path() / name).string(); }

  void AddLibrary(const std::string& account, const std::string& name) const {
    folder.Write("Library/Application Support/OneDrive/settings/" + account + "/" + name + ".ini",
                 "library = 1 \"" + Path(name) + "\" 1");
  }

  /// What the operation returned.
  std::int64_t Run(std::int64_t number) {
    NSOneNoteMain main(services, globals);
    main.Run(number);
    return main.OperationResult().value_or(-1);
  }
  void Click(std::string_view url) {
    CommandContext context{services, globals, 0};
    ResponseClickOnVarLink(context, url);
  }

  test::TemporaryFolder folder;
};

std::string Link(const std::string& href, const std::string& text = "Plan.docx") {
  return "<p>see <a href=\"" + href + "\">" + text + "</a></p>";
}

const std::string kShort = "https://contoso-my.sharepoint.com/:w:/g/personal/x?e=1";

// The user gets the local copy in its own application: by the link's text, or by the name in the link.
TEST(OpenCloudAttachment, OpensTheLocalCopy) {
  LinkWorld work(Link(kShort));
  work.AddLibrary("Business1", "work");
  work.folder.Write("work/OneNote Uploads/Plan.docx", "x");
  EXPECT_EQ(work.Run(12), 1);
  EXPECT_THAT(work.recording.transcript(),
              HasSubstr("open file " + work.Path("work/OneNote Uploads/Plan.docx")));
  EXPECT_THAT(work.recording.messages(), IsEmpty());
  EXPECT_THAT(work.recording.pastes(), IsEmpty());

  LinkWorld own(Link("https://onedrive.live.com/embed?resid=1&amp;filename=a%20b.pdf&amp;x=1", "no name"));
  own.AddLibrary("Personal", "one");
  own.folder.Write("one/OneNote Uploads/a b.pdf", "x");
  own.Run(12);
  EXPECT_THAT(own.recording.transcript(), HasSubstr("open file " + own.Path("one/OneNote Uploads/a b.pdf")));
}

// What is missing is told: a link of this kind, the client, the file.
TEST(OpenCloudAttachment, TellsWhatIsMissing) {
  for (const std::string& none : {Link("https://example.org/x"), Link(""), std::string("<p>no link</p>")}) {
    LinkWorld world(none);
    EXPECT_EQ(world.Run(12), 0);
    EXPECT_THAT(world.recording.messages(),
                ElementsAre(world.strings.Text("errSelectCloudFileAttachmentLink")));
  }
  LinkWorld noClient(Link(kShort));
  EXPECT_EQ(noClient.Run(12), 1);
  EXPECT_THAT(noClient.recording.messages(), ElementsAre(kNoOneDriveFolder));

  LinkWorld noFile(Link(kShort, "../../etc/passwd"));
  noFile.AddLibrary("Business1", "work");
  EXPECT_EQ(noFile.Run(12), 1);
  EXPECT_THAT(noFile.recording.messages(), ElementsAre(testing::StartsWith("Can not find the file in")));
}

// Two accounts can hold the same file: the user says which, and none when they close the window.
TEST(OpenCloudAttachment, AsksWhichOfSeveral) {
  LinkWorld world(Link(kShort));
  for (const char* account : {"Business1", "Business2"}) {
    world.AddLibrary(account, account);
    world.folder.Write(fs::path(account) / "OneNote Uploads/Plan.docx", "x");
  }
  EXPECT_EQ(world.Run(12), 1);
  ASSERT_EQ(world.recording.windows().size(), 1u);
  const auto request = std::any_cast<CloudFilesRequest>(world.recording.windows()[0]);
  EXPECT_EQ(request.files.size(), 2u);
  EXPECT_THAT(world.recording.transcript(), Not(HasSubstr("open file")));

  world.recording.AnswerDialog<CloudFilesRequest>(1);
  world.Run(12);
  EXPECT_THAT(world.recording.transcript(), HasSubstr("open file " + request.files[1].FullName));
}

// The selection fills the window, its answer is pasted at the caret, and a closed window leaves the page
// alone.
TEST(VarLink, PastesWhatTheWindowAnswers) {
  LinkWorld world(Link("file:///x/a%20b.txt", "<b>Plan</b>"));
  EXPECT_EQ(world.Run(10003), 0);
  EXPECT_THAT(world.recording.pastes(), IsEmpty());
  const auto request = std::any_cast<VarLinkRequest>(world.recording.windows().at(0));
  EXPECT_EQ(request.fields, (files::LinkFields{"Plan", "x/a b.txt"}));
  EXPECT_EQ(request.roots.home, world.Path("home"));
  EXPECT_FALSE(request.roots.hasOneDrive);

  world.recording.AnswerDialog<VarLinkRequest>(files::LinkFields{"Plan", "%USERPROFILE%/a b.txt"});
  world.Run(10003);
  ASSERT_EQ(world.recording.pastes().size(), 1u);
  EXPECT_FALSE(world.recording.pastes()[0].replaceSelection);
  EXPECT_THAT(*world.recording.pastes()[0].contents.html,
              EndsWith("<body><a href='qvar://%USERPROFILE%/a b.txt'>Plan</a></body></html>"));
}

// Without a selection the window is empty; when nothing could be copied at all there is nowhere to paste to.
TEST(VarLink, BeginsEmptyWithoutASelection) {
  LinkWorld world;
  world.Run(10003);
  ASSERT_EQ(world.recording.windows().size(), 1u);
  EXPECT_EQ(std::any_cast<VarLinkRequest>(world.recording.windows()[0]).fields, files::LinkFields());
  EXPECT_THAT(world.recording.messages(), IsEmpty());

  LinkWorld noWindow;
  using platform::ScriptProblem;
  noWindow.recording.FailScripts(
      {ScriptProblem::TargetMissing, ScriptProblem::TargetMissing, ScriptProblem::TargetMissing});
  noWindow.Run(10003);
  EXPECT_THAT(noWindow.recording.windows(), IsEmpty());
  EXPECT_EQ(noWindow.recording.messages().size(), 1u);
}

// A click opens what is there without a word, and does nothing at all when nothing is.
TEST(ClickOnVarLink, OpensWhatIsThere) {
  LinkWorld world;
  world.folder.Write("home/ä b.txt", "x");
  world.Click("qvar://%25USERPROFILE%25/%C3%A4%20b.txt");
  EXPECT_EQ(world.recording.transcript(), "open file " + world.Path("home/ä b.txt"));
  for (const char* url : {"qvar://%USERPROFILE%/gone", "qvar:///etc/hosts",
                          "qvar://%USERPROFILE%/../home/ä b.txt", "qvar://%HOME%/ä b.txt"}) {
    LinkWorld silent;
    silent.folder.Write("home/ä b.txt", "x");
    silent.Click(url);
    EXPECT_EQ(silent.recording.transcript(), "") << url;
    EXPECT_THAT(silent.recording.messages(), IsEmpty()) << url;
  }
}

// Any page can hold such a link: a script is opened only after a YES to a question that names it.
TEST(ClickOnVarLink, AsksBeforeItOpensAProgram) {
  LinkWorld world;
  world.folder.Write("home/run\u202Etxt.sh", "x");
  world.Click("qvar://%USERPROFILE%/run\u202Etxt.sh");
  EXPECT_THAT(world.recording.transcript(), HasSubstr(world.Path("home/run\uFFFDtxt.sh")));
  EXPECT_THAT(world.recording.transcript(), Not(HasSubstr("open file")));
  world.recording.AnswerYesNo(true);
  world.Click("qvar://%USERPROFILE%/run\u202Etxt.sh");
  EXPECT_THAT(world.recording.transcript(), EndsWith("open file " + world.Path("home/run\u202Etxt.sh")));
}

// A link into OneDrive on a machine without its client is not silence but a reason.
TEST(ClickOnVarLink, TellsThatThereIsNoOneDrive) {
  LinkWorld world;
  world.Click("qvar://%ONEDRIVE%/x");
  EXPECT_THAT(world.recording.messages(), ElementsAre(kNoOneDriveFolder));
  LinkWorld withClient;
  withClient.AddLibrary("Business1", "gone");
  withClient.Click("qvar://%ONEDRIVE%/x");
  EXPECT_THAT(withClient.recording.messages(), IsEmpty());
}

struct OpenRow {
  const char* href;
  const char* opened;  ///< the transcript's end, "~" for the test's folder
};

// Links of pages in their shapes: a file is found whatever its name, a web address keeps its escapes.
TEST(OpenLocalLink, OpensFilesAndAddresses) {
  const OpenRow rows[] = {
      {"file://~/home/a%20b.txt", "open file ~/home/a b.txt"},
      {"file://localhost~/home/a b.txt", "open file ~/home/a b.txt"},
      {"FILE:~/home/a b.txt", "open file ~/home/a b.txt"},
      {"~/home/a b.txt", "open file ~/home/a b.txt"},
      {"file://~/home/100%2541%23.txt#page=2", "open file ~/home/100%41#.txt"},
      {"file://~/home", "open file ~/home"},
      {"qvar://%USERPROFILE%/a b.txt", "open file ~/home/a b.txt"},
      {"https://example.org/?a=1%262&amp;b=%20", "open url https://example.org/?a=1%262&b=%20"},
  };
  for (const OpenRow& row : rows) {
    LinkWorld world;
    const auto whole = [&](std::string text) {
      const std::size_t at = text.find('~');
      return at == std::string::npos ? text : text.replace(at, 1, world.folder.path().string());
    };
    world.folder.Write("home/a b.txt", "x");
    world.folder.Write("home/100%41#.txt", "x");
    world.recording.SetSelection(Copied(Link(whole(row.href))));
    EXPECT_EQ(world.Run(11), 1);
    EXPECT_THAT(world.recording.transcript(), HasSubstr(whole(row.opened))) << row.href;
    EXPECT_THAT(world.recording.messages(), IsEmpty()) << row.href;
  }
}

TEST(OpenLocalLink, TellsWhatCannotBeOpened) {
  LinkWorld none("<p>no link</p>");
  EXPECT_EQ(none.Run(11), 1);
  EXPECT_THAT(none.recording.messages(), ElementsAre(none.strings.Text("errSelectLink")));

  for (const char* href : {"file:///no/such/file", "file:///%E4", "file://server/share", "file:///a%00b"}) {
    LinkWorld gone(Link(href));
    gone.Run(11);
    EXPECT_EQ(gone.recording.messages().size(), 1u) << href;
    EXPECT_THAT(gone.recording.transcript(), Not(HasSubstr("open "))) << href;
  }
  LinkWorld script;
  script.recording.SetSelection(Copied(Link("file://" + script.folder.Write("a.sh", "x").string())));
  script.Run(11);
  EXPECT_THAT(script.recording.transcript(), Not(HasSubstr("open file")));
}

}  // namespace
}  // namespace quill::shell
