#include "shell/url_handler.h"

#include "files/links/variable_link.h"
#include "shell/command_table.h"
#include "shell/link_actions.h"

namespace quill::shell {

bool IsVariableLink(std::string_view url) {
  return url.starts_with(files::kVariableScheme);
}

void ResponseClickOnVarLink(CommandContext& context, std::string_view url) {
  context.services.explain.Note(std::string("link ").append(url));
  context.services.log.Write(std::string("link ").append(url.substr(0, url.find_first_of("?#"))));
  OpenVariableLink(context.services, context.globals, url);
}

}  // namespace quill::shell
