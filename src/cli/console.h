#pragma once
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quill::cli {

/// Exit statuses of `quill`.
inline constexpr int kDone = 0;
inline constexpr int kWorkFailed = 1;
inline constexpr int kWrongCall = 2;

/// Ends a command with a message on standard error and an exit status. Thrown inside this room only and
/// caught in `main`.
struct Stop : std::runtime_error {
  Stop(int exitStatus, const std::string& message) : std::runtime_error(message), status(exitStatus) {}
  int status;
};

/// Largest input that a command takes, in bytes.
inline constexpr std::uintmax_t kLargestInput = 64u << 20;

/// The bytes of a file, or of standard input for "-". Stops with `kWrongCall` and the file's name when it is
/// missing, unreadable, too large, not UTF-8 or holds a NUL byte.
std::string ReadInputText(const std::string& file);

/// Writes to a file, or to standard output for "" and "-". Stops with `kWorkFailed` when that fails.
void WriteOutput(const std::string& file, std::string_view bytes);

/// One line on standard error, after the program's name.
void PrintError(std::string_view message);

}  // namespace quill::cli
