#include "ui/windows/phonetics/phonetic_search.h"

#include <QString>
#include <algorithm>
#include <chrono>
#include <utility>

namespace quill::ui {
namespace {

using namespace std::chrono_literals;

/// Long enough that nobody's half-typed word goes to a dictionary.
constexpr auto kPause = 600ms;
constexpr auto kPatience = 500ms;
constexpr std::size_t kShort = 64;  ///< in bytes: twenty Chinese characters

}  // namespace

bool PhoneticWord::isShort() const {
  if (word.size() > kShort) return false;
  const QString text = QString::fromStdString(word);
  return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

PhoneticSearch::PhoneticSearch(shell::FindPhonetic find) : m_find(std::move(find)) {
  m_pause.setSingleShot(true);
  m_pause.setInterval(kPause);
  m_patience.setSingleShot(true);
  m_patience.setInterval(kPatience);
  connect(&m_pause, &QTimer::timeout, this, [this] { Begin(m_word); });
  connect(&m_patience, &QTimer::timeout, this, [this] { Enter(SearchState::Slow); });
}

void PhoneticSearch::Later(const PhoneticWord& word) {
  if (word == m_word && (isRunning() || m_state == SearchState::Answered)) return;
  m_job.Cancel();
  m_patience.stop();
  m_answer.reset();
  m_word = word;
  m_pause.stop();
  if (word.isWhole() && word.isShort()) m_pause.start();
  Enter(SearchState::Idle);
}

void PhoneticSearch::Now(const PhoneticWord& word) {
  if (!word.isWhole() || (word == m_word && isRunning())) return;
  Begin(word);
}

void PhoneticSearch::Begin(const PhoneticWord& word) {
  m_pause.stop();
  m_word = word;
  m_answer.reset();
  m_patience.start();
  m_job.Run(
      [find = m_find, word](const LatestJob::IsCancelled& isCancelled) {
        return find(word.language, word.word, isCancelled);
      },
      [this](tools::PhoneticAnswer answer) { Take(std::move(answer)); });
  Enter(SearchState::Running);
}

void PhoneticSearch::Stop() {
  if (!isRunning()) return;
  m_job.Cancel();
  m_patience.stop();
  Enter(SearchState::Stopped);
}

void PhoneticSearch::Take(tools::PhoneticAnswer answer) {
  m_patience.stop();
  if (answer.isCancelled) return Enter(SearchState::Stopped);
  m_answer = std::move(answer);
  Enter(SearchState::Answered);
}

void PhoneticSearch::Enter(SearchState state) {
  m_state = state;
  emit Changed();
}

const tools::PhoneticAnswer* PhoneticSearch::AnswerFor(const PhoneticWord& word) const {
  return m_answer && word == m_word ? &*m_answer : nullptr;
}

}  // namespace quill::ui
