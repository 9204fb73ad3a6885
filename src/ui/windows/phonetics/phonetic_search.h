#pragma once
#include <QObject>
#include <QTimer>
#include <optional>
#include <string>

#include "shell/engine_requests.h"
#include "ui/kit/latest_job.h"

namespace quill::ui {

/// A word of a language, as it is looked up.
struct PhoneticWord {
  std::string language;
  std::string word;

  bool isWhole() const { return !language.empty() && !word.empty(); }
  /// One short word without white space: nothing else goes to a service unless somebody asks for it, since a
  /// selection may be a whole text that is nobody's business.
  bool isShort() const;
  bool operator==(const PhoneticWord&) const = default;
};

enum class SearchState {
  Idle,     ///< nothing was looked for, or not yet
  Running,  ///< for less than half a second
  Slow,     ///< for longer: time to tell the user
  Stopped,
  Answered
};

/// Looks words up on another thread, one at a time; only the latest counts. GUI thread.
class PhoneticSearch final : public QObject {
  Q_OBJECT
 public:
  explicit PhoneticSearch(shell::FindPhonetic find);

  /// Ends the search for another word and begins this one when it has stayed the same for a moment. One that
  /// is not whole or not short is not looked for.
  void Later(const PhoneticWord& word);

  /// Begins at once, unless this word is being looked for already.
  void Now(const PhoneticWord& word);

  void Stop();

  SearchState state() const { return m_state; }
  bool isRunning() const { return m_state == SearchState::Running || m_state == SearchState::Slow; }

  /// The answer for this word; null when it has not been looked for, or not to the end.
  const tools::PhoneticAnswer* AnswerFor(const PhoneticWord& word) const;

 signals:
  /// The state is another, or there is a new answer.
  void Changed();

 private:
  void Begin(const PhoneticWord& word);
  void Take(tools::PhoneticAnswer answer);
  void Enter(SearchState state);

  shell::FindPhonetic m_find;
  PhoneticWord m_word;
  SearchState m_state = SearchState::Idle;
  std::optional<tools::PhoneticAnswer> m_answer;
  QTimer m_pause;
  QTimer m_patience;
  LatestJob m_job;
};

}  // namespace quill::ui
