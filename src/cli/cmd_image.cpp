#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/console.h"
#include "shell/skipped_pictures.h"
#include "tools/image_table.h"
#include "tools/image_text.h"
#include "tools/picture_list.h"

namespace quill::cli {
namespace {

struct TableOptions {
  std::vector<std::string> paths;
  bool horizontal = false;
  bool names = false;
  std::string out;
};

int PrintImageTable(const Call& call, const TableOptions& options) {
  tools::PictureList list = tools::ExpandPictures(options.paths);
  const tools::ImageTableStyle style{
      options.horizontal ? tools::ImageLayout::Horizontal : tools::ImageLayout::Vertical,
      options.names ? tools::ImageNames::Shown : tools::ImageNames::Hidden};
  const tools::ImageTableBuild table = tools::BuildImageTable(list.paths, style);
  list.skipped.insert(list.skipped.end(), table.skipped.begin(), table.skipped.end());
  if (!table.html.empty()) WriteOutput(options.out, table.html);
  for (const tools::SkippedPath& skipped : list.skipped)
    PrintError(shell::SkippedText(call.strings, skipped));
  if (table.html.empty() && list.skipped.empty()) PrintError("no pictures found");
  return table.html.empty() || !list.skipped.empty() ? kWorkFailed : kDone;
}

struct TextOptions {
  std::vector<std::string> steps;
  std::string in = "-";
  bool html = false;
};

int PrintImageText(const TextOptions& options) {
  std::string text = ReadInputText(options.in);
  if (options.html) text = tools::ImageAltText(text);
  for (const std::string& step : options.steps) {
    if (step == "clean") {
      text = tools::ClearExtraSpaces(text);
    } else if (step == "paragraphs") {
      text = tools::MergeAsParagraph(text);
    } else {
      throw Stop(kWrongCall,
                 fmt::format("there is no step \"{}\"; there are clean and paragraphs", step.substr(0, 80)));
    }
  }
  WriteOutput("", text);
  return kDone;
}

}  // namespace

void AddImage(CLI::App& app, Call& call) {
  auto table = std::make_shared<TableOptions>();
  CLI::App* imageTable = app.add_subcommand("image-table", "Print a page with the pictures as a table");
  imageTable->add_option("paths", table->paths, "Picture files, and folders of them")
      ->required()
      ->type_name("FILE");
  imageTable->add_flag("--horizontal", table->horizontal, "All pictures in one row instead of a row each");
  imageTable->add_flag("--names", table->names, "With the names of the files");
  imageTable->add_option("--out", table->out, "Where the result goes instead of standard output")
      ->type_name("FILE");
  imageTable->callback([&call, table] { call.status = PrintImageTable(call, *table); });

  auto text = std::make_shared<TextOptions>();
  CLI::App* imageText = app.add_subcommand("image-text", "Tidy a text that was recognised in a picture");
  imageText
      ->add_option("steps", text->steps, "clean (extra blanks), paragraphs (broken lines), in this order")
      ->type_name("clean|paragraphs");
  imageText->add_option("--in", text->in, "The text; - is standard input")->type_name("FILE");
  imageText->add_flag("--html", text->html, "The input is a copied page: take the text of its first picture");
  imageText->callback([&call, text] { call.status = PrintImageText(*text); });
}

}  // namespace quill::cli
