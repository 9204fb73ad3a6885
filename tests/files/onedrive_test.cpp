#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "content/unicode_text.h"
#include "files/folder_listing.h"
#include "files/onedrive/cloud_link.h"
#include "files/onedrive/onedrive_app.h"
#include "files/onedrive/onedrive_settings.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kSettings = "Library/Application Support/OneDrive/settings";

std::string Utf16(std::string_view text) {
  std::string bytes;
  for (const char16_t unit : content::ToUtf16(text)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

/// A user's Library folder with accounts, and libraries beside it.
class OneDrive : public testing::Test {
 protected:
  MOneDriveApp App() const { return MOneDriveApp(m_folder.path() / "Library"); }

  std::vector<MAOneDriveFile> Copies(std::string_view name, CloudAttachType kind) const {
    return App().GetCloudFileAttachments(name, kind).value();
  }
  /// Where the copies are in the personal accounts.
  std::vector<std::string> Places(std::string_view name) const {
    std::vector<std::string> places;
    for (const MAOneDriveFile& file : Copies(name, CloudAttachType::PersonalEmbed))
      places.push_back(file.FullName);
    return places;
  }

  /// An account with one library, whose folder is made; returns the library's path.
  fs::path AddLibrary(const std::string& account, const std::string& library,
                      const std::string& settings = kSettings) {
    const fs::path root = m_folder.path() / library;
    fs::create_directories(root);
    m_folder.Write(fs::path(settings) / account / (library + ".ini"),
                   "version = 3\r\nlibrary = 1 4 27D7!113 28 \"SkyDrive\" Me personal \"" + root.string() +
                       "\" 1 63ae\r\n");
    return root;
  }

  test::TemporaryFolder m_folder;
};

struct IniRow {
  const char* text;
  const char* path;
};

// Descriptions come in both encodings, with and without a mark; the first library line counts, whatever its
// kind.
TEST(OneDriveIni, YieldsThePathOfTheFirstLibraryLine) {
  const IniRow rows[] = {
      {"library = 1 \"SkyDrive\" Me \"/Users/a/OneDrive\" 1 63\r\n", "/Users/a/OneDrive"},
      {"a = 1\nlibraryScope = 0 \"ODB\" \"https://x/y\" 8 \"/Users/ä/OneDrive - Contoso\" 1\nlibrary = "
       "\"/b\"",
       "/Users/ä/OneDrive - Contoso"},
      {"library = 1 \"SkyDrive\" Me\nlibrary = \"/later\"", "/"},
      {"library = \"/not closed", "/"},
      {" library = \"/a\"\nlibrary=\"/b\"\nLibrary = \"/c\"\nlibraryScop = \"/d\"", ""},
      {"", ""},
  };
  for (const IniRow& row : rows) {
    for (const std::string& bytes : {std::string(row.text), std::string("\xEF\xBB\xBF") + row.text,
                                     Utf16(row.text), "\xFF\xFE" + Utf16(row.text)}) {
      EXPECT_EQ(LibraryPathInIni(bytes), row.path) << row.text << " in " << bytes.size() << " bytes";
    }
  }
}

// A file cut off in the middle, or of no encoding at all, costs this library and nothing else.
TEST(OneDriveIni, SurvivesDamage) {
  EXPECT_EQ(LibraryPathInIni("library = \"/a\"\n\xC3"), "") << "not UTF-8";
  EXPECT_EQ(LibraryPathInIni(std::string("\xFF\xFE") + Utf16("library = \"/a\"") + "x"), "/a")
      << "half a unit";
  EXPECT_EQ(LibraryPathInIni("\xFF\xFE"), "");
  EXPECT_EQ(LibraryPathInIni(std::string(5, '\0')), "");
  const test::TemporaryFolder folder;
  EXPECT_EQ(GetAUserOneDriveLibraryPathFromIniFile(folder.path()), "") << "a folder";
  EXPECT_EQ(GetAUserOneDriveLibraryPathFromIniFile(folder.path() / "gone.ini"), "");
}

// Which accounts are searched depends on it: a wrong kind finds another person's file, or none.
TEST(CloudLink, IsOfTheKindThatItsAddressTells) {
  const std::string embed = "https://onedrive.live.com/embed?";
  const std::pair<std::string, CloudAttachType> rows[] = {
      {embed + "resid=1", CloudAttachType::PersonalEmbed},
      {"https://contoso-my.sharepoint.com/:w:/g/personal/x", CloudAttachType::BusinessShort},
      {"https://contoso/:ab:/g", CloudAttachType::BusinessShort},
      {"https://contoso/:öö:/g", CloudAttachType::BusinessShort},
      {"https://contoso/:abc:/g", CloudAttachType::None},
      {"https://contoso/::/g", CloudAttachType::None},
      {"https://contoso/:abc:/g/:w:/", CloudAttachType::None},
      {"http://onedrive.live.com/embed?", CloudAttachType::None},
      {"https://onedrive.live.com/view?", CloudAttachType::None},
      {"", CloudAttachType::None},
  };
  for (const auto& [link, kind] : rows) EXPECT_EQ(GetCloudAttachType(link, embed), kind) << link;
}

TEST(CloudLink, NamesItsFile) {
  const auto personal = [](std::string_view link) {
    return CloudFileName(link, "text", CloudAttachType::PersonalEmbed);
  };
  EXPECT_EQ(personal("https://o/embed?resid=1&filename=plan.docx&ithint=file"), "plan.docx");
  EXPECT_EQ(personal("https://o/embed?resid=1&filename=plan.docx"), "") << "as the last it is not seen";
  EXPECT_EQ(personal("https://o/embed?filename=plan.docx&a"), "");
  EXPECT_EQ(CloudFileName("l", " Annual\r\n  report.docx ", CloudAttachType::BusinessShort),
            "Annual report.docx")
      << "the source of a copied page is wrapped";
}

// An embed link belongs to a personal account and a short link to one of work; no other is searched.
TEST_F(OneDrive, SearchesTheAccountsOfTheLinksKind) {
  const fs::path own = AddLibrary("Personal", "OneDrive");
  const fs::path work = AddLibrary("Business1", "OneDrive - Contoso");
  for (const fs::path& library : {own, work}) {
    fs::create_directories(library / "OneNote Uploads");
    m_folder.Write(library / "OneNote Uploads/plan.docx", "x");
  }
  const std::string uploads = "OneNote Uploads";
  EXPECT_THAT(Copies("plan.docx", CloudAttachType::PersonalEmbed),
              ElementsAre(MAOneDriveFile{"Personal", uploads, "plan.docx", own / uploads / "plan.docx"}));
  EXPECT_THAT(Copies("plan.docx", CloudAttachType::BusinessShort),
              ElementsAre(MAOneDriveFile{"Business1", uploads, "plan.docx", work / uploads / "plan.docx"}));
}

// Every copy counts: of several accounts, libraries and upload folders, but only of those.
TEST_F(OneDrive, FindsEveryCopy) {
  const fs::path one = AddLibrary("Personal", "One");
  const fs::path two = AddLibrary("Second", "Two");
  m_folder.Write(one / "OneNote Uploads/a.pdf", "x");
  m_folder.Write(one / "OneNote Old/a.pdf", "x");
  m_folder.Write(one / "OneNoteUploads/a.pdf", "no blank after the name");
  m_folder.Write(one / "onenote uploads/a.pdf", "small letters");
  m_folder.Write(one / "OneNote file", "no folder");
  m_folder.Write(two / "OneNote Uploads/a.pdf", "x");
  m_folder.Write(fs::path(kSettings) / "Personal/global.ini", "library = \"" + two.string() + "\"");
  m_folder.Write(fs::path(kSettings) / "Personal/damaged.ini", "no library here");
  m_folder.Write(fs::path(kSettings) / "no account", "x");
  EXPECT_THAT(Places("a.pdf"), UnorderedElementsAre(one / "OneNote Uploads/a.pdf", one / "OneNote Old/a.pdf",
                                                    two / "OneNote Uploads/a.pdf"));
}

// Names reach a page composed and in any letter size; the file's own system may have kept them otherwise.
TEST_F(OneDrive, TakesASimilarNameWhereTheExactOneIsMissing) {
  const fs::path uploads = AddLibrary("Personal", "One") / "OneNote Uploads";
  m_folder.Write(uploads / "Re\u0301sume\u0301.PDF", "decomposed");
  EXPECT_THAT(Places("r\u00E9sum\u00E9.pdf"), ElementsAre(uploads / "Re\u0301sume\u0301.PDF"));
  m_folder.Write(uploads / "R\u00C9SUM\u00C9.PDF", "composed, large");
  EXPECT_THAT(Places("R\u00E9sum\u00E9.PDF"), ElementsAre(uploads / "Re\u0301sume\u0301.PDF"))
      << "size weighs more";
  m_folder.Write(uploads / "r\u00E9sum\u00E9.pdf", "exact");
  EXPECT_THAT(Places("r\u00E9sum\u00E9.pdf"), ElementsAre(uploads / "r\u00E9sum\u00E9.pdf"));
  m_folder.Write(uploads / "two words.txt", "x");
  EXPECT_THAT(Places("two\u00A0words.txt"), ElementsAre(uploads / "two words.txt"));
  EXPECT_THAT(Places("resume.pdf"), IsEmpty());
}

// A name comes from a page: it must not reach outside of the folder. An empty one is the folder itself.
TEST_F(OneDrive, StaysInsideTheUploads) {
  const fs::path library = AddLibrary("Personal", "One");
  m_folder.Write(library / "OneNote Uploads/sub/a.txt", "x");
  m_folder.Write(library / "secret.txt", "x");
  for (const std::string& name : {std::string("../secret.txt"), std::string("sub/a.txt"), std::string(".."),
                                  std::string("."), std::string("a\0b", 3), std::string(300, 'x')}) {
    EXPECT_THAT(Places(name), IsEmpty()) << name;
  }
  EXPECT_THAT(Places(""), ElementsAre(library / "OneNote Uploads"));
}

// The container's settings serve only where there are no others. No settings are not the same as no file.
TEST_F(OneDrive, FindsTheSettings) {
  const std::string container =
      "Library/Containers/com.microsoft.OneDrive-mac/Data/Library/Application Support/OneDrive/settings";
  EXPECT_EQ(App().GetOneDrivesUserFolders(), std::nullopt);
  EXPECT_EQ(App().GetCloudFileAttachments("a", CloudAttachType::PersonalEmbed), std::nullopt);
  const fs::path inside = AddLibrary("Personal", "Inside", container);
  EXPECT_THAT(*App().GetOneDrivesUserFolders(), ElementsAre(MAOneDriveFolder{"Personal", inside}));
  const fs::path usual = AddLibrary("Business1", "Usual");
  EXPECT_THAT(*App().GetOneDrivesUserFolders(), ElementsAre(MAOneDriveFolder{"Business1", usual}));
}

// A library that is not there is no root for links; one without a path counts as the whole disk.
TEST_F(OneDrive, ListsTheLibrariesThatAreThere) {
  const fs::path gone = AddLibrary("Personal", "Gone");
  fs::remove(gone);
  EXPECT_THAT(*App().GetOneDrivesUserFolders(), IsEmpty());
  m_folder.Write(fs::path(kSettings) / "Personal/odd.ini", "library = 1 2 3\n");
  EXPECT_THAT(*App().GetOneDrivesUserFolders(), ElementsAre(MAOneDriveFolder{"Personal", "/"}));
}

}  // namespace
}  // namespace quill::files
