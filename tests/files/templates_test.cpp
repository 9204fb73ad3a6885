#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/atomic_file.h"
#include "files/templates/template_copy.h"
#include "files/templates/template_excerpt.h"
#include "files/templates/template_folder.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Names(const fs::path& folder) {
  const auto names = TemplateNames(folder);
  return names.ok() ? *names : std::vector<std::string>{"problem: " + names.error()};
}

// The name is what stands in front of the first ".htm"; backups, pages and folders beside templates are none.
TEST(TemplateFolder, ListsTemplatesOnly) {
  const TemporaryFolder folder;
  for (const char* name :
       {"b.htm", "A.htm", "a.htm.bak", "c.htm.htm", "d.html", "E.HTM", ".htm", "sub/x.htm"})
    folder.Write(name, "x");
  fs::create_directory(folder.path() / "folder.htm");
  EXPECT_THAT(Names(folder.path()), ElementsAre("A", "b", "c"));
  EXPECT_THAT(Names(folder.path() / "gone"), IsEmpty());
  EXPECT_THAT(Names(folder.Write("file", "")).at(0), HasSubstr("problem: "));
}

// "c.htm.htm" is listed as "c", and what is done with "c" must not touch a file of another name.
TEST(TemplateFolder, ActsOnTheListedNameOnly) {
  const TemporaryFolder folder;
  folder.Write("c.htm.htm", "other");
  EXPECT_FALSE(ReadTemplate(folder.path(), "c").ok());
  EXPECT_FALSE(DeleteTemplate(folder.path(), "c").ok());
  EXPECT_TRUE(fs::exists(folder.path() / "c.htm.htm"));
}

struct NameCase {
  std::string name;
  TemplateNameProblem problem;
};

// A typed name becomes a path: it must never lead out of the folder, and what it makes must be found again.
TEST(TemplateFolder, RefusesNamesThatAreNone) {
  using enum TemplateNameProblem;
  const TemporaryFolder folder;
  const auto templates = folder.path() / "Template";
  fs::create_directory(templates);
  folder.Write("x.htm", "outside");
  const NameCase cases[] = {{"", Empty},
                            {"../x", NotAName},
                            {"/tmp/x", NotAName},
                            {"sub/x", NotAName},
                            {std::string("a\0b"sv), NotAName},
                            {std::string(252, 'n'), NotAName},
                            {"x.htm", Extension},
                            {"a.html", Extension},
                            {"..", NotAName},
                            {"a b & <c> \"d\"", None},
                            {std::string(251, 'n'), None}};
  for (const NameCase& one : cases) {
    EXPECT_EQ(CheckTemplateName(one.name), one.problem) << one.name;
    EXPECT_EQ(SaveTemplate(templates, one.name, "new").ok(), one.problem == None) << one.name;
    EXPECT_EQ(ReadTemplate(templates, one.name).ok(), one.problem == None) << one.name;
    EXPECT_EQ(DeleteTemplate(templates, one.name).ok(), one.problem == None) << one.name;
  }
  EXPECT_EQ(ReadFile(folder.path() / "x.htm").ValueOr(""), "outside");
}

// A template is overwritten by one of its name; the folder comes back when somebody has removed it.
TEST(TemplateFolder, SavesOverTheOldOne) {
  const TemporaryFolder folder;
  const auto templates = folder.path() / "Template";
  ASSERT_TRUE(SaveTemplate(templates, "a", "a longer first text").ok());
  ASSERT_TRUE(SaveTemplate(templates, "a", "short").ok());
  EXPECT_EQ(ReadTemplate(templates, "a").ValueOr(""), "short");
  EXPECT_EQ(test::Mode(templates), 0700);
  ASSERT_TRUE(DeleteTemplate(templates, "a").ok());
  EXPECT_THAT(DeleteTemplate(templates, "a").error(), HasSubstr("a.htm: No such file"));
}

// Half a template is worse than none, and a pipe in the folder must not hang the program.
TEST(TemplateFolder, ReadsWholeUtf8FilesOnly) {
  const TemporaryFolder folder;
  folder.Write("bad.htm", "<p>\xFF</p>");
  EXPECT_THAT(ReadTemplate(folder.path(), "bad").error(), HasSubstr("bad.htm: is not UTF-8"));
  ASSERT_EQ(::mkfifo((folder.path() / "pipe.htm").c_str(), 0600), 0);
  EXPECT_THAT(ReadTemplate(folder.path(), "pipe").error(), HasSubstr("pipe.htm"));
  EXPECT_FALSE(SaveTemplate(folder.path(), "pipe", "x").ok());
  fs::create_directory(folder.path() / "dir.htm");
  EXPECT_THAT(SaveTemplate(folder.path(), "dir", "x").error(), HasSubstr("dir.htm"));
  EXPECT_FALSE(DeleteTemplate(folder.path(), "dir").ok());
}

