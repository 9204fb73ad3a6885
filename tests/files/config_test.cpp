#include "files/config.h"

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <random>

#include "base/atomic_file.h"
#include "files/property_list.h"
#include "shell/temporary_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;
using test::TemporaryFolder;

std::string Plist(std::string_view contents) {
  return "<plist version=\"1.0\"><dict>" + std::string(contents) + "</dict></plist>";
}

struct Conversion {
  const char* stored;
  bool asBool;
  std::int64_t asInt;
  const char* asString;
};

// Files are edited by hand and by other tools: every type must read as the platform's lists convert it.
TEST(MConfig, ConvertsWhatIsOfAnotherType) {
  const Conversion cases[] = {
      {"<true/>", true, 1, "default"},
      {"<false/>", false, 0, "default"},
      {"<integer>-5</integer>", true, -5, "default"},
      {"<integer>0</integer>", false, 0, "default"},
      {"<real>2.9</real>", true, 2, "default"},
      {"<real>1e300</real>", true, INT64_MAX, "default"},
      {"<string>YES</string>", true, 0, "YES"},
      {"<string>abc</string>", false, 0, "abc"},
      {"<string> -007x</string>", true, -7, " -007x"},
      {"<string>00</string>", false, 0, "00"},
      {"<string>-99999999999999999999</string>", true, INT64_MIN, "-99999999999999999999"},
      {"<string></string>", false, 0, ""},
      {"<data>QQ==</data>", true, 77, "default"},
      {"<array><true/></array>", true, 77, "default"},
  };
  const TemporaryFolder folder;
  for (const Conversion& c : cases) {
    const MConfig config(folder.Write("a.plist", Plist(std::string("<key>k</key>") + c.stored)));
    EXPECT_EQ(config.Problem(), "") << c.stored;
    EXPECT_EQ(config.ReadBool("k", true), c.asBool) << c.stored;
    EXPECT_EQ(config.ReadInt("k", 77), c.asInt) << c.stored;
    EXPECT_EQ(config.ReadString("k", "default"), c.asString) << c.stored;
  }
}

// A stored text that is no day must not turn into "yesterday": the owner treats it as no date at all.
TEST(MConfig, AnUnreadableDateIsNoDateAndAnAbsentOneTheDefault) {
  const TemporaryFolder folder;
  const StoredDate other = ParseStoredDate("20200101");
  MConfig config(folder.Write("a.plist", Plist("<key>dashes</key><string>2024-01-31</string>")));
  EXPECT_EQ(config.ReadDate("dashes", other), std::nullopt);
  EXPECT_EQ(config.ReadDate("absent", other), other);
  config.WriteDate("none", std::nullopt);
  EXPECT_EQ(config.ReadDate("none", other), std::nullopt);
}

// Tokens and formats hold any character; one that comes back changed signs the user out or breaks the file.
TEST(MConfig, TextsAndNumbersComeBackAsTheyWere) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "a.plist";
  const std::string texts[] = {"",         " a ",   "<&>\"']]>", "<!-- -->", "\xF0\x9F\x98\x80 \xC3\xA4",
                               "a\n\tb\n", "&#65;", "<![CDATA[x"};
  MConfig config(file);
  for (std::size_t i = 0; i < std::size(texts); ++i) config.WriteString("k<&>" + std::to_string(i), texts[i]);
  config.WriteString("illegal", std::string_view("a\x01\xFF\0b", 5));
  config.WriteInt("low", INT64_MIN);
  config.WriteInt("minus", -1);
  ASSERT_TRUE(config.Save().ok());
  const MConfig again(file);
  for (std::size_t i = 0; i < std::size(texts); ++i)
    EXPECT_EQ(again.ReadString("k<&>" + std::to_string(i), "lost"), texts[i]);
  EXPECT_EQ(again.ReadString("illegal", ""),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(again.ReadInt("low", 0), INT64_MIN);
  EXPECT_EQ(again.ReadInt("minus", 0), -1);
}

