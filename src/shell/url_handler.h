#pragma once
#include <string_view>

namespace quill::shell {

struct CommandContext;

/// True for a link that this program is asked to open by the system: "qvar://" in lower case.
bool IsVariableLink(std::string_view url);

/// Opens what a clicked link means on this machine, given its whole raw text. Command thread.
void ResponseClickOnVarLink(CommandContext& context, std::string_view url);

}  // namespace quill::shell
