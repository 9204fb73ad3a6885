#pragma once
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/result.h"
#include "shell/string_table.h"
#include "ui/kit/once.h"
#include "ui/kit/problem_line.h"

class QPushButton;
class QVBoxLayout;

namespace quill::ui {

/// The frame of every modal window: a title, the content, a row of buttons. Derive from `AnswerWindow`.
///
/// It blocks the program's other windows without an event loop of its own, opens in the middle of the screen
/// with the pointer, deletes itself when it is closed, and is operated by the keyboard alone: Tab goes
/// through the content in the order of its creation and then through the buttons, Return presses the default
/// button, Control+Return (Command+Return) does so from a field of many lines, too, Escape cancels. GUI
/// thread.
class ModalWindow : public QDialog {
 public:
  ModalWindow(const ModalWindow&) = delete;

  /// The OK button: reads the answer, and either closes or tells the problem.
  void accept() final;
  void done(int result) final;

 protected:
  /// `titleKey` is a key of the string table; a text from elsewhere goes to `setWindowTitle` afterwards.
  ModalWindow(const shell::StringTable& strings, std::string_view titleKey);

  /// A text of the string table, and one with its {0}, {1}, … replaced.
  QString Text(std::string_view key) const;
  QString Format(std::string_view key, const std::vector<std::string>& arguments) const;

  /// A refusal for `Read`: tells the text of `problemKey` under this field.
  Failure<Problem> Refuse(QWidget* field, std::string_view problemKey,
                          const std::vector<std::string>& arguments = {}) const;

  /// Where the window's own controls go, from top to bottom.
  QVBoxLayout& content() { return *m_content; }

  /// OK, Cancel and what `AddButton` added. Where they stand is the platform's custom.
  QDialogButtonBox& buttons() { return *m_buttons; }
  QPushButton& okButton();

  /// Gives OK a text that says what it does ("Insert").
  void SetOkText(std::string_view key);

  /// Leaves one standard button, Close, in place of OK and Cancel, for a window that only shows something. It
  /// rejects the window, as Escape does.
  void OnlyClose();

  /// One more button in the row. Connect its `clicked`; it closes nothing by itself.
  QPushButton& AddButton(std::string_view key,
                         QDialogButtonBox::ButtonRole role = QDialogButtonBox::ActionRole);

  /// Tells a problem at any time, as a refused OK does.
  void ShowProblem(const Problem& problem);
  void ClearProblem();

  void showEvent(QShowEvent* event) override;

 private:
  virtual bool TakeAnswer() = 0;
  virtual void Deliver() = 0;
  void PutButtonsLastInTabOrder();
  void FocusFirstField();

  const shell::StringTable& m_strings;
  QVBoxLayout* m_content;
  QDialogButtonBox* m_buttons;
  QPointer<ProblemLine> m_problem;
  bool m_placed = false;
};

/// A modal window that gives an answer: by value, exactly once, however it is closed. Cancel, Escape, the
/// window's close button and the end of the program give nothing.
///
///     class MWinColumns : public AnswerWindow<ColumnsAnswer> {
///      public:
///       MWinColumns(const shell::StringTable& strings, const ColumnsRequest& request, Done done)
///           : AnswerWindow(strings, "titleColumns", std::move(done)) {
///         content().addWidget(m_field = new QLineEdit);
///       }
///
///      private:
///       Result<ColumnsAnswer, Problem> Read() override {
///         if (m_field->text().isEmpty()) return Refuse(m_field, "errColumnsEmpty");
///         return ColumnsAnswer{…};
///       }
///       QLineEdit* m_field;
///     };
///
///     windows.AddDialog<ColumnsRequest>([&](const ColumnsRequest& request, auto done) {
///       return new MWinColumns(strings, request, std::move(done));
///     });
template <class AnswerType>
class AnswerWindow : public ModalWindow {
 public:
  using Answer = AnswerType;
  using Done = std::function<void(std::optional<Answer>)>;

 protected:
  AnswerWindow(const shell::StringTable& strings, std::string_view titleKey, Done done)
      : ModalWindow(strings, titleKey), m_done(std::move(done)) {}

  /// What the user has entered, or why it cannot be taken. Called when OK is pressed.
  virtual Result<Answer, Problem> Read() = 0;

  /// Closes the window with this answer without `Read`: for buttons and double clicks that are an answer.
  void FinishWith(Answer answer) {
    m_answer = std::move(answer);
    done(Accepted);
  }

 private:
  bool TakeAnswer() final {
    Result<Answer, Problem> read = Read();
    if (read.ok()) {
      m_answer = std::move(*read);
      return true;
    }
    ShowProblem(read.error());
    return false;
  }
  void Deliver() final { m_done.Give(std::exchange(m_answer, std::nullopt)); }

  std::optional<Answer> m_answer;
  Once<std::optional<Answer>> m_done;
};

}  // namespace quill::ui