// Other versions and the dialogs keep values of their own in this file, lists and dictionaries among them.
TEST(MConfig, KeepsWhatItDoesNotKnowInABinaryFileToo) {
  const std::string xml = Plist(
      "<key>list</key><array><dict><key>n</key><integer>-3</integer></dict><data>AAEC</data></array>"
      "<key>real</key><real>0.5</real><key>day</key><date>2024-01-31T12:00:00Z</date>"
      "<key>Text2Table_Index</key><integer>2</integer>");
  plist_t tree = nullptr;
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &tree);
  char* bytes = nullptr;
  std::uint32_t length = 0;
  plist_to_bin(tree, &bytes, &length);
  plist_free(tree);
  const TemporaryFolder folder;
  const fs::path file = folder.Write("a.plist", std::string_view(bytes, length));
  plist_to_bin_free(bytes);
  MConfig config(file);
  config.WriteBool("mine", true);
  ASSERT_TRUE(config.Save().ok());
  const std::string saved = *ReadFile(file);
  EXPECT_EQ(saved.substr(0, 5), "<?xml");
  for (const char* part : {"<integer>-3</integer>", "AAEC", "<real>0.5</real>", "2024-01-31T12:00:00Z",
                           "<key>Text2Table_Index</key>", "<true/>"})
    EXPECT_NE(saved.find(part), std::string::npos) << part;
}

// The library reads 0.5 as 0 once the desktop's toolkit has set a German locale for the process.
TEST(MConfig, KeepsFractionsWhereTheDecimalSignIsAComma) {
  const TemporaryFolder folder;
  const fs::path file = folder.Write("a.plist", Plist("<key>real</key><real>0.5</real>"));
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    const std::string make = "localedef -i de_DE -f UTF-8 " + (folder.path() / "de_DE.UTF-8").string();
    ::setenv("LOCPATH", folder.path().c_str(), 1);
    if (std::system(make.c_str()) != 0 || std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr)
      GTEST_SKIP() << "no locale with a decimal comma, and none could be made";
  }
  const Status<> saved = MConfig(file).Save();
  std::setlocale(LC_ALL, "C");
  ::unsetenv("LOCPATH");
  ASSERT_TRUE(saved.ok());
  EXPECT_NE(ReadFile(file)->find("<real>0.5</real>"), std::string::npos);
}

// One flipped byte must not cost the user the sign-in: the file stays to be looked at, and only once saved.
TEST(MConfig, SetsADamagedFileAsideBeforeTheFirstSave) {
  const TemporaryFolder folder;
  const fs::path file = folder.Write("a.plist", Plist("<key>a</key><string>x</str"));
  const std::string damaged = *ReadFile(file);
  const fs::path copy = MConfig::DamagedCopy(file);
  folder.Write("a.plist.bad", "of an earlier day");
  MConfig config(file);
  EXPECT_EQ(config.Problem(), file.string() + ": is not a property list");
  EXPECT_EQ(*ReadFile(file), damaged);
  config.WriteInt("n", 1);
  ASSERT_TRUE(config.Save().ok());
  EXPECT_FALSE(config.Damaged());
  EXPECT_EQ(*ReadFile(copy), damaged);
  EXPECT_EQ(test::Mode(copy), 0600);
  ASSERT_TRUE(config.Save().ok());
  EXPECT_EQ(*ReadFile(copy), damaged);
  EXPECT_EQ(MConfig(file).ReadInt("n", 0), 1);
}

// An emptied file is a first start, not a reason to alarm the user.
TEST(MConfig, AMissingOrEmptyFileIsNotDamaged) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MConfig(folder.path() / "none.plist").Damaged());
  EXPECT_FALSE(MConfig(folder.Write("empty.plist", "")).Damaged());
  EXPECT_TRUE(MConfig(folder.path()).Damaged());
  EXPECT_TRUE(MConfig(folder.Write("list.plist", "<plist><array/></plist>")).Damaged());
}

/// A binary list of `levels` arrays, each of which names the next one `fan` times.
std::string NestedBinary(std::uint32_t levels, int fan) {
  const auto number = [](std::uint64_t value, int size) {
    std::string bytes;
    while (size-- > 0) bytes += static_cast<char>(value >> (8 * size));
    return bytes;
  };
  std::string file = "bplist00";
  std::string offsets;
  for (std::uint32_t i = 0; i < levels; ++i) {
    offsets += number(file.size(), 4);
    file += static_cast<char>(0xA0 | (i + 1 < levels ? fan : 0));
    for (int j = 0; i + 1 < levels && j < fan; ++j) file += number(i + 1, 4);
  }
  const std::size_t table = file.size();
  return file + offsets + std::string(6, '\0') + "\4\4" + number(levels, 8) + number(0, 8) + number(table, 8);
}

