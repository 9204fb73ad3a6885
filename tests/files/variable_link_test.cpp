#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "content/text_between.h"
#include "content/unicode_text.h"
#include "files/links/link_fields.h"
#include "files/links/risky_file.h"
#include "files/links/variable_link.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

const VariableRoots kRoots{"/Users/a/OneDrive", {"/Users/a/Work", "/Users/a/Work 2"}, "/Users/a"};

// The OneDrive folders lie in the home folder: a wrong order or a half-matched name leads to another file.
TEST(VariableLink, PutsTheVariableInPlaceOfTheRoot) {
  const std::pair<const char*, const char*> rows[] = {
      {"/Users/a/OneDrive/Notes/plan.docx", "%ONEDRIVE%/Notes/plan.docx"},
      {"/Users/a/OneDrive", "%ONEDRIVE%"},
      {"/Users/a/OneDrive2/x", "%USERPROFILE%/OneDrive2/x"},
      {"/Users/a/onedrive/x", "%USERPROFILE%/onedrive/x"},
      {"/Users/a/Work 2/x", "%ONEDRIVEFORBUSINESS%/x"},
      {"/Users/a", "%USERPROFILE%"},
      {"/Users/ab/x", "/Users/ab/x"},
      {"/etc/hosts", "/etc/hosts"},
      {"", ""},
  };
  for (const auto& [path, link] : rows) EXPECT_EQ(ConvertFullNameToQVarPath(path, kRoots), link);
  EXPECT_EQ(ConvertFullNameToQVarPath("/Users/a/OneDrive/x", {"", {}, "/Users/a", false}),
            "%USERPROFILE%/OneDrive/x");
}

TEST(VariableLink, PutsTheRootInPlaceOfTheVariable) {
  const std::pair<const char*, const char*> rows[] = {
      {"%ONEDRIVE%/x", "/Users/a/OneDrive/x"},
      {"%ONEDRIVE%/%ONEDRIVE%", "/Users/a/OneDrive//Users/a/OneDrive"},
      {"%USERPROFILE%", "/Users/a"},
      {"%ONEDRIVEFORBUSINESS%/x", ""},
      {"/etc/hosts", ""},
      {"x/%USERPROFILE%", ""},
      {"%onedrive%/x", ""},
      {"%HOME%/x", ""},
      {"", ""},
  };
  for (const auto& [link, path] : rows) EXPECT_EQ(ConvertQVarPathToFullName(link, kRoots), path) << link;
  EXPECT_EQ(ConvertQVarPathToFullName("%ONEDRIVE%/x", {"", {}, "/Users/a"}), "") << "no root, no path";
}

/// A home folder with a personal library and two of work.
class VariableLinks : public testing::Test {
 protected:
  VariableLinks() {
    m_folder.Write("home/plan.txt", "x");
    m_folder.Write("secret.txt", "x");
    m_folder.Write("home2/x", "x");
    m_folder.Write("one/Notes/a b#c?.txt", "x");
    m_folder.Write("work/only one", "x");
    m_folder.Write("work/both", "x");
    m_folder.Write("work 2/both", "x");
    m_folder.Write("work 2/only two", "x");
    m_roots = {Path("one"), {Path("work"), Path("work 2")}, Path("home")};
  }
  std::string Path(const std::string& name) const { return (m_folder.path() / name).string(); }

  test::TemporaryFolder m_folder;
  VariableRoots m_roots;
};

struct ClickRow {
  const char* url;
  LinkState state;
  const char* path;
};

