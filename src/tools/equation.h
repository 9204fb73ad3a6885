#pragma once
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::tools {

/// How an equation goes into the page: as MathML that stays editable there, or as a picture.
enum class EquationForm { Native, Picture };

/// The formula between the first pair of delimiters in a text, without them.
///
/// Looked for in this order, each only when what came before yields nothing: "$$" and "$$", "\[" and "\]",
/// "\{" and "\}", "$" and "$". Text without delimiters yields nothing. O(text).
std::string_view GetPlainLaTeX(std::string_view text);

/// A plain formula as the pages take it: every formula is display math.
std::string DisplayFormula(std::string_view plain);

/// MathML as MathJax writes it, in the form that OneNote reads from HTML: without line breaks, tags and
/// namespace with the prefix "mml", in a conditional comment.
///
/// Only tags whose names begin with "m" keep their opening bracket; every other "<" is dropped. One pass,
/// O(mathMl).
std::string ConvertMathMLToONMathML(std::string_view mathMl);

/// The size at which a picture is shown, in CSS pixels; a width of 0 leaves it to the reader.
struct ShownSize {
  int width = 0;
  int height = 0;
};

/// The HTML of an equation's picture. Fails with no words when `dataUrl` is anything but a PNG in base64: it
/// comes from a page and lands between quotes.
Result<std::string, std::monostate> PictureHtml(std::string_view dataUrl, ShownSize size = {});

}  // namespace quill::tools
