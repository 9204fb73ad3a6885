#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "gui_world.h"
#include "shell/engine_requests.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/problem_line.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/syntax/win_syntax_highlight.h"
#include "ui/windows/text/exact_text_edit.h"

namespace quill::ui {

using HtmlResult = Result<std::string, tools::HighlightFailure>;

/// A stand-in for the highlighter that remembers what it was asked for. Worker threads may outlive the test.
class FakeHighlight {
 public:
  /// What it answers. Any thread.
  void Answer(HtmlResult answer) {
    const std::lock_guard lock(m_state->mutex);
    m_state->answer = std::move(answer);
  }
  void Fail(tools::HighlightProblem problem) { Answer(Failure{tools::HighlightFailure{problem, ""}}); }

  /// From now on it takes until `Release`, or until it is told to end.
  void Hold() { m_state->isHeld = true; }
  void Release() { m_state->isHeld = false; }

  int calls() const { return static_cast<int>(requests().size()); }
  int cancelled() const { return m_state->cancelled; }
  bool isRunning() const { return m_state->running > 0; }
  int mostAtOnce() const { return m_state->mostAtOnce; }
  std::vector<tools::HighlightRequest> requests() const {
    const std::lock_guard lock(m_state->mutex);
    return m_state->requests;
  }

  shell::HighlightCode function() const {
    return [state = m_state](const tools::HighlightRequest& request, const shell::IsCancelled& isCancelled) {
      return state->Run(request, isCancelled);
    };
  }

 private:
  struct State {
    HtmlResult Run(const tools::HighlightRequest& request, const shell::IsCancelled& isCancelled) {
      mostAtOnce = std::max(mostAtOnce.load(), ++running);
      {
        const std::lock_guard lock(mutex);
        requests.push_back(request);
      }
      while (isHeld && !isCancelled()) std::this_thread::yield();
      if (isCancelled()) ++cancelled;
      --running;
      const std::lock_guard lock(mutex);
      return answer;
    }
    std::atomic<bool> isHeld = false;
    std::atomic<int> running = 0;
    std::atomic<int> mostAtOnce = 0;
    std::atomic<int> cancelled = 0;
    mutable std::mutex mutex;
    std::vector<tools::HighlightRequest> requests;
    HtmlResult answer = std::string("<html><body><pre>done</pre></body></html>");
  };
  std::shared_ptr<State> m_state = std::make_shared<State>();
};

inline tools::HighlightRequest RememberedStyle() {
  tools::HighlightRequest remembered;
  remembered.language = "Python";
  remembered.theme = "Vim";
  remembered.font = "No Such Family";
  remembered.fontSize = "13";
  remembered.hasLineNumbers = true;
  remembered.frame = {true, true, "#ffeedd"};
  return remembered;
}

/// The dialog on the screen with stand-ins behind it, and its answer.
struct SyntaxWindow : testing::Test {
  void Open(const tools::HighlightRequest& remembered = RememberedStyle()) {
    Open({remembered, highlight.function(), preview.function()});
  }
  void Open(const shell::SyntaxHighlightRequest& request) {
    window = new MWinSyntaxHighlight(world.strings, request, [this](auto given) {
      answer = std::move(given);
      isClosed = true;
    });
    window->show();
    ASSERT_NE(WaitForWindow<MWinSyntaxHighlight>(), nullptr);
  }
  ~SyntaxWindow() override {
    highlight.Release();
    preview.Release();
  }

  void PressOk() { Press(Qt::Key_Return, Qt::ControlModifier); }
  bool WaitForClose() {
    return WaitUntil([this] { return isClosed; });
  }
  bool WaitForProblem() {
    return WaitUntil([this] { return !ProblemText().empty(); });
  }
  std::string ProblemText() const {
    const auto* line = window->findChild<ProblemLine*>();
    return line == nullptr ? std::string() : FromQt(line->accessibleName());
  }
  std::string Shown() const { return FromQt(window->findChild<PagePreview*>()->toPlainText()); }
  std::string Note() const { return FromQt(window->findChild<QLabel*>("previewNote")->text()); }
  QComboBox* Box(const char* name) const { return window->findChild<QComboBox*>(QLatin1String(name)); }
  QWidget* Code() const { return window->findChild<ExactTextEdit*>(); }
  QPushButton* Use() const { return window->findChild<QPushButton*>("useSuggestion"); }

  FakeHighlight highlight;
  FakeHighlight preview;
  std::optional<shell::SyntaxChoice> answer;
  bool isClosed = false;
  QPointer<MWinSyntaxHighlight> window;
  GuiWorld world;  // the last: closes the window, which answers
};

}  // namespace quill::ui