/// The files below a folder with their contents, as one text.
std::string Tree(const fs::path& folder) {
  std::vector<std::string> lines;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory())
      lines.push_back(entry.path().lexically_relative(folder).string() + "=" +
                      ReadFile(entry.path()).ValueOr("?"));
  }
  std::ranges::sort(lines);
  std::string text;
  for (const std::string& line : lines) text += line + ";";
  return text;
}

// Everything that is a template arrives at its place; nothing else, nothing twice, and nothing of the user's
// goes.
TEST(CopyTemplates, CopiesTheTreeAndReplacesNothing) {
  const TemporaryFolder from, to;
  from.Write("a.htm", "new a");
  from.Write("b.htm", "b");
  from.Write("b.html", "no template");
  from.Write("deep/er/c.htm", "c");
  from.Write("empty/x.txt", "x");
  to.Write("a.htm", "old a");
  fs::create_symlink("nowhere", to.path() / "d.htm");
  from.Write("d.htm", "d");
  const TemplateCopy copy = CopyTemplates(from.path(), to.path());
  EXPECT_EQ(Tree(to.path()), "a.htm=old a;b.htm=b;d.htm=?;deep/er/c.htm=c;");
  EXPECT_EQ(copy.copied, 2u);
  EXPECT_EQ(copy.kept, 2u);
  EXPECT_EQ(copy.failed, 0u);
  EXPECT_FALSE(fs::exists(to.path() / "empty"));
}

// A link may lead to the root of the disk, or to the folder it is in.
TEST(CopyTemplates, FollowsNoLinks) {
  const TemporaryFolder from, to, elsewhere;
  elsewhere.Write("secret.htm", "secret");
  from.Write("a.htm", "a");
  fs::create_directory_symlink(from.path(), from.path() / "loop");
  fs::create_directory_symlink(elsewhere.path(), from.path() / "out");
  fs::create_symlink(elsewhere.path() / "secret.htm", from.path() / "s.htm");
  EXPECT_EQ(CopyTemplates(from.path(), to.path()).copied, 1u);
  EXPECT_EQ(Tree(to.path()), "a.htm=a;");
}

// Somebody may export into the folder itself or below it, which must end.
TEST(CopyTemplates, MayCopyIntoItself) {
  const TemporaryFolder folder;
  folder.Write("a.htm", "a");
  EXPECT_EQ(CopyTemplates(folder.path(), folder.path()).kept, 1u);
  EXPECT_EQ(CopyTemplates(folder.path(), folder.path() / "sub").copied, 1u);
  EXPECT_EQ(CopyTemplates(folder.path(), folder.path() / "sub").copied, 0u)
      << "what was copied was copied on";
  EXPECT_EQ(Tree(folder.path()), "a.htm=a;sub/a.htm=a;");
}

// One file that cannot be read does not keep the others from their place, and the reason names it.
TEST(CopyTemplates, GoesOnAfterAFailure) {
  const TemporaryFolder from, to;
  from.Write("a.htm", "a");
  from.Write("sub/b.htm", "b");
  to.Write("sub", "a file where a folder has to be");
  const TemplateCopy copy = CopyTemplates(from.path(), to.path());
  EXPECT_EQ(copy.copied, 1u);
  EXPECT_EQ(copy.failed, 1u);
  EXPECT_THAT(copy.reason, HasSubstr("b.htm"));
  EXPECT_EQ(CopyTemplates(from.path() / "gone", to.path()).failed, 1u);
}

// A preview shows the beginning: cut where a tag or a character begins, pictures whole or not at all.
TEST(ExcerptOfTemplate, IsSmallAndWhole) {
  const ExcerptLimits limits{20, 15};
  const auto excerpt = [&](std::string_view html) {
    const TemplateExcerpt result = ExcerptOfTemplate(html, limits);
    return result.html + (result.isPart ? " +" : "");
  };
  EXPECT_EQ(excerpt("<p>short</p>"), "<p>short</p>");
  EXPECT_EQ(excerpt("<p>0123456789</p><table>"), "<p>0123456789</p> +");
  EXPECT_EQ(excerpt("<p>012345678901234\xC3\xA4\xC3\xA4"), "<p>012345678901234\xC3\xA4 +");
  EXPECT_EQ(excerpt("<i s=\"data:12345\"/>"), "<i s=\"data:12345\"/>");
  EXPECT_EQ(excerpt("<i s=\"data:1234567890\"/>"), "<i s=\"\"/> +");
  EXPECT_EQ(excerpt("<i s=\"data:12345\"/><p>01</p>"), "<i s=\"data:12345\"/><p>01</p>")
      << "pictures count apart";
  EXPECT_EQ(excerpt("<i s=\"data:1"), "<i s=\"data:1");
  const std::string many(3 << 20, '<');
  EXPECT_LE(ExcerptOfTemplate(many).html.size(), 64u << 10);
}

}  // namespace
}  // namespace quill::files
