#include "online/editor_talk.h"

#include <utility>

namespace quill::online {

std::optional<EditorWish> EditorTalk::Next() {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [this] { return m_isClosed || m_wish; });
  if (m_isClosed) return std::nullopt;
  return std::exchange(m_wish, std::nullopt);
}

// The lock is held while the window is told, so that `Close` returns only when nothing is being told any
// more.
void EditorTalk::Answer(EditorAnswer answer) {
  const std::lock_guard lock(m_mutex);
  if (!m_isClosed && m_onAnswer) m_onAnswer(std::move(answer));
}

void EditorTalk::OnAnswer(std::function<void(EditorAnswer)> onAnswer) {
  const std::lock_guard lock(m_mutex);
  m_onAnswer = std::move(onAnswer);
}

void EditorTalk::Wish(EditorWish wish) {
  const std::lock_guard lock(m_mutex);
  m_wish = std::move(wish);
  m_changed.notify_all();
}

void EditorTalk::Close() {
  const std::lock_guard lock(m_mutex);
  m_isClosed = true;
  m_onAnswer = nullptr;
  m_changed.notify_all();
}

}  // namespace quill::online
