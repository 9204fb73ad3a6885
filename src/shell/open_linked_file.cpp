#include "shell/open_linked_file.h"

#include <fmt/format.h>

#include "content/unicode_text.h"
#include "files/links/risky_file.h"

namespace quill::shell {
namespace {

/// Characters that are not seen, or turn the ones around them round: with them a name could look like
/// another.
bool IsInvisible(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0xAD || (code >= 0x200B && code <= 0x200F) ||
         (code >= 0x2028 && code <= 0x202E) || (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF;
}

/// A path as it can be read in a question.
std::string Readable(std::string_view path) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string text;
  while (!path.empty()) {
    const content::DecodedChar next = content::DecodeUtf8(path, 0);
    content::AppendUtf8(text, next.length == 0 || IsInvisible(next.code) ? kReplacement : next.code);
    path.remove_prefix(next.length == 0 ? 1 : next.length);
  }
  return text;
}

}  // namespace

void OpenLinkedFile(Services& services, const std::filesystem::path& file) {
  if (files::IsRiskyFile(file)) {
    services.explain.Note("the file is a program or script: asking first");
    if (!services.ui.AskYesNo(services.strings.Format("askOpenProgram", {Readable(file.string())}))) return;
  }
  const Status<> opened = services.workspace.OpenFile(file);
  services.explain.Note(fmt::format("open file: {}", opened.ok() ? "done" : opened.error()));
  if (!opened.ok()) services.ui.ShowMessage(services.strings.Format("errOpen", {opened.error()}));
}

}  // namespace quill::shell
