#pragma once
#include <unistd.h>

#include <utility>

namespace quill::platform {

/// Owns an open file of the system.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int fd) : m_fd(fd) {}
  FileHandle(FileHandle&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(m_fd, other.m_fd);
    return *this;
  }
  ~FileHandle() { Close(); }

  int get() const { return m_fd; }
  bool isOpen() const { return m_fd >= 0; }
  void Close() {
    if (m_fd >= 0) ::close(m_fd);
    m_fd = -1;
  }

 private:
  int m_fd = -1;
};

}  // namespace quill::platform
