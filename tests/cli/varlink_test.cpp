#include <gmock/gmock.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

/// A user with one account of each kind, and a program that stands for the system's opener.
class Links : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    for (const char* folder : {"root/home/Notes", "one/OneNote Uploads", "work/OneNote Uploads", "bin"})
      fs::create_directories(m_folder / folder);
    AddAccount("Personal", "one");
    AddAccount("Business1", "work");
    Write("root/home/Notes/a b.txt", "x");
    Write("root/home/run.sh", "x");
    Write("one/OneNote Uploads/plan.docx", "x");
    Write("work/OneNote Uploads/Annual report.docx", "x");
    // The opener waits at the pipe's end for somebody who reads what it was told to open.
    ASSERT_EQ(::mkfifo(Below("opened").c_str(), 0600), 0);
    Write("bin/xdg-open", "#!/bin/sh\necho \"$1\" >'" + Below("opened") + "'\n");
    fs::permissions(m_folder / "bin/xdg-open", fs::perms::owner_all);
  }

  void AddAccount(const std::string& account, const std::string& library) {
    const std::string settings = "root/Library/Application Support/OneDrive/settings/" + account;
    fs::create_directories(m_folder / settings);
    Write(settings + "/1.ini", "library = 1 \"" + (m_folder / library).string() + "\" 1\r\n");
  }

  std::string Below(const std::string& name) { return (m_folder / name).string(); }
};

// Scripts learn where attachments and synced folders lie.
TEST_F(Links, ListsAndFindsOneDriveFiles) {
  const nlohmann::json folders = nlohmann::json::parse(Run("onedrive folders --json").out);
  ASSERT_EQ(folders.size(), 2u);
  EXPECT_THAT(Run("onedrive folders").out, HasSubstr("Personal\t" + Below("one") + "\n"));
  const Output embed =
      Run("onedrive find 'https://onedrive.live.com/embed?resid=1&amp;filename=plan.docx&x'");
  EXPECT_EQ(embed.out, Below("one/OneNote Uploads/plan.docx") + "\n") << embed.err;
  const Output work = Run("onedrive find https://contoso/:w:/g --text 'annual report.docx' --json");
  EXPECT_EQ(nlohmann::json::parse(work.out)[0]["file"], Below("work/OneNote Uploads/Annual report.docx"));
}

TEST_F(Links, TellsWhatOneDriveDoesNotHave) {
  const std::pair<const char*, int> rows[] = {{"find https://contoso/:w:/g --text gone.txt", 1},
                                              {"find https://contoso/:w:/g", 2},
                                              {"find https://contoso/x", 2},
                                              {"find", 2},
                                              {"", 2}};
  for (const auto& [words, status] : rows) {
    const Output answer = Run(std::string("onedrive ") + words);
    EXPECT_EQ(answer.status, status) << words;
    EXPECT_EQ(answer.out, "") << words;
    EXPECT_THAT(answer.err, MatchesRegex("quill: [^\n]*\n")) << words;
  }
  fs::remove_all(m_folder / "root/Library");
  const Output none = Run("onedrive folders");
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.err, HasSubstr("Can't find local OneDrive folder!"));
}

// A link made here means the same file again, by every form of it.
TEST_F(Links, MakesAndResolvesVariableLinks) {
  EXPECT_EQ(Run("varlink make 'root/home/Notes/a b.txt'").out, "qvar://%USERPROFILE%/Notes/a b.txt\n");
  EXPECT_EQ(Run("varlink make \"$PWD/one/\"").out, "qvar://%ONEDRIVE%\n");
  EXPECT_EQ(Run("varlink make work/a/../x").out, "qvar://%ONEDRIVEFORBUSINESS%/x\n");
  EXPECT_EQ(Run("varlink resolve qvar://%25USERPROFILE%25/Notes/a%20b.txt").out,
            Below("root/home/Notes/a b.txt") + "\n");
  const std::pair<const char*, const char*> rows[] = {
      {"make /etc/hosts", "/etc/hosts is in none"},
      {"resolve qvar://%USERPROFILE%/gone", "nothing is at"},
      {"resolve qvar:///etc/hosts", "begins with none of"},
      {"resolve qvar://%ONEDRIVE%/../x", "out of its folder"}};
  for (const auto& [words, problem] : rows) {
    const Output refused = Run(std::string("varlink ") + words);
    EXPECT_EQ(refused.status, 1) << words;
    EXPECT_THAT(refused.err, HasSubstr(problem));
  }
  for (const char* words :
       {"varlink", "varlink make", "varlink make ''", "varlink resolve \"$(printf '\\303')\""})
    EXPECT_EQ(Run(words).status, 2) << words;
}

// What a link leads to is opened by the system's program; a script only when that is said.
TEST_F(Links, OpensWhatALinkMeans) {
  m_program = "env' PATH='" + Below("bin") + "':\"$PATH\" '" + m_program;
  const auto opened = [this] {
    const std::string read = "timeout 20 cat '" + Below("opened") + "' >'" + Below("read") + "'";
    return std::system(read.c_str()) == 0 ? File("read") : "nothing was opened";
  };
  EXPECT_EQ(Run("varlink open 'qvar://%USERPROFILE%/Notes/a b.txt'").status, 0);
  EXPECT_EQ(opened(), Below("root/home/Notes/a b.txt") + "\n");
  const Output refused = Run("varlink open qvar://%USERPROFILE%/run.sh");
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("--yes"));
  EXPECT_EQ(Run("varlink open --yes qvar://%USERPROFILE%/run.sh").status, 0);
  EXPECT_EQ(opened(), Below("root/home/run.sh") + "\n");
}

}  // namespace
}  // namespace quill::cli
