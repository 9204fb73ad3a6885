#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "content/html_normalizer.h"
#include "content/working_document.h"

namespace quill::cli {
namespace {

void Normalize(bool unchecked) {
  const std::string fragment = ReadInputText("-");
  const std::string xml = content::HtmlToXml(fragment);
  if (!unchecked) {
    const Result<content::WorkingDocument> document = content::WorkingDocument::Parse(xml);
    if (!document.ok()) throw Stop(kWorkFailed, fmt::format("Xml error! {}", document.error()));
  }
  WriteOutput("", xml);
}

void Denormalize() {
  const std::string xml = ReadInputText("-");
  if (xml.find("<quillText") == std::string::npos) {
    throw Stop(kWrongCall, "standard input: has no quillText element; give what `quill normalize` prints");
  }
  WriteOutput("", content::XmlToHtml(xml));
}

}  // namespace

void AddCodec(CLI::App& app, Call&) {
  auto unchecked = std::make_shared<bool>(false);
  CLI::App* normalize = app.add_subcommand("normalize", "HTML fragment on standard input, XML document out");
  normalize->add_flag("--unchecked", *unchecked, "Print the text also when it is not well-formed");
  normalize->callback([unchecked] { Normalize(*unchecked); });
  app.add_subcommand("denormalize", "XML document on standard input, HTML fragment out")
      ->callback(Denormalize);
}

}  // namespace quill::cli