// Clicked texts come as typed, escaped once or with entities, from any page. Only what is there and stays
// below its root may be opened.
TEST_F(VariableLinks, LeadToWhatIsThere) {
  using enum LinkState;
  const ClickRow rows[] = {
      {"qvar://%USERPROFILE%/plan.txt", Found, "home/plan.txt"},
      {"%USERPROFILE%/plan.txt", Found, "home/plan.txt"},
      {"qvar://%25USERPROFILE%25/plan.txt", Found, "home/plan.txt"},
      {"qvar://%ONEDRIVE%/Notes/a b#c?.txt", Found, "one/Notes/a b#c?.txt"},
      {"qvar://%25ONEDRIVE%25/Notes/a%20b%23c%3F.txt", Found, "one/Notes/a b#c?.txt"},
      {"qvar://%ONEDRIVE%/Notes/a&#32;b#c?.txt", Found, "one/Notes/a b#c?.txt"},
      {"qvar://%ONEDRIVEFORBUSINESS%/both", Found, "work/both"},
      {"qvar://%ONEDRIVEFORBUSINESS%/only two", Found, "work 2/only two"},
      {"qvar://%ONEDRIVEFORBUSINESS%/none", Missing, "work/none"},
      {"qvar://%USERPROFILE%/gone.txt", Missing, "home/gone.txt"},
      {"qvar:///etc/hosts", NoVariable, nullptr},
      {"qvar://%HOME%/plan.txt", NoVariable, nullptr},
      {"qvar://%USERPROFILE%/%E4.txt", NoVariable, nullptr},
      {"qvar://", NoVariable, nullptr},
      {"qvar://%USERPROFILE%/../secret.txt", Refused, nullptr},
      {"qvar://%USERPROFILE%/%2E%2E/secret.txt", Refused, nullptr},
      {"qvar://%USERPROFILE%/sub/..", Refused, nullptr},
      {"qvar://%USERPROFILE%2/x", Refused, nullptr},
      {"qvar://%USERPROFILE%/plan.txt%00.pdf", Refused, nullptr},
  };
  for (const ClickRow& row : rows) {
    const VariableTarget target = FindVariableTarget(row.url, m_roots);
    EXPECT_EQ(target.state, row.state) << row.url;
    EXPECT_EQ(target.path, row.path == nullptr ? "" : Path(row.path)) << row.url;
  }
  m_roots.personal.clear();
  EXPECT_EQ(FindVariableTarget("qvar://%ONEDRIVE%/Notes", m_roots).state, NoRoot);
}

// Of several personal accounts the one listed last counts; those of work keep their order.
TEST_F(VariableLinks, TakeTheirRootsFromTheOneDriveSettings) {
  const std::string settings = "Library/Application Support/OneDrive/settings/";
  m_folder.Write(settings + "Personal/1.ini", "library = 1 \"" + Path("one") + "\"");
  m_folder.Write(settings + "Business1/1.ini", "library = 1 \"" + Path("work") + "\"");
  const VariableRoots roots = FindVariableRoots(Path("Library"), Path("home") + "/");
  EXPECT_EQ(roots.personal, Path("one"));
  EXPECT_THAT(roots.business, testing::ElementsAre(Path("work")));
  EXPECT_EQ(roots.home, Path("home"));
  EXPECT_TRUE(roots.hasOneDrive);
  EXPECT_FALSE(FindVariableRoots(Path("no Library"), Path("home")).hasOneDrive);
}

// Both fields for the shapes in which a selection comes.
TEST(VariableLinkFields, ComeFromTheSelection) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"<p>just <b>text</b></p>", "just text", ""},
      {"<a href=\"qvar://%ONEDRIVE%/a%20b\"><span>Plan</span></a>", "Plan", "%ONEDRIVE%/a b"},
      {"<p>see <a href=\"file:///Users/a/x.txt\">x</a></p>", "x", "Users/a/x.txt"},
      {"<a href=\"https://x/?a=1&amp;b=2\" title=\"t\">T</a>", "T", "https://x/?a=1&b=2"},
      {"<a href='qvar://%ONEDRIVE%/a'>T</a>", "T", ""},
      {"", "", ""},
  };
  for (const auto& [html, text, link] : rows) EXPECT_EQ(LoadValue(html), (LinkFields{text, link})) << html;
}

TEST(VariableLinkFields, ArePastedAsTheyStand) {
  EXPECT_EQ(VariableLinkHtml({"<b>Plan</b> & more", "%ONEDRIVE%/a b&c"}),
            "<html><head><meta http-equiv='Content-Type' content='text/html; charset=utf-8'></head><body>"
            "<a href='qvar://%ONEDRIVE%/a b&c'><b>Plan</b> & more</a></body></html>");
}

/// What a program writes in place of an address when it hands it on.
using Escaper = std::string (*)(const std::string& address);

std::string AsItIs(const std::string& address) {
  return address;
}
/// A browser: blanks, quotes and everything foreign, but no percent signs.
std::string LikeABrowser(const std::string& address) {
  std::string escaped;
  for (const char c : address) {
    const bool plain = c > ' ' && c < 0x7F && std::string_view("\"<>`{}").find(c) == std::string_view::npos;
    escaped += plain ? std::string(1, c) : content::PercentEscape(std::string(1, c));
  }
  return escaped;
}
std::string LikeAStrictProgram(const std::string& address) {
  return "qvar://" + content::PercentEscape(address.substr(7));
}

