#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// A user with local notebooks.
class Package : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    fs::create_directories(m_folder / "made");
    Section("Work", "A", "a section");
    Section("Home \"quoted\" $(touch x)", "B", "b");
  }
  void Section(const std::string& notebook, const std::string& name, const std::string& bytes) {
    const fs::path file = m_cache / notebook / (name + ".one (x).one");
    fs::create_directories((m_folder / file).parent_path());
    Write(file.string(), bytes);
  }
  /// Where programs stage what they pack.
  fs::path Temporary() {
    for (const auto& entry : fs::recursive_directory_iterator(m_folder / "root")) {
      if (entry.path().filename() == "Tmp") return entry.path();
    }
    return {};
  }

  fs::path m_cache =
      "root/Library/Containers/com.microsoft.onenote.mac/Data/Library/Application Support/Microsoft User "
      "Data/OneNote/15.0/Backup";
};

// What the list names can be packed, and what was packed can be restored: the whole way with the real
// programs.
TEST_F(Package, ListsPacksAndRestores) {
  const auto list = nlohmann::json::parse(Run("package list --json").out);
  ASSERT_EQ(list.size(), 2u);
  for (const auto& row : list) {
    EXPECT_EQ(row["sections"], 1);
    EXPECT_EQ(row["bytes"], row["name"] == "Work" ? 9 : 1);
    EXPECT_THAT(row["changed"].get<std::string>(), testing::EndsWith("Z"));
  }
  EXPECT_THAT(Run("package list").out, HasSubstr("Work\t1 section\t9 bytes\t"));

  const Output made = Run("package make --to made");
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(made.err, "") << "no line of progress without a terminal";
  EXPECT_THAT(made.out, HasSubstr((m_folder / "made/Work.quillpkg").string() + "\n"));
  EXPECT_TRUE(fs::exists(m_folder / "made/Home \"quoted\" $(touch x).quillpkg"));
  EXPECT_TRUE(fs::is_empty(Temporary()));

  const Output restored = Run("restore made/Work.quillpkg");
  EXPECT_EQ(restored.status, 0) << restored.err;
  EXPECT_EQ(restored.out, (m_folder / m_cache / "Work.quillpkg").string() + "\n");
  EXPECT_EQ(File((m_cache / "Work.quillpkg/Work/A.one").string()), "a section");
  EXPECT_THAT(Run("restore made/Work.quillpkg").err, HasSubstr("stayed as they were: 1"));
  EXPECT_EQ(nlohmann::json::parse(Run("package list --json").out).size(), 2u)
      << "a restored package is no notebook";
}

// One section, a blank one, and a cabinet whose files are only looked at.
TEST_F(Package, RestoresSectionsAndExtracts) {
  Write("S.one", std::string(64, 's'));
  EXPECT_EQ(Run("restore S.one").status, 0);
  EXPECT_EQ(File((m_cache / "Quill Restore Sections/S.one").string()), std::string(64, 's'));
  EXPECT_EQ(Run("restore --a4 --into made").out, "made/Quill Restore Sections/a4.one\n");
  std::system(("cd '" + m_folder.string() + "' && gcab -c cab.onepkg S.one").c_str());
  const Output extracted = Run("extract cab.onepkg new/folder");
  EXPECT_EQ(extracted.status, 0) << extracted.err;
  EXPECT_EQ(File("new/folder/S.one"), std::string(64, 's'));
  Write("short.one", "short");
  EXPECT_EQ(Run("restore short.one").status, 1);
  Write("junk.onepkg", "junk");
  const Output junk = Run("extract junk.onepkg junk");
  EXPECT_EQ(junk.status, 1);
  EXPECT_THAT(junk.err, StartsWith("quill: Nothing could be restored"));
}

// Wrong calls name what was wrong and change nothing.
TEST_F(Package, RefusesWrongCalls) {
  const std::pair<const char*, const char*> calls[] = {
      {"package make --to made Work Nope 'No pe'", "\"Nope\", \"No pe\""},
      {"package make --to missing", "missing"},
      {"package make Work", "--to"},
      {"restore", "--a4"},
      {"restore missing.quillpkg", "missing.quillpkg"},
      {"restore in", ".onepkg"},
      {"restore --a4 --into missing", "missing"},
      {"extract missing.onepkg made", "missing.onepkg"}};
  for (const auto& [words, named] : calls) {
    const Output output = Run(words);
    EXPECT_EQ(output.status, 2) << words;
    EXPECT_THAT(output.err, HasSubstr(named)) << words;
  }
  EXPECT_TRUE(fs::is_empty(m_folder / "made"));
  fs::remove_all(m_folder / "root" / "Library");
  for (const char* words : {"package list", "package make --to made", "restore --a4"}) {
    EXPECT_EQ(Run(words).status, 1) << words;
    EXPECT_EQ(File("err"), "quill: OneNote folder not found!!\n") << words;
  }
}

// Control+C while the archiver writes: no half package, nothing staged, and the archiver is gone, too.
TEST_F(Package, InterruptedLeavesNothing) {
  Section("Big", "A", "");
  std::system(
      ("head -c 30000000 /dev/urandom > '" + (m_folder / m_cache).string() + "/Big/A.one (x).one'").c_str());
  const std::string script = "cd '" + m_folder.string() + "'; QUILL_ROOT=root '" + m_program +
                             "' package make --to made Big 2>err & until ls made/zi* >/dev/null 2>&1 || "
                             "! kill -0 $!; do :; done; kill -INT $!; wait $!";
  const int status = std::system(script.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_EQ(File("err"), "quill: stopped; nothing was packed\n");
  EXPECT_TRUE(fs::is_empty(m_folder / "made"));
  EXPECT_TRUE(fs::is_empty(Temporary()));
}

}  // namespace
}  // namespace quill::cli
