#include "ui/windows/options/options_desk.h"

#include <utility>

namespace quill::ui {
namespace {

/// What may be typed wrongly, and what is said to that. {0} is what was typed.
struct Refusal {
  std::string_view key;
  std::string_view textKey;
};

constexpr Refusal kRefusals[] = {{"MathJaxAddress", "errMathJaxAddress"}};

}  // namespace

std::shared_ptr<OptionsDesk> OptionsDesk::Make(const shell::StringTable& strings, OptionsFacts facts,
                                               OptionsHandlers handlers) {
  return std::shared_ptr<OptionsDesk>(new OptionsDesk(strings, std::move(facts), std::move(handlers)));
}

OptionsDesk::OptionsDesk(const shell::StringTable& strings, OptionsFacts facts, OptionsHandlers handlers)
    : m_strings(strings), m_facts(std::move(facts)), m_handlers(std::move(handlers)) {}

std::string OptionsDesk::Text(std::string_view key) const {
  const auto sent = m_sent.find(key);
  if (sent != m_sent.end()) return sent->second.text;
  const shell::SettingRow* row = shell::FindSetting(key);
  return row == nullptr ? std::string() : shell::SettingText(m_facts.settings, *row);
}

bool OptionsDesk::Accepts(std::string_view key, std::string_view text) const {
  const shell::SettingRow* row = shell::FindSetting(key);
  return row != nullptr && (row->accepts == nullptr || row->accepts(text));
}

void OptionsDesk::Change(std::string_view key, const std::string& text) {
  if (!m_handlers.change || Text(key) == text) return;
  for (const Refusal& refusal : kRefusals) {
    if (refusal.key == key && !Accepts(key, text)) {
      return Tell(key, m_strings.Format(refusal.textKey, {text}));
    }
  }
  Sent& sent = m_sent[std::string(key)];
  sent.text = text;
  ++sent.count;
  // Not bound to the window: a problem that comes after it was closed is still told.
  m_handlers.change(std::string(key), text,
                    [desk = shared_from_this(), name = std::string(key), text](const std::string& problem) {
                      desk->Finish(name, text, problem);
                    });
}

void OptionsDesk::Finish(const std::string& key, const std::string& text, const std::string& problem) {
  const auto sent = m_sent.find(key);
  if (sent != m_sent.end() && --sent->second.count == 0) m_sent.erase(sent);
  const shell::SettingRow* row = shell::FindSetting(key);
  // What the other side has taken is not refused here.
  if (problem.empty() && row != nullptr) std::ignore = shell::SetSettingText(m_facts.settings, *row, text);
  Tell(key, problem);
}

void OptionsDesk::Tell(std::string_view key, const std::string& problem) {
  if (m_listener) {
    m_listener(key, problem);
  } else if (!problem.empty() && m_handlers.tell) {
    m_handlers.tell(problem);
  }
}

}  // namespace quill::ui
