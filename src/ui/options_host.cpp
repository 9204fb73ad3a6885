#include "ui/options_host.h"

#include <algorithm>

#include "platform/native_backend.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/window_place.h"

namespace quill::ui {
namespace {

/// False when the system has refused every key because it has no such keys.
bool TakesKeys(const std::vector<HotKeyState>& states) {
  return states.empty() || !std::all_of(states.begin(), states.end(), [](const HotKeyState& state) {
           return state.problem == platform::HotKeyProblem::NotSupported;
         });
}

}  // namespace

void OptionsHost::WithFacts(std::function<void(const OptionsFacts&)> use) {
  m_parts.application.Post([this, use = std::move(use)](shell::Globals& globals) {
    OptionsFacts facts;
    facts.settings = globals.settings;
    facts.exportLog = globals.exportLog;
    facts.hasTargetWindowPattern = platform::kFindsWindowsByTitle;
    facts.now = [&clock = m_parts.clock] { return clock.Now(); };
    OnGui([this, use, facts]() mutable {
      facts.hotKeys = m_hotKeys;
      facts.hotKeysPossible = TakesKeys(m_hotKeys);
      use(facts);
    });
  });
}

void OptionsHost::Open(shell::OptionsRequest::Page page) {
  WithFacts([this, page](const OptionsFacts& facts) { Show(page, facts); });
}

void OptionsHost::Show(shell::OptionsRequest::Page page, const OptionsFacts& facts) {
  if (m_window == nullptr) {
    OptionsHandlers handlers;
    handlers.change = [this](const std::string& key, const std::string& text, OptionsHandlers::Done done) {
      Change(key, text, std::move(done));
    };
    handlers.setExportLog = [this](bool on) {
      m_parts.application.Post([on](shell::Globals& globals) { globals.exportLog = on; });
    };
    handlers.runAction = m_parts.runAction;
    handlers.tell = m_parts.tell;
    m_window = new MWinOptions(m_parts.strings, facts, std::move(handlers), page);
  } else {
    m_window->Update(facts);
    m_window->ShowPage(page);
  }
  BringToFront(*m_window);
}

void OptionsHost::Refresh() {
  if (m_window == nullptr) return;
  WithFacts([this](const OptionsFacts& facts) {
    if (m_window != nullptr) m_window->Update(facts);
  });
}

void OptionsHost::Update(const std::vector<HotKeyState>& hotKeys) {
  m_hotKeys = hotKeys;
  Refresh();
}

void OptionsHost::Retranslate() {
  if (m_window != nullptr) m_window->Retranslate();
}

bool OptionsHost::TakePressedHotKey(const shell::CommandRow& row) {
  return m_window != nullptr && m_window->TakePressedHotKey(row);
}

void OptionsHost::Change(const std::string& key, const std::string& text, OptionsHandlers::Done done) {
  const shell::SettingRow* row = shell::FindSetting(key);
  if (row == nullptr) return done(key);
  m_parts.application.Post([this, row, text, done = std::move(done)](shell::Globals& globals) {
    const Status<> changed = shell::ChangeSetting(globals, *row, text);
    const std::string problem =
        changed.ok() ? std::string() : m_parts.strings.Format("errSaveSettings", {changed.error()});
    OnGui([this, problem, settings = globals.settings, done] {
      if (problem.empty()) m_parts.onChanged(settings);
      done(problem);
    });
  });
}

}  // namespace quill::ui
