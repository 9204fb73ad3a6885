#include "ui/windows/image_table/picture_walk.h"

#include <utility>

#include "ui/kit/background.h"

namespace quill::ui {

PictureWalk::PictureWalk(Expand expand, QObject* parent) : QObject(parent), m_expand(std::move(expand)) {}

PictureWalk::~PictureWalk() {
  if (m_present) m_present->isStopped = true;
}

void PictureWalk::Start(std::vector<std::string> paths, Done done) {
  if (paths.empty()) return;
  m_waiting.push_back({std::move(paths), std::move(done)});
  if (isRunning()) return;
  Next();
  emit Began();
}

void PictureWalk::Next() {
  Request request = std::move(m_waiting.front());
  m_waiting.pop_front();
  m_present = std::make_shared<State>();
  const auto work = [expand = m_expand, paths = std::move(request.paths), state = m_present] {
    return expand(paths, [&](std::size_t found) {
      state->found = found;
      return !state->isStopped;
    });
  };
  RunInBackground<tools::PictureList>(
      this, work,
      [this, done = std::move(request.done)](tools::PictureList list) { Finish(done, std::move(list)); });
}

void PictureWalk::Finish(const Done& done, tools::PictureList list) {
  done(std::move(list));
  m_present = nullptr;
  if (!m_waiting.empty()) return Next();
  emit Ended();
}

void PictureWalk::Stop() {
  if (!m_present) return;
  m_present->isStopped = true;
  for (const Request& request : std::exchange(m_waiting, {})) {
    tools::PictureList nothing;
    nothing.isStopped = true;
    request.done(std::move(nothing));
  }
}

std::size_t PictureWalk::found() const {
  return m_present ? m_present->found.load() : 0;
}

}  // namespace quill::ui
