#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "content/working_document.h"

namespace quill::tools {

/// The presentation program that has to be installed.
inline constexpr std::string_view kPowerPointApplication = "/Applications/Microsoft PowerPoint.app";

/// Brings PowerPoint to the front and runs the macro that reads the copied selection.
inline constexpr std::string_view kPowerPointScript =
    "delay 0.5\n"
    "tell application \"Microsoft PowerPoint\"\n"
    "reopen\n"
    "activate\n"
    "run VB macro macro name \"MacroName\"\n"
    "end tell\n";

/// What is to be done with a selection.
enum class SlidesStep {
  SayNoHeading,  ///< no first-level heading in the text
  Nothing,       ///< "<h1" occurs, but no element has that name
  RunScript      ///< `kPowerPointScript`, with the selection still on the clipboard
};

/// A first-level heading and what stands below it.
struct SlideHeading {
  std::string text;
  std::int64_t blocks = 0;
};

/// Hands a selection to PowerPoint, and builds macro text slide by slide.
class MConvert2Ppt {
 public:
  /// Looks at a whole document, in tables too, and starts counting slides again. O(document).
  SlidesStep Run(const content::WorkingDocument& document);

  /// Begins the next slide for the first `h1` among the element's children: counts it and appends its line
  /// to the script. Nothing when there is none.
  std::optional<SlideHeading> Run_Heading1(pugi::xml_node element);

  /// How many blocks follow a heading up to the next `h1`. Each sibling other than `p` is one; so are all
  /// paragraphs with a text or a picture up to an empty one, or to the end. White space between the
  /// siblings and comments do not count. O(siblings).
  static std::int64_t CountBlocks(pugi::xml_node heading);

  /// True for elements named exactly "h1".
  static bool IsHeading1(pugi::xml_node node);
  static bool IsEmptyParagraph(std::string_view text) { return text.empty(); }

  /// The text of a piece of HTML on one line: no tags, common references decoded, no line feeds, no
  /// runs of four blanks.
  static std::string GetPlainTextForPPT(std::string_view html);

  /// Adds a line to the script; the second form puts the number in place of the first "%d".
  void AppendScript(std::string_view line);
  void AppendScriptF(std::string_view format, std::int64_t value);

  /// The lines so far, joined by line feeds.
  const std::string& script() const { return m_PPTScript; }

 private:
  std::string m_PPTScript;
  std::int64_t m_SlideIndex = 1;
};

}  // namespace quill::tools
