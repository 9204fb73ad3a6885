#pragma once
#include <memory>
#include <mutex>
#include <string>

#include "platform/http.h"
#include "platform/process_runner.h"
#include "tools/phonetics_dictionaries.h"

namespace quill::shell {

/// The ways out to other programs and services. Shared, because a search that a window has given up ends on a
/// thread of its own a little later. Null where there is none: nothing is found then.
struct Engines {
  std::shared_ptr<platform::ProcessRunner> processes;
  std::shared_ptr<platform::Http> http;
  std::shared_ptr<std::timed_mutex> highlighting =
      std::make_shared<std::timed_mutex>();  ///< held by a run of the highlighter
  tools::DictionaryHosts dictionaries;       ///< what somebody has named; none from the start
  std::string preferredLanguage;             ///< the first of the system's, such as "zh-Hans-CN"
};

}  // namespace quill::shell
