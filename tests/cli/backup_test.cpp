#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "platform/web_server.h"
#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// A user of OneNote with one section, and no backups yet.
class BackupCalls : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    m_data = m_folder /
             "root/Library/Containers/com.microsoft.onenote.mac/Data/Library/Application Support/"
             "Microsoft User Data/OneNote";
    fs::create_directories(m_data / "15.0/c/Work");
    std::ofstream(m_data / "15.0/c/Work/Plan.one") << "plan";
  }
  nlohmann::json List() { return nlohmann::json::parse(Run("backup list --json").out)["backups"]; }

  fs::path m_data;
};

// The way of a user who fears for the notebooks: copy, look, lose, restore, clear up.
TEST_F(BackupCalls, MakeListRestoreClear) {
  EXPECT_EQ(Run("backup list").out, "");
  const Output made = Run("backup run");
  EXPECT_EQ(made.status, 0) << made.err;
  const nlohmann::json list = List();
  ASSERT_EQ(list.size(), 1u);
  const std::string name = list[0]["name"];
  EXPECT_THAT(made.out, HasSubstr(name));
  EXPECT_EQ(list[0]["isWhole"], true);
  EXPECT_EQ(list[0]["bytes"], 4);
  EXPECT_EQ(list[0]["sections"], 1);
  fs::remove_all(m_data);
  EXPECT_EQ(Run("backup restore " + name, "n\n").status, 1);
  EXPECT_EQ(Run("backup restore " + name).status, 1) << "nobody there to be asked";
  EXPECT_FALSE(fs::exists(m_data));
  EXPECT_EQ(Run("backup restore " + name, "y\n").status, 0);
  EXPECT_EQ(ReadFile(m_data / "15.0/c/Work/Plan.one").ValueOr(""), "plan");
  EXPECT_EQ(Run("backup run").status, 0) << "a second copy on the same day takes the first one's place";
  EXPECT_EQ(List().size(), 1u);
  EXPECT_EQ(Run("backup clear --yes").status, 0);
  EXPECT_THAT(List(), IsEmpty());
}

// Half a backup, one that is not there, and nothing to copy: each says so.
TEST_F(BackupCalls, SayWhatIsMissing) {
  const Output made = Run("backup run");
  const fs::path backup = made.out.substr(0, made.out.find('\n'));
  std::ofstream(backup.string() + ".incomplete") << "";
  const Output incomplete = Run("backup restore --yes " + backup.filename().string());
  EXPECT_EQ(incomplete.status, 1);
  EXPECT_THAT(incomplete.err, HasSubstr("incomplete"));
  const Output unknown = Run("backup restore --yes 20000101");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("20000101"));
  fs::remove_all(m_data);
  const Output nothing = Run("backup run");
  EXPECT_EQ(nothing.status, 1);
  EXPECT_THAT(nothing.err, HasSubstr("OneNote: there is no such folder"));
}

// The version comes from the one address that somebody has set; without one nobody is asked.
TEST_F(Quill, ChecksForUpdates) {
  ::unsetenv("QUILL_UPDATE_URL");
  const Output unset = Run("update check");
  EXPECT_EQ(unset.status, 1);
  EXPECT_THAT(unset.err, HasSubstr("no address is set"));
  test::WebServer server;
  std::string version = "99.1.2.3";
  server.pages.Get("/v", [&](const auto&, auto& response) { response.set_content(version, "text/plain"); });
  server.Start();
  ::setenv("QUILL_UPDATE_URL", (server.address() + "/v").c_str(), 1);
  const auto newer = nlohmann::json::parse(Run("update check --json").out);
  EXPECT_EQ(newer["newest"], "99.1.2.3");
  EXPECT_EQ(newer["isNewer"], true);
  EXPECT_EQ(nlohmann::json::parse(Run("update check --json").out)["isNewer"], true)
      << "who asks is told again";
  version = "0.0.0.1";
  EXPECT_THAT(Run("update check").out, HasSubstr("is the newest version"));
  version = "<html>not here</html>";
  EXPECT_THAT(Run("update check").err, HasSubstr("not a version"));
  ::setenv("QUILL_UPDATE_URL", "http://example.org/v", 1);
  EXPECT_THAT(Run("update check").err, HasSubstr("https"));
  ::unsetenv("QUILL_UPDATE_URL");
}

}  // namespace
}  // namespace quill::cli
