#include "cli/remote.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "cli/console.h"
#include "platform/posix/local_channel.h"

namespace quill::cli {
namespace {

// A command may wait for its user (a save panel), so the answer may take long.
constexpr std::chrono::minutes kLongestCommand(30);

}  // namespace

int RunInApplication(const Call& call, const std::string& action, std::optional<std::int64_t> argument) {
  const Result<std::filesystem::path> path = platform::LocalChannelPath(call.root);
  if (!path.ok()) throw Stop(kWorkFailed, path.error());
  nlohmann::json request = {{"trigger", action}, {"explain", call.explain || call.stats}};
  if (argument) request["argument"] = *argument;
  const Result<std::string> line = platform::AskLocalChannel(*path, request.dump(), kLongestCommand);
  if (!line.ok()) {
    throw Stop(kWorkFailed,
               fmt::format("Quill Menu is not running ({}). Start quillmenu, or give the input with --in.",
                           line.error()));
  }
  const nlohmann::json answer = nlohmann::json::parse(*line, nullptr, false);
  if (!answer.is_object())
    throw Stop(kWorkFailed, "the running application gave an answer that is no JSON object");
  if (answer.contains("error")) throw Stop(kWorkFailed, answer.value("error", ""));
  for (const auto& step : answer.value("steps", nlohmann::json::array())) {
    fmt::print(stderr, "{}\n", step.get<std::string>());
  }
  const auto messages = answer.value("messages", std::vector<std::string>());
  for (const std::string& message : messages) PrintError(message);
  return answer.value("ok", false) && messages.empty() ? kDone : kWorkFailed;
}

}  // namespace quill::cli
