#pragma once
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "shell/string_table.h"
#include "ui/windows/options/options_facts.h"

namespace quill::ui {

/// The settings as the options window knows them, and the changes that are under way. GUI thread.
class OptionsDesk : public std::enable_shared_from_this<OptionsDesk> {
 public:
  /// Called when a change was made (empty problem) or refused.
  using OnFinished = std::function<void(std::string_view key, const std::string& problem)>;

  static std::shared_ptr<OptionsDesk> Make(const shell::StringTable& strings, OptionsFacts facts,
                                           OptionsHandlers handlers);

  const shell::StringTable& strings() const { return m_strings; }
  const OptionsFacts& facts() const { return m_facts; }
  const OptionsHandlers& handlers() const { return m_handlers; }

  /// Sets who hears of finished changes. Nobody: their problems go to `OptionsHandlers::tell`.
  void Listen(OnFinished listener) { m_listener = std::move(listener); }

  /// Takes newer facts. Changes under way stay what the user wants.
  void Take(OptionsFacts facts) { m_facts = std::move(facts); }

  /// A setting as the user wants it: what was sent last while that is under way, else what is stored.
  std::string Text(std::string_view key) const;

  /// Whether the settings table lets the setting be this text.
  bool Accepts(std::string_view key, std::string_view text) const;

  /// Asks for a change, unless the setting is so already. What is refused by the settings table and has a
  /// text of its own for that is not asked for: its problem is told at once.
  void Change(std::string_view key, const std::string& text);

 private:
  struct Sent {
    std::string text;
    int count = 0;
  };
  OptionsDesk(const shell::StringTable& strings, OptionsFacts facts, OptionsHandlers handlers);
  void Tell(std::string_view key, const std::string& problem);
  void Finish(const std::string& key, const std::string& text, const std::string& problem);

  const shell::StringTable& m_strings;
  OptionsFacts m_facts;
  OptionsHandlers m_handlers;
  OnFinished m_listener;
  std::map<std::string, Sent, std::less<>> m_sent;
};

}  // namespace quill::ui
