#pragma once
#include "shell/content_requests.h"
#include "ui/kit/modal_window.h"

namespace quill::ui {

class PatternBox;

/// Asks for the patterns of inserted dates and times. What is wrong with a pattern is told while it is typed;
/// only an empty one is refused.
class MWinDateTimeFormat final : public AnswerWindow<shell::DateTimeFormats> {
  Q_OBJECT
 public:
  MWinDateTimeFormat(const shell::StringTable& strings, const shell::DateTimeFormatRequest& request,
                     Done done);

 private:
  Result<shell::DateTimeFormats, Problem> Read() override;

  PatternBox* m_date;
  PatternBox* m_time;
};

}  // namespace quill::ui
