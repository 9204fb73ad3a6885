#include "shell/folders.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/standard_folders.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

const fs::path kSupport = fs::path("Application Support") / "Quillworks" / "Quill Menu";

// Backups, templates and tokens are found again by these paths, and are nobody else's to read.
TEST(Folders, LieInTheLocalDomainForThisUserAlone) {
  const TemporaryFolder root;
  const Folders folders = CreateFolders(FindFolderRoots(root.path()));
  const fs::path support = root.path() / "local" / "Library" / kSupport;
  EXPECT_TRUE(folders.usesLocalDomain);
  EXPECT_EQ(folders.SettingsFile, support / "quillapp.plist");
  EXPECT_EQ(folders.PagesNumHistoryFile, root.path() / "Documents" / "Quill Menu" / "PagesNumHistory.txt");
  for (const fs::path& folder : {support, support / "Tmp", support / "Template", support / "OneAppBackup",
                                 support / "Images", root.path() / "Documents" / "Quill Menu"})
    EXPECT_EQ(test::Mode(folder), 0700) << folder;
  EXPECT_FALSE(fs::exists(folders.SettingsFile));
  EXPECT_TRUE(fs::is_empty(folders.TmpFolder)) << "the look whether it can be written left something";
}

// Where an ordinary user may not write the local domain, the program must still keep its settings.
TEST(Folders, FallBackToTheUsersDomainAndSayWhy) {
  const TemporaryFolder blocked;
  blocked.Write("local/Library", "a file");
  const TemporaryFolder foreign;
  const fs::path support = foreign.path() / "local" / "Library" / kSupport;
  fs::create_directories(support);
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(support.c_str(), 12345, 12345), 0);
  }
  const TemporaryFolder noDomain;
  for (const TemporaryFolder* root : {&blocked, &foreign, &noDomain}) {
    if (root == &foreign && ::geteuid() != 0) continue;
    FolderRoots roots = FindFolderRoots(root->path());
    roots.makeLocalDomain = root != &noDomain;
    const Folders found = FindFolders(roots);
    EXPECT_FALSE(fs::exists(root->path() / "Library")) << "looking made a folder";
    const Folders made = CreateFolders(roots);
    EXPECT_EQ(made.SupportFolder, root->path() / "Library" / kSupport);
    EXPECT_EQ(found.SupportFolder, made.SupportFolder);
    EXPECT_EQ(test::Mode(made.TmpFolder), 0700);
    EXPECT_NE(made.localDomainProblem, "");
    EXPECT_EQ(found.localDomainProblem.empty(), made.localDomainProblem.empty());
  }
}

// A folder of an older version, open to all, would show the tokens.
TEST(Folders, CloseAnOpenSupportFolder) {
  const TemporaryFolder root;
  const fs::path support = root.path() / "local" / "Library" / kSupport;
  fs::create_directories(support);
  ASSERT_EQ(::chmod(support.c_str(), 0777), 0);
  CreateFolders(FindFolderRoots(root.path()));
  EXPECT_EQ(test::Mode(support), 0700);
}

// Documents are where the user's desktop says, in the language of the user.
TEST(DocumentsInUserDirs, ReadsTheFormsThatTheFileHas) {
  const std::pair<const char*, const char*> cases[] = {
      {"# comment\nXDG_DESKTOP_DIR=\"$HOME/Desktop\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n",
       "/h/Dokumente"},
      {"XDG_DOCUMENTS_DIR=\"/srv/My \\\"Docs\\\"\"", "/srv/My \"Docs\""},
      {"  XDG_DOCUMENTS_DIR=\"$HOME/a\"\nXDG_DOCUMENTS_DIR=\"$HOME/b\"", "/h/b"},
      {"#XDG_DOCUMENTS_DIR=\"$HOME/a\"", ""},
      {"XDG_DOCUMENTS_DIR=\"relative\"", ""},
      {"XDG_DOCUMENTS_DIR=\"", ""},
      {"", ""},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(platform::DocumentsInUserDirs(text, "/h").value_or("").string(), expected) << text;
}

}  // namespace
}  // namespace quill::shell
