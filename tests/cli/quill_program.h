#pragma once
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/atomic_file.h"

namespace quill::cli {

namespace fs = std::filesystem;

struct Output {
  int status;
  std::string out;
  std::string err;
};

/// Runs the program itself; all that it may write to is below a folder that goes with the test.
class Quill : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* dictionary : {"CHINESE_ENGLISH", "FRENCH_FOR_CHINESE", "CHINESE_CHARACTERS", "ENGLISH",
                                   "FRENCH", "GERMAN", "JAPANESE"}) {
      ::unsetenv(("QUILL_DICTIONARY_" + std::string(dictionary) + "_URL").c_str());
    }
    std::string name = (fs::temp_directory_path() / "quill-cli-XXXXXX").string();
    m_folder = ::mkdtemp(name.data());
    fs::create_directories(m_folder / "run");
    fs::create_directories(m_folder / "tmp");
    fs::permissions(m_folder / "run", fs::perms::owner_all);
  }
  void TearDown() override { fs::remove_all(m_folder); }

  /// Runs the program with shell words, this input, a root and folders of the test's own.
  Output Run(const std::string& words, const std::string& input = "") {
    std::ofstream(m_folder / "in", std::ios::binary) << input;
    const std::string folder = m_folder.string();
    const std::string command = "cd '" + folder + "' && XDG_RUNTIME_DIR='" + folder + "/run' TMPDIR='" +
                                folder + "/tmp' QUILL_ROOT='" + folder + "/root' TZ=UTC LC_ALL=C.UTF-8 '" +
                                m_program + "' " + words + " <in >out 2>err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, File("out"), File("err")};
  }

  std::string File(const std::string& name) { return ReadFile(m_folder / name).ValueOr("missing"); }
  void Write(const std::string& name, const std::string& bytes) {
    std::ofstream(m_folder / name, std::ios::binary) << bytes;
  }

  fs::path m_folder;
  std::string m_program = QUILL_PROGRAM;
};

}  // namespace quill::cli
