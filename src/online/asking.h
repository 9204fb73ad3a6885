#pragma once
#include <memory>

#include "online/online_host.h"

namespace quill::online {

/// Shows that the service is being asked for as long as it lives.
class Asking {
 public:
  Asking(std::unique_ptr<platform::Progress>& progress, OnlineHost& host) : m_progress(progress) {
    m_progress = host.BeginProgress();
  }
  ~Asking() { m_progress.reset(); }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;

 private:
  std::unique_ptr<platform::Progress>& m_progress;
};

}  // namespace quill::online
