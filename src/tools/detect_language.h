#pragma once
#include <optional>
#include <string_view>

namespace quill::tools {

/// The language that a piece of code is most likely in, as the language box names it; nothing when unsure,
/// and for languages that the highlighter cannot be given.
///
/// What settles the matter is looked for first: the interpreter in the first line ("#!"), then the opening of
/// a template or page ("<?php", "<%@ page"). Otherwise each language collects points for words that are
/// typical of it, once for each, and the first wins when it has enough and a clear lead. Only the first 32 KB
/// count. A suggestion, to be shown and not to be acted upon.
std::optional<std::string_view> DetectLanguage(std::string_view code);

}  // namespace quill::tools
