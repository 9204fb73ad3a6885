#pragma once
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/result.h"
#include "platform/hot_keys.h"
#include "shell/hot_key_settings.h"

namespace quill::ui {

/// An action's system-wide key and what became of it.
struct HotKeyState {
  const shell::CommandRow* row;
  platform::KeyCombination keys;
  platform::HotKeyProblem problem = platform::HotKeyProblem::None;
  std::string detail = {};  ///< what the system says about it, see `HotKeyResult`

  bool operator==(const HotKeyState&) const = default;
};

/// The system-wide keys of the running program: registers what the setting says by the way that this session
/// offers, and tells what became of each key. GUI thread.
///
/// The ways are tried in turn: the next one when a way cannot be opened or supports not a single key. In a
/// Wayland session the desktop portal comes first, then the system's own way; elsewhere there is only that.
class HotKeyCenter final : public QObject {
 public:
  using Names = std::function<std::string(const shell::CommandRow&)>;
  using OpenWay = std::function<Result<std::unique_ptr<platform::HotKeyRegistrar>>()>;

  /// `onPressed` is called for each press of a registered key.
  explicit HotKeyCenter(std::function<void(const shell::CommandRow&)> onPressed)
      : HotKeyCenter(std::move(onPressed), WaysOfThisSession()) {}
  /// With ways of the caller's own.
  HotKeyCenter(std::function<void(const shell::CommandRow&)> onPressed, std::deque<OpenWay> ways);
  ~HotKeyCenter() override;

  /// Registers the keys of the setting `HotKeys` instead of those before. `names` says what an action is
  /// called, for desktops that list the keys. Returns at once; everything is done from the event loop, where
  /// no call waits on a bus.
  void Use(const std::string& setting, Names names);

  /// Sets who is told when the keys' state is known and whenever it changes.
  void OnStateChanged(std::function<void(const std::vector<HotKeyState>&)> handler) {
    m_onStateChanged = std::move(handler);
  }

  /// Every key in use, in the order of registration. Without problems until the system has answered.
  const std::vector<HotKeyState>& State() const { return m_state; }

  /// The ways of this session, best first.
  static std::deque<OpenWay> WaysOfThisSession();

 private:
  void Bind();
  bool OpenNextWay();
  /// True while the registered keys are still those of before.
  bool AwaitsBinding() const { return m_bindSoon.isActive(); }
  void Press(std::uint32_t identifier);
  void Take(const std::vector<platform::HotKeyResult>& results);
  void TakeAll(platform::HotKeyProblem problem, const std::string& detail);
  void Publish();
  void Watch();
  void Dispatch();

  std::function<void(const shell::CommandRow&)> m_onPressed;
  std::function<void(const std::vector<HotKeyState>&)> m_onStateChanged;
  std::deque<OpenWay> m_ways;  ///< those that were not tried yet
  std::unique_ptr<platform::HotKeyRegistrar> m_registrar;
  std::string m_noWay;  ///< why the last way could not be opened
  std::unique_ptr<QSocketNotifier> m_watch;
  Names m_names;
  std::vector<HotKeyState> m_state;
  QTimer m_bindSoon;
};

}  // namespace quill::ui
