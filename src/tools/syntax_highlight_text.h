#pragma once
#include <string>
#include <string_view>

namespace quill::tools {

/// The code as it is written for the highlighter: each line break of any kind separates and becomes "\n", an
/// empty line becomes one blank (CR LF therefore makes a line with a blank). O(code).
std::string CodeFileText(std::string_view code);

/// "&nbsp;" as a blank and "&apos;", "&quot;", "&amp;" as the characters; "&lt;" and "&gt;" stay. The result
/// is not decoded again. O(html).
std::string ReduceEntities(std::string_view html);

/// Tells the truth about the encoding: the highlighter's head says ISO-8859-1 whatever went in, and what goes
/// in here is UTF-8. Nothing but the head is looked at. O(html).
std::string ClaimUtf8(std::string html);

/// Makes blanks and line breaks survive in a page: between the first "<body" and the "</body" after it two
/// blanks become "&nbsp;&nbsp;", each line feed "<br>\n", and a blank after ">" a "&nbsp;". A document
/// without these markers comes out with an empty body. O(html).
std::string ConvertToFit1651(std::string_view html);

/// How the code is set into the page.
struct CodeFrame {
  bool isFramed = false;
  bool isBold = false;
  std::string color = "#FFFFFF";  ///< background of the frame, written as it stands
};

/// Puts every "<pre" … "</pre>" into a table of one cell, or in bold, or both. O(html).
std::string FrameCode(std::string_view html, const CodeFrame& frame);

}  // namespace quill::tools
