#include "ui/backends.h"

#include <mutex>

#include "platform/native_backend.h"
#include "platform/practice/practice_desktop.h"
#include "ui/practice_host.h"

namespace quill::ui {
namespace {

using platform::NativeBackend;

/// Tells the day's jobs of a desktop that is opened when it is first asked for, and of the practice notebook.
class IdleSource final : public platform::Desktop {
 public:
  IdleSource(std::function<platform::Desktop*()> find, PracticeHost& practice)
      : m_find(std::move(find)), m_practice(practice) {}

  platform::ScriptResult RunScript(std::string_view) override {
    return {platform::ScriptProblem::Unsupported, {}};
  }
  bool ApplicationInstalled(std::string_view) override { return false; }
  bool OneNoteRunning() override {
    if (m_practice.IsOpen()) return true;
    platform::Desktop* desktop = m_find();
    return desktop != nullptr && desktop->OneNoteRunning();
  }
  std::int64_t GetIdleSeconds() override {
    platform::Desktop* desktop = m_find();
    return desktop != nullptr ? desktop->GetIdleSeconds() : -1;
  }

 private:
  std::function<platform::Desktop*()> m_find;
  PracticeHost& m_practice;
};

}  // namespace

struct Backends::State {
  State(PracticeHost& host, std::function<std::string()> pattern)
      : practice(host), targetPattern(std::move(pattern)) {}

  PracticeHost& practice;
  std::function<std::string()> targetPattern;
  std::mutex mutex;  ///< guards the making of `native`, which the GUI thread looks at when it stops
  std::unique_ptr<NativeBackend> native;
  platform::NoDesktop none{platform::ScriptProblem::Unsupported};
  IdleSource idleSource{[this]() -> platform::Desktop* {
                          NativeBackend* opened = Native();
                          return opened != nullptr ? &opened->desktop() : nullptr;
                        },
                        practice};
  platform::practice::PracticeDesktop practiceDesktop{practice,
                                                      [this] { return idleSource.GetIdleSeconds(); }};

  /// The native backend, or null where there is none; tried again at each call, for a display may come back.
  NativeBackend* Native() {
    const std::lock_guard lock(mutex);
    if (native == nullptr) {
      auto opened = platform::OpenNativeBackend(targetPattern);
      if (opened.ok()) native = std::move(*opened);
    }
    return native.get();
  }
};

Backends::Backends(PracticeHost& practice, std::function<std::string()> targetPattern)
    : m_state(std::make_unique<State>(practice, std::move(targetPattern))) {}

Backends::~Backends() = default;

platform::Backend Backends::Choose() {
  NativeBackend* native = m_state->Native();
  const bool practiceOpen = m_state->practice.IsOpen();
  if (native != nullptr && (!practiceOpen || native->TargetIsActive())) {
    return {native->name(), &native->desktop(), &native->pasteboard(),
            [native](std::function<void(std::string_view)> sink) { native->OnNote(std::move(sink)); }};
  }
  if (practiceOpen)
    return {platform::kPracticeBackend, &m_state->practiceDesktop, &m_state->practice.pasteboard(), nullptr};
  return m_state->none.backend();
}

void Backends::Stop() {
  const std::lock_guard lock(m_state->mutex);
  if (m_state->native != nullptr) m_state->native->Stop();
}

platform::Desktop& Backends::idleSource() {
  return m_state->idleSource;
}

}  // namespace quill::ui
