#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/remote.h"
#include "shell/page_title_tag.h"

namespace quill::cli {
namespace {

struct TitleOptions {
  std::string tag;
  std::optional<std::string> in;
};

/// The index of a tag given by its number or by its sign.
std::int64_t TagIndex(const std::string& text) {
  std::int64_t number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size() && shell::IsPageTitleTag(number))
    return number;
  for (std::size_t i = 1; i < shell::kPageTitleTags.size(); ++i) {
    if (text == shell::kPageTitleTags[i]) return static_cast<std::int64_t>(i);
  }
  throw Stop(kWrongCall, fmt::format("there is no tag \"{}\"; give a number from 0 to 15 or one of the signs",
                                     text.substr(0, 40)));
}

/// The first line of the input: a title has no second one.
std::string FirstLine(std::string text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end != std::string::npos) text.resize(end);
  return text;
}

}  // namespace

void AddTitle(CLI::App& app, Call& call) {
  auto options = std::make_shared<TitleOptions>();
  CLI::App* title = app.add_subcommand("title", "Put a tag in front of a page title");
  title->add_option("tag", options->tag, "Number of the tag, 0 (none) to 15, or its sign")
      ->required()
      ->type_name("TAG");
  title
      ->add_option("--in", options->in, "File with the title; - is standard input. Without it: the live page")
      ->type_name("FILE");
  title->callback([&call, options] {
    const std::int64_t index = TagIndex(options->tag);
    if (!options->in) {
      call.status = RunInApplication(call, "MenuItemPageTitleTagClick", index);
      return;
    }
    WriteOutput("", shell::ExchangePageTitleTag(FirstLine(ReadInputText(*options->in)), index) + "\n");
  });
}

}  // namespace quill::cli
