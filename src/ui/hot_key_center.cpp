#include "ui/hot_key_center.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "platform/native_backend.h"
#include "platform/qt/portal_hot_keys.h"

namespace quill::ui {

using platform::HotKeyProblem;
using platform::HotKeyRegistrar;
using platform::HotKeyResult;

std::deque<HotKeyCenter::OpenWay> HotKeyCenter::WaysOfThisSession() {
  std::deque<OpenWay> ways = {platform::OpenNativeHotKeys};
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
    ways.push_front([]() -> Result<std::unique_ptr<HotKeyRegistrar>> {
      platform::qt::PortalHotKeys::Options options;
      options.applicationId = QGuiApplication::desktopFileName();
      return std::unique_ptr<HotKeyRegistrar>(
          std::make_unique<platform::qt::PortalHotKeys>(std::move(options)));
    });
  }
  return ways;
}

HotKeyCenter::HotKeyCenter(std::function<void(const shell::CommandRow&)> onPressed, std::deque<OpenWay> ways)
    : m_onPressed(std::move(onPressed)), m_ways(std::move(ways)) {
  m_bindSoon.setSingleShot(true);
  m_bindSoon.setInterval(0);
  connect(&m_bindSoon, &QTimer::timeout, this, [this] { Bind(); });
}

HotKeyCenter::~HotKeyCenter() = default;

void HotKeyCenter::Use(const std::string& setting, Names names) {
  m_names = std::move(names);
  m_state.clear();
  for (shell::HotKeyAssignment& one : shell::AssignedHotKeys(setting))
    m_state.push_back({one.row, std::move(one.keys)});
  m_bindSoon.start();
}

bool HotKeyCenter::OpenNextWay() {
  m_watch.reset();
  m_registrar.reset();
  while (!m_ways.empty()) {
    Result<std::unique_ptr<HotKeyRegistrar>> opened = m_ways.front()();
    m_ways.pop_front();
    if (opened.ok()) {
      m_registrar = std::move(*opened);
      m_registrar->OnPressed([this](std::uint32_t identifier) { Press(identifier); });
      return true;
    }
    m_noWay = opened.error();
  }
  return false;
}

void HotKeyCenter::Bind() {
  if (!m_registrar && !OpenNextWay()) return TakeAll(HotKeyProblem::NotSupported, m_noWay);
  std::vector<platform::HotKey> keys;
  for (const HotKeyState& one : m_state) {
    const auto identifier = static_cast<std::uint32_t>(keys.size());
    keys.push_back({one.keys, identifier, m_names(*one.row), std::string(one.row->action)});
  }
  m_registrar->Bind(std::move(keys), [this](const std::vector<HotKeyResult>& results) { Take(results); });
  Watch();
  Dispatch();  // what arrived while the server's answers were read
}

void HotKeyCenter::Press(std::uint32_t identifier) {
  if (!AwaitsBinding() && identifier < m_state.size()) m_onPressed(*m_state[identifier].row);
}

void HotKeyCenter::Take(const std::vector<HotKeyResult>& results) {
  if (AwaitsBinding()) return;
  const bool none =
      !results.empty() && std::all_of(results.begin(), results.end(), [](const HotKeyResult& one) {
        return one.problem == HotKeyProblem::NotSupported;
      });
  if (none && !m_ways.empty()) {
    // Later, as the one that is given up is at work just now.
    QMetaObject::invokeMethod(
        this,
        [this] {
          m_watch.reset();
          m_registrar.reset();
          m_bindSoon.start();
        },
        Qt::QueuedConnection);
    return;
  }
  for (const HotKeyResult& result : results) {
    if (result.identifier >= m_state.size()) continue;
    m_state[result.identifier].problem = result.problem;
    m_state[result.identifier].detail = result.detail;
  }
  Publish();
}

void HotKeyCenter::TakeAll(HotKeyProblem problem, const std::string& detail) {
  for (HotKeyState& one : m_state) {
    one.problem = problem;
    one.detail = detail;
  }
  Publish();
}

void HotKeyCenter::Publish() {
  const auto told = m_onStateChanged;  // it may set another, or other keys
  if (told) told(std::vector<HotKeyState>(m_state));
}

void HotKeyCenter::Watch() {
  m_watch.reset();
  const int descriptor = m_registrar->Descriptor();
  if (descriptor < 0) return;
  m_watch = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  connect(m_watch.get(), &QSocketNotifier::activated, this, [this] { Dispatch(); });
}

void HotKeyCenter::Dispatch() {
  if (!m_registrar) return;
  m_registrar->Dispatch();
  if (m_watch && m_registrar->Descriptor() < 0) m_watch->setEnabled(false);  // it would be readable for ever
}

}  // namespace quill::ui
