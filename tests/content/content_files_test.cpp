#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/atomic_file.h"
#include "content/data_uri.h"
#include "content/log_file.h"

namespace quill::content {
namespace {

namespace fs = std::filesystem;

/// Each test in a folder of its own, removed afterwards.
class ContentFiles : public testing::Test {
 protected:
  ContentFiles() {
    std::string name = (fs::temp_directory_path() / "quill-content-XXXXXX").string();
    m_folder = ::mkdtemp(name.data());
  }
  ~ContentFiles() override { fs::remove_all(m_folder); }

  std::string Text(const fs::path& file) const { return ReadFile(file).ValueOr("unreadable"); }
  void Write(const fs::path& file, const std::string& text) const {
    std::ofstream(file, std::ios::binary) << text;
  }

  fs::path m_folder;
};

// Type and name come from a pasted page: neither may choose another folder.
TEST_F(ContentFiles, DataUrisAreSavedUnderTheirNameOnly) {
  const fs::path saved = SaveDataUri("data:image/png;base64,aGk=", m_folder.string(), "a");
  EXPECT_EQ(saved, m_folder / "a.png");
  EXPECT_EQ(Text(saved), "hi");
  EXPECT_EQ(SaveDataUri("data:image/svg+xml;base64,aGk=", m_folder.string(), "b.svg"), m_folder / "b.svg");

  const std::pair<const char*, const char*> refused[] = {
      {"data:image/png,aGk=", "x"},         {"data:image/png;aGk=", "x"},
      {"data:image/png;base64,", "x"},      {"data:image/png;base64,aG*k=", "x"},
      {"data:image/png;base64,aG k=", "x"}, {"data:image/../../x;base64,aGk=", "x"},
      {"data:image/;base64,aGk=", "x"},     {"data:image/..;base64,aGk=", "x"},
      {"data:image/png;base64,aGk=", ".."}, {"data:image/png;base64,aGk=", "../x"},
      {"data:image/png;base64,aGk=", ""}};
  for (const auto& [uri, name] : refused)
    EXPECT_EQ(SaveDataUri(uri, m_folder.string(), name), "") << uri << name;
  EXPECT_EQ(SaveDataUri("data:image/png;base64,aGk=", (m_folder / "missing").string(), "x"), "");
  EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 2);
}

// The history of a monitor that runs for years stays small, and begins without an empty line.
TEST_F(ContentFiles, LogsKeepTheirLastThousandLines) {
  const fs::path log = m_folder / "log.txt";
  ASSERT_TRUE(AppendLogLine(log, "line 0").ok());
  EXPECT_EQ(Text(log), "line 0");
  for (int i = 1; i < 1005; ++i) ASSERT_TRUE(AppendLogLine(log, "line " + std::to_string(i)).ok());
  const std::string text = Text(log);
  EXPECT_EQ(text.substr(0, 7), "line 4\n");
  EXPECT_TRUE(text.ends_with("\nline 1004"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1000);
}

// A log damaged by something else is somebody's evidence, not ours to overwrite.
TEST_F(ContentFiles, DamagedLogsAreMovedAside) {
  const fs::path log = m_folder / "log.txt";
  Write(log, "old \xFF");
  ASSERT_TRUE(AppendLogLine(log, "new").ok());
  EXPECT_EQ(Text(log), "new");
  EXPECT_EQ(Text(m_folder / "log.txt.bad"), "old \xFF");
  EXPECT_FALSE(AppendLogLine(m_folder / "missing" / "log.txt", "x").ok());
  Write(log, "");
  ASSERT_TRUE(AppendLogLine(log, "a").ok());
  EXPECT_EQ(Text(log), "\na");
}

}  // namespace
}  // namespace quill::content