std::string Repeated(std::string_view text, int times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

// The library below recurses without a limit: each of these ends the process, or takes all memory, unguarded.
TEST(ParsePropertyList, RefusesWhatWouldOverflowOrUnfold) {
  const std::string deep = Repeated("<array>", 200000);
  const std::pair<std::string, const char*> cases[] = {
      {"<plist>" + deep + Repeated("</array>", 200000) + "</plist>",
       "is nested too deeply for a property list"},
      {"<plist>" + deep, "is nested too deeply for a property list"},
      {"<plist>" + Repeated("<array><!--</array>-->", 100000), "is nested too deeply for a property list"},
      {"<plist>" + Repeated("<array><key a=\"</array>\"/>", 100000), "is not a property list"},
      {"<!DOCTYPE plist [</array>]><plist/>", "is not a property list"},
      {Plist("<key>a</key><string>x\0y</string>"sv), "is not a property list"},
      {NestedBinary(200000, 1), "is nested too deeply for a property list"},
      {NestedBinary(40, 2), "unfolds into too many values"},
      {std::string("bplist00\xA1\0\x08\0\0\0\0\0\0\1\1\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x0A"sv),
       "is not a property list"},
      {std::string(kPropertyListLimit + 1, ' '), "is larger than 4194304 bytes"},
  };
  for (const auto& [bytes, reason] : cases) {
    const Result<PropertyList> list = ParsePropertyList(bytes);
    EXPECT_EQ(list.ok() ? "taken" : list.error(), reason) << bytes.substr(0, 60);
  }
  EXPECT_TRUE(
      ParsePropertyList(Plist("<key>a</key>" + Repeated("<array>", 60) + Repeated("</array>", 60))).ok());
}

// A process can die at any moment of a save; tokens are then the old or the new ones, never none.
TEST(MConfig, AKilledSaveLeavesTheOldOrTheNewFile) {
  const TemporaryFolder folder;
  const fs::path file = folder.path() / "quillapp.plist";
  const std::string contents[] = {std::string(20, 'a'), std::string(300000, 'b')};
  std::mt19937 random(20240131);
  for (int round = 0; round < 200; ++round) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (int i = 0;; ++i) {
        MConfig config(file);
        config.WriteString("v", contents[i % 2]);
        if (!config.Save().ok() || ::write(ready[1], "s", 1) != 1) ::_exit(1);
      }
    }
    ::close(ready[1]);
    char byte;
    for (unsigned saves = 1 + random() % 3; saves > 0; --saves) ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    const auto until = std::chrono::steady_clock::now() + std::chrono::microseconds(random() % 3000);
    while (std::chrono::steady_clock::now() < until) {
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ::close(ready[0]);
    const MConfig config(file);
    ASSERT_EQ(config.Problem(), "");
    ASSERT_EQ(std::count(std::begin(contents), std::end(contents), config.ReadString("v", "")), 1);
    ASSERT_EQ(test::Mode(file), 0600);
  }
  folder.Write("quillapp.plist.backup", "the user's own");
  const auto files = [&] {
    return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
  };
  const auto left = files();
  EXPECT_GT(left, 2) << "no kill fell into a write: the test proves nothing";
  RemoveTemporaryFiles(folder.path(), std::chrono::hours(1));
  EXPECT_EQ(files(), left) << "another process may be writing them at this moment";
  RemoveTemporaryFiles(folder.path(), std::chrono::seconds(0));
  EXPECT_EQ(files(), 2);
}

/// Lets no file grow beyond a size, as a full disk does.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size) : m_handler(::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit small = {size, m_before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &m_before);
    ::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_before = {};
  void (*m_handler)(int);
};

// A full disk or a lost folder is told, costs nothing that was saved, and leaves no litter.
TEST(MConfig, AFailedSaveKeepsTheFileAndSaysWhy) {
  const TemporaryFolder folder;
  for (const std::string& before : {Plist("<key>a</key><integer>1</integer>"), std::string("damaged")}) {
    const fs::path file = folder.Write("a.plist", before);
    MConfig config(file);
    config.WriteString("v", std::string(100000, 'x'));
    Status<> saved = Done();
    {
      const FullDisk disk(4096);
      saved = config.Save();
    }
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.error(), file.string() + ": File too large");
    EXPECT_EQ(*ReadFile(file), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
  }
  const fs::path below = folder.Write("file", "") / "a.plist";
  const Status<> saved = MConfig(below).Save();
  ASSERT_FALSE(saved.ok());
  EXPECT_EQ(saved.error(), below.string() + ": Not a directory");
}

}  // namespace
}  // namespace quill::files
