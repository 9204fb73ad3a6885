#pragma once
#include <string>

#include "platform/user_interface.h"
#include "ui/kit/modal_window.h"

class QLineEdit;

namespace quill::ui {

/// Asks for one line of text: a label, and a field with the proposed text selected. Any text is an answer,
/// the empty one, too.
class MWinInput final : public AnswerWindow<std::string> {
 public:
  MWinInput(const shell::StringTable& strings, const platform::TextQuestion& question, Done done);

 private:
  Result<std::string, Problem> Read() override;

  QLineEdit* m_field;
};

}  // namespace quill::ui
