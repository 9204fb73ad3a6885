#pragma once
#include <string>
#include <string_view>

/// The rules of coloured code read word by word: one replacement after the other over the whole text. The
/// fast code must not differ from them on any input.
namespace quill::oracle {

std::string CodeFileText(std::string_view code);
std::string ReduceEntities(std::string html);
std::string ConvertToFit1651(const std::string& html);

/// What a reader of the coloured page sees within its "<pre>": tags go, a line break counts once, the
/// references that the highlighter writes are the characters they stand for.
std::string VisibleCode(const std::string& html);

/// How many different colours the pieces of code have.
std::size_t CodeColors(const std::string& html);

}  // namespace quill::oracle