// Whatever a file is called: its link, pasted, clicked and handed on by any program, leads back to it.
TEST(VariableLink, ComesBackToItsFile) {
  const std::string_view letters[] = {"a", "B", "7", " ", "/", "%", "4",       "1",  "'", "&",  "l", "t",
                                      ";", "#", "?", "+", "=", "ä", "e\u0301", "日", "🎫", "\"", "(", "<"};
  const test::TemporaryFolder folder;
  std::mt19937 random(20'261);
  for (int round = 0; round < 500; ++round) {
    const std::string root = (folder.path() / std::to_string(round)).string();
    std::string path = root + "/x";
    for (unsigned length = random() % 24; length > 0; --length)
      path += letters[random() % std::size(letters)];
    folder.Write(path += 'x', "contents");
    const VariableRoots roots{root, {}, "/nowhere"};
    const std::string link = EscapeWhereMisread(ConvertFullNameToQVarPath(path, roots));
    const std::string html = VariableLinkHtml({"text", link});
    const std::string address(content::TextBetween(html, "<a href='", "'"));
    for (const Escaper escape : {AsItIs, LikeABrowser, LikeAStrictProgram}) {
      const VariableTarget target = FindVariableTarget(escape(address), roots);
      ASSERT_EQ(target.state, LinkState::Found) << escape(address);
      ASSERT_EQ(target.path, path) << escape(address);
    }
  }
}

// An ordinary path stays readable in the field; only one that would be misread is escaped.
TEST(VariableLink, EscapesOnlyWhatWouldBeMisread) {
  EXPECT_EQ(EscapeWhereMisread("%ONEDRIVE%/R&D 50% ü#.txt"), "%ONEDRIVE%/R&D 50% ü#.txt");
  EXPECT_EQ(EscapeWhereMisread("%ONEDRIVE%/it's 50%"), "%ONEDRIVE%/it%27s 50%");
  EXPECT_EQ(EscapeWhereMisread("%ONEDRIVE%/50%20.txt"), "%ONEDRIVE%/50%2520.txt");
  EXPECT_EQ(EscapeWhereMisread("/a&amp;b"), "/a%26amp;b");
}

// A page can link to anything below home: what would run somebody's code must be told from documents.
TEST(RiskyFile, IsWhatMayRun) {
  const test::TemporaryFolder folder;
  const auto make = [&](const char* name, bool executable) {
    const fs::path file = folder.Write(name, "x");
    if (executable) fs::permissions(file, fs::perms::owner_exec, fs::perm_options::add);
    return file;
  };
  for (const char* name : {"a.sh", "A.DESKTOP", "b.command", "c.exe", "d.py", "e.jar", "f.docm", "g.url"}) {
    EXPECT_TRUE(IsRiskyFile(make(name, false))) << name;
  }
  for (const char* name : {"a.txt", "b.docx", "README", "c.jpeg", "sh", ".desktopx"}) {
    EXPECT_FALSE(IsRiskyFile(make(name, false))) << name;
  }
  EXPECT_TRUE(IsRiskyFile(make("tool", true)));
  EXPECT_TRUE(IsRiskyFile(make("tool.bin", true)));
  EXPECT_FALSE(IsRiskyFile(make("from a stick.PDF", true))) << "marked, but never run";

  fs::create_directories(folder.path() / "Editor.app/Contents");
  EXPECT_TRUE(IsRiskyFile(folder.path() / "Editor.app"));
  EXPECT_TRUE(IsRiskyFile(folder.path() / "Editor.app/"));
  EXPECT_FALSE(IsRiskyFile(folder.path() / "Editor.app/Contents")) << "a folder to look into";
  EXPECT_FALSE(IsRiskyFile(folder.path()));

  fs::create_symlink(folder.path() / "a.sh", folder.path() / "harmless.txt");
  EXPECT_TRUE(IsRiskyFile(folder.path() / "harmless.txt"));
  fs::create_symlink(folder.path() / "Editor.app", folder.path() / "folder");
  EXPECT_TRUE(IsRiskyFile(folder.path() / "folder"));
  EXPECT_TRUE(IsRiskyFile("/dev/null"));
}

}  // namespace
}  // namespace quill::files
