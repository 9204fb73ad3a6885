#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "files/update/copy_link_shortcut.h"
#include "files/update/copy_link_titles.h"
#include "files/update/update_check.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// Part by part as numbers, the most significant first; told once, and only of what is really newer.
TEST(UpdateCheck, OrdersVersions) {
  struct Row {
    const char* version;
    const char* announced;
    const char* running;
    bool isTold;
  };
  const Row rows[] = {{"1.2.10.0", "1.2.9.9", "1.2.9.9", true},
                      {"1.2.9.9", "", "1.2.9.9", false},
                      {"2.0.0.0", "2.0.0.0", "1.9", false},
                      {"1.2.3.4", "", "1.2.3.3", true},
                      {"0.9.9.9", "", "1.0.0.0", false},
                      {"1.10", "", "1.9.9.9", true},
                      {"1.2.0.0", "", "1.2", false},
                      {"", "", "0.1", false}};
  for (const Row& row : rows)
    EXPECT_EQ(IsWorthAnnouncing(row.version, row.announced, row.running), row.isTold) << row.version;
}

// The file comes from outside and its text is shown: a version it is, or nothing.
TEST(UpdateCheck, TakesNothingButAVersion) {
  EXPECT_EQ(VersionInUpdateInfo(" \t1.2.10.0\r\n\n"), "1.2.10.0");
  EXPECT_EQ(VersionInUpdateInfo("7"), "7");
  for (const char* text :
       {"", "  ", "1.2.3.4.5", "1..2", ".1", "1.", "1.2 3", "1.2a", "-1.2", "<html>", "１.２", "1,2"})
    EXPECT_EQ(VersionInUpdateInfo(text), "") << text;
  EXPECT_EQ(VersionInUpdateInfo("1" + std::string(64, ' ')), "") << "longer than 64 bytes";
  const test::TemporaryFolder folder;
  EXPECT_EQ(ReadUpdateInfo(folder.path() / "none"), "");
  EXPECT_EQ(ReadUpdateInfo(folder.Write("long", std::string(1 << 20, '1'))), "");
}

// An answer that is no version leaves the last one in place, and the log says why.
TEST(UpdateCheck, KeepsTheOldFileWhenTheDownloadFails) {
  const test::TemporaryFolder folder;
  const auto file = folder.Write("updateinfo.txt", "1.0.0.0");
  platform::HttpResponse answer;
  answer.status = 200;
  answer.body = "1.1.0.0\n";
  EXPECT_TRUE(UpdateInfoDownloaded(answer, file).ok());
  EXPECT_EQ(ReadUpdateInfo(file), "1.1.0.0");
  answer.body = "<html>";
  EXPECT_THAT(UpdateInfoDownloaded(answer, file).error(), StartsWith("下载文件出错："));
  answer.status = 404;
  EXPECT_THAT(UpdateInfoDownloaded(answer, file).error(), HasSubstr("404"));
  const Failure noHost{platform::HttpFailure{platform::HttpProblem::HostNotFound, "no such host"}};
  EXPECT_EQ(UpdateInfoDownloaded(noHost, file).error(), "下载文件出错：no such host");
  EXPECT_EQ(ReadUpdateInfo(file), "1.1.0.0");
  answer.status = 200;
  answer.body = "1.2.0.0";
  EXPECT_THAT(UpdateInfoDownloaded(answer, folder.path() / "none/updateinfo.txt").error(),
              StartsWith("移动文件失败："));
}

// An address from outside opens no file and no other program, and nothing is asked in the open.
TEST(UpdateCheck, AsksAndOpensSecureAddressesOnly) {
  for (const char* good : {"https://example.org/v", "http://127.0.0.1:80/v", "http://localhost/v"})
    EXPECT_TRUE(IsUpdateAddress(good)) << good;
  for (const char* bad : {"", "http://example.org/v", "http://localhost.example.org/", "file:///etc/passwd"})
    EXPECT_FALSE(IsUpdateAddress(bad)) << bad;
}

// OneNote's menu speaks the user's first language; macOS names scripts, other systems name regions.
TEST(CopyLinkTitles, FollowTheFirstLanguage) {
  const std::pair<const char*, const char*> rows[] = {{"zh-Hans-CN", "复制指向页面的链接"},
                                                      {"zh_CN.UTF-8", "复制指向页面的链接"},
                                                      {"zh", "复制指向页面的链接"},
                                                      {"zh_TW.UTF-8", "複製頁面連結"},
                                                      {"zh-Hant-HK", "複製頁面連結"},
                                                      {"zh-MO", "複製頁面連結"},
                                                      {"pt-BR", "Copy Link to Page"},
                                                      {"pt_PT@euro", "Copiar Ligação Para a Página"},
                                                      {"de_AT.UTF-8", "Link zu Seite kopieren"},
                                                      {"kok-IN", "페이지에 대한 링크 복사"},
                                                      {"C", "Copy Link to Page"},
                                                      {"EN", "Copy Link to Page"},
                                                      {"nb-NO", "Kopier kobling til side"},
                                                      {"", "Copy Link to Page"}};
  for (const auto& [language, title] : rows)
    EXPECT_EQ(CopyLinkTitle({std::string(language), "fr"}), title) << language;
  EXPECT_EQ(CopyLinkTitle(std::vector<std::string>()), "Copy Link to Page");
}

/// The system's program for defaults: answers what it is asked, writes down what it is told.
struct Defaults final : platform::ProcessRunner {
  platform::ProcessResult Run(const platform::ProcessRequest& request) override {
    commands.push_back(request.command);
    platform::ProcessResult result;
    result.end = end;
    result.status = request.command[1] == "read" && present.empty() ? 1 : 0;
    result.output = present;
    result.reason = "No such file or directory";
    return result;
  }
  std::string present;
  platform::ProcessEnd end = platform::ProcessEnd::Exited;
  std::vector<std::vector<std::string>> commands;
};

// The whole dictionary is replaced, so what the user had is kept: each state once, none lost to a second run.
TEST(CopyLinkShortcut, SavesTheFormerKeysFirst) {
  const test::TemporaryFolder folder;
  Defaults defaults;
  ASSERT_TRUE(InstallCopyLinkShortcut(defaults, "复制指向页面的链接", folder.path()).ok());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  EXPECT_THAT(defaults.commands.back(),
              ElementsAre("/usr/bin/defaults", "write", "com.microsoft.onenote.mac", "NSUserKeyEquivalents",
                          "{ \"复制指向页面的链接\" = \"@^p\"; }"));
  for (const char* present : {"{ Save = \"@s\"; }", "{ ours = 1; }", "{ Save = \"@s\"; }"}) {
    defaults.present = present;
    ASSERT_TRUE(InstallCopyLinkShortcut(defaults, "t", folder.path()).ok());
  }
  EXPECT_EQ(ReadFile(folder.path() / "OneNoteKeyEquivalents.txt").ValueOr(""), "{ Save = \"@s\"; }");
  EXPECT_EQ(ReadFile(folder.path() / "OneNoteKeyEquivalents 2.txt").ValueOr(""), "{ ours = 1; }");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "OneNoteKeyEquivalents 3.txt"));
  defaults.commands.clear();
  EXPECT_FALSE(InstallCopyLinkShortcut(defaults, "t", folder.path() / "none").ok());
  EXPECT_EQ(defaults.commands.size(), 1u) << "what cannot be saved is not replaced";
  defaults.end = platform::ProcessEnd::NotFound;
  EXPECT_THAT(InstallCopyLinkShortcut(defaults, "t", folder.path()).error(), HasSubstr("No such file"));
}

}  // namespace
}  // namespace quill::files
