#pragma once
#include <string>
#include <string_view>

#include "tools/equation.h"

namespace quill::tools {

/// Where MathJax lies below the address that serves it, as the public networks lay it out.
inline constexpr std::string_view kMathJax2Path = "/npm/mathjax@2.7.1/unpacked/";
inline constexpr std::string_view kMathJax3Path = "/npm/mathjax@3/";

/// How many pixels of an equation's PNG make one CSS pixel: sharp in print and on dense screens.
inline constexpr int kPictureScale = 2;

/// The page that typesets a formula (with its delimiters; may be empty) with MathJax from `base`, an address
/// without a slash at its end.
///
/// Native: MathJax 2; `GetLaTeX()` in the page returns the MathML. Picture: MathJax 3; `get_svgpng()` draws
/// the equation and calls `external.JsCall('Save')` when `g_QuillPngResult` holds the PNG as a data URL, or
/// "" when there is none; `g_QuillPngWidth` and `g_QuillPngHeight` are its size in CSS pixels. The formula is
/// text: "<" and "&" in it are characters, not markup.
std::string LatexHtmlFromStr(std::string_view formula, EquationForm form, std::string_view base);

/// Whether a formula may change how MathJax reads the formulas after it on the same page (it defines macros
/// or colours, loads packages). Errs on the side of yes. O(formula).
bool ChangesLaterFormulas(std::string_view formula);

}  // namespace quill::tools
