#pragma once
#include <array>
#include <memory>

#include "shell/window_requests.h"
#include "ui/kit/tool_window.h"
#include "ui/windows/options/options_facts.h"

class QTabWidget;

namespace quill::ui {

class HotKeysPage;
class OptionPage;
class OptionsDesk;

/// The options: pages of settings, each of which is changed and saved at once. One window is enough, see
/// `ShowOne`. GUI thread.
///
/// Control+Tab and Control+Page Down go to the next page, with Shift and Page Up to the one before; Escape
/// closes, and saves what was typed last.
class MWinOptions final : public ToolWindow {
 public:
  using Page = shell::OptionsRequest::Page;

  MWinOptions(const shell::StringTable& strings, OptionsFacts facts, OptionsHandlers handlers,
              Page page = Page::General);
  ~MWinOptions() override;

  /// Shows newer facts. Leaves alone what the user types or has changed and not heard of yet.
  void Update(const OptionsFacts& facts);

  /// Reads all texts again, as after a change of the language; page and keyboard stay where they are.
  void Retranslate();

  Page CurrentPage() const;
  void ShowPage(Page page);

  /// To be asked before an action is run by its system-wide key, which the window itself does not see. True
  /// when the window records a key at this moment and has taken this one: the action is not to be run.
  bool TakePressedHotKey(const shell::CommandRow& row);

  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Build(Page page);
  void AddPage(Page page, OptionPage* content, std::string_view titleKey);
  void AddPageKeys();
  void Turn(int steps);
  void Commit();
  void OnFinished(std::string_view key, const std::string& problem);

  std::shared_ptr<OptionsDesk> m_desk;
  QWidget* m_body = nullptr;
  QTabWidget* m_tabs = nullptr;
  HotKeysPage* m_hotKeys = nullptr;
  std::array<OptionPage*, 5> m_pages{};
};

}  // namespace quill::ui
