#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "shell/globals.h"
#include "shell/selection_bridge.h"
#include "shell/services.h"

namespace quill::shell {

struct TransformContext;
struct TransformRow;

/// The desktop bridge: runs numbered commands on what is selected in the other application. One object
/// serves one command, on the command thread; the operations' result is 0 = done.
class NSOneNoteMain {
 public:
  NSOneNoteMain(Services& services, Globals& globals);

  /// Copies the selection, hands it to the transform of this number (`transform_table.h`) and pastes the
  /// result over the selection when the transform says so. A number without a transform changes nothing.
  std::int64_t Run(std::int64_t command);

  /// Commands 20 to 23: content made from the arguments, pasted at the caret. Others do nothing.
  std::int64_t RunInsert(std::int64_t command, std::int64_t int1, std::int64_t int2, std::string_view str3);

  /// Pastes a complete pasteboard document at the caret.
  std::int64_t RunInsertHtml(std::string_view html);

  /// Command 24, copy as plain text: leaves the selection's text, no-break spaces made ordinary, on the
  /// clipboard. Others do nothing.
  std::int64_t RunOther(std::int64_t command, std::int64_t int1, std::int64_t int2);

  /// Command 25: puts tag `int1` (0 to 15; 0 takes a tag away) in front of the page's title.
  std::int64_t RunTitle(std::int64_t command, std::int64_t int1, std::int64_t int2);

  /// Puts the caret into the title, copies it and returns it with the tag exchanged. Empty, message
  /// shown, when there is no title; empty for an index outside the table.
  std::string InsertPageTitleTag(std::int64_t tagIndex);

  /// Copies the selection, takes its tags away, and pastes the text into the page title at the caret.
  void SetToPageTitle();

  /// Inserts the calendar of the month that lies this many months after the present one.
  void InsertCalendarOfMonth(int monthsFromNow);

  /// Makes a page (Command+N) and inserts the title that the journal pattern gives.
  void NewPage();

  /// Opens what a client link means: a notebook, a page, or a paragraph of one. False when there is no link,
  /// or, message shown, when nobody could be made to open it.
  bool OpenLocation(std::string_view link);

  /// Pastes a PNG file at the caret.
  bool PastePng(const std::filesystem::path& file);

  /// What the operation itself returned, also for commands that never paste; nothing when none ran.
  std::optional<std::int64_t> OperationResult() const { return m_operationResult; }

 private:
  std::int64_t Run_(std::int64_t command);
  /// Parses, runs the transform and leaves the changed fragment in the context. False, message shown, when
  /// the text is not well-formed.
  bool RunOnDocument(const TransformRow& row, TransformContext& context, std::string xml);
  bool IsPastedBack(const TransformRow& row) const;
  std::int64_t RunInsert_(std::int64_t command, std::int64_t int1, std::int64_t int2, std::string_view str3);
  std::optional<std::string> InsertedContent(std::int64_t command, std::int64_t int1, std::int64_t int2,
                                             std::string_view str3);

  Services& m_services;
  Globals& m_globals;
  SelectionBridge m_bridge;
  std::optional<std::int64_t> m_operationResult;
};

}  // namespace quill::shell
