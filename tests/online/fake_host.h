#pragma once
#include <atomic>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "online/online_host.h"
#include "online/online_requests.h"
#include "shell/string_table.h"

namespace quill::online {

/// The program around an online command, in memory: answers are set before, what happened is read after.
class FakeHost final : public OnlineHost {
 public:
  std::string link;
  std::deque<bool> answers;                         ///< to questions; then NO
  std::deque<std::optional<SignInResult>> signIns;  ///< what the pages bring; then they are closed
  std::optional<std::filesystem::path> exportPath;
  std::optional<std::filesystem::path> pageLog;
  int cancelAfterQuestions = -1;  ///< so often the user has not cancelled yet; −1: never does

  std::vector<std::string> messages;
  std::vector<std::string> questions;
  std::vector<SignInMode> signInModes;
  std::vector<std::string> insertions;
  std::vector<std::string> addresses;
  std::vector<std::string> steps;
  std::vector<std::any> windows;
  std::function<void(std::any request)> playUser;  ///< gets the windows instead of `windows`, if it is set
  bool insertedUnderProgress = false;              ///< a progress stood in the way of the keys
  bool shownUnderProgress = false;                 ///< or of a window

  std::string PageLink() override { return link; }
  void InsertHtml(std::string_view fragment) override {
    insertedUnderProgress |= m_progresses > 0;
    insertions.emplace_back(fragment);
  }
  std::string Text(std::string_view key, const std::vector<std::string>& arguments) override {
    return m_strings.Format(key, arguments);
  }
  void Say(std::string_view text) override { messages.emplace_back(text); }
  bool Ask(std::string_view question) override {
    questions.emplace_back(question);
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::optional<SignInResult> ShowSignIn(SignInMode mode) override {
    signInModes.push_back(mode);
    if (signIns.empty()) return std::nullopt;
    auto result = signIns.front();
    signIns.pop_front();
    return result;
  }
  std::optional<std::filesystem::path> AskExportPath(std::string_view, std::string_view) override {
    return exportPath;
  }
  void ShowWindow(std::any request) override {
    shownUnderProgress |= m_progresses > 0;
    if (playUser) return playUser(std::move(request));
    windows.push_back(std::move(request));
  }
  Status<> OpenUrl(std::string_view url) override {
    addresses.emplace_back(url);
    return Done();
  }
  std::unique_ptr<platform::Progress> BeginProgress() override {
    return std::make_unique<FakeProgress>(*this);
  }
  void LogContent(std::string_view, std::string_view) override {}
  std::optional<std::filesystem::path> PageLogFile() override { return pageLog; }
  void Explain(std::string_view step) override { steps.emplace_back(step); }

  /// How many tell at this moment that the service is being asked.
  int Progresses() const { return m_progresses; }

  /// Everything that was shown or told, for looking for what must not be there.
  std::string AllTexts() const {
    std::string all;
    for (const auto* texts : {&messages, &questions, &addresses, &steps}) {
      for (const std::string& text : *texts) all += text + "\n";
    }
    return all;
  }

 private:
  class FakeProgress final : public platform::Progress {
   public:
    explicit FakeProgress(FakeHost& host) : m_host(host) { ++m_host.m_progresses; }
    ~FakeProgress() override { --m_host.m_progresses; }
    void Set(double, std::string_view) override {}
    bool Cancelled() const override {
      if (m_host.cancelAfterQuestions > 0) --m_host.cancelAfterQuestions;
      return m_host.cancelAfterQuestions == 0;
    }

   private:
    FakeHost& m_host;
  };

  shell::StringTable m_strings;
  std::atomic<int> m_progresses = 0;
};

}  // namespace quill::online
