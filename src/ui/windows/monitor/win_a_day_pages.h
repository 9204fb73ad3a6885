#pragma once
#include <variant>
#include <vector>

#include "online/page_history.h"
#include "ui/kit/modal_window.h"

namespace quill::ui {

/// How many pages there were at the end of each of the last days, the latest first.
class MWinADayPages final : public AnswerWindow<std::monostate> {
  Q_OBJECT
 public:
  MWinADayPages(const shell::StringTable& strings, const std::vector<online::DayPages>& days,
                std::chrono::local_days today, Done done);

 private:
  Result<std::monostate, Problem> Read() override { return std::monostate{}; }
};

}  // namespace quill::ui
