#include "platform/posix/link_handler.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

// What the user has chosen counts before what was installed; other schemes with a longer or shorter name do
// not.
TEST(DesktopEntryForScheme, TakesTheUsersChoiceFirst) {
  std::string name = (fs::temp_directory_path() / "quill-mime-XXXXXX").string();
  const fs::path folder = ::mkdtemp(name.data());
  for (const char* part : {"config", "data/applications", "system/applications"})
    fs::create_directories(folder / part);
  ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
  ::setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
  ::setenv("XDG_DATA_DIRS", ("/no/such/folder:" + (folder / "system").string()).c_str(), 1);
  EXPECT_EQ(DesktopEntryForScheme("qvar"), "");
  std::ofstream(folder / "system/applications/mimeinfo.cache")
      << "[MIME "
         "Cache]\nx-scheme-handler/qvars=a.desktop;\nx-scheme-handler/qvar=installed.desktop;b.desktop;\n";
  EXPECT_EQ(DesktopEntryForScheme("qvar"), "installed.desktop");
  std::ofstream(folder / "config/mimeapps.list")
      << "[Default Applications]\nx-scheme-handler/qvar=chosen.desktop\n";
  EXPECT_EQ(DesktopEntryForScheme("qvar"), "chosen.desktop");
  for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS"}) ::unsetenv(variable);
  fs::remove_all(folder);
}

}  // namespace
}  // namespace quill::platform
