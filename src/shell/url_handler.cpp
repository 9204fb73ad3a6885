#include "shell/url_handler.h"

#include "shell/command_table.h"
#include "shell/not_built_yet.h"

namespace quill::shell {

bool IsVariableLink(std::string_view url) {
  return url.starts_with("qvar://");
}

void ResponseClickOnVarLink(CommandContext& context, std::string_view url) {
  context.services.explain.Note(std::string("link ").append(url));
  context.services.log.Write(std::string("link ").append(url.substr(0, url.find_first_of("?#"))));
  SayNotBuiltYet(context.services);
}

}  // namespace quill::shell
