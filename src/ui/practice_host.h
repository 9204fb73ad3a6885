#pragma once
#include <QObject>
#include <atomic>
#include <filesystem>
#include <memory>

#include "base/endpoints.h"
#include "base/result.h"
#include "platform/pasteboard.h"
#include "platform/practice/practice_target.h"
#include "shell/string_table.h"

namespace quill::ui {

class PracticeNotebook;

/// The practice notebook's place in the program: loads the web views' plug-in when the notebook is first
/// opened, and stands for the notebook on the command thread from the start. Made and destroyed on the GUI
/// thread; the `PracticeTarget` methods are the command thread's.
class PracticeHost final : public platform::practice::PracticeTarget {
 public:
  /// `folder` is where the pages are kept.
  PracticeHost(std::filesystem::path folder, const shell::StringTable& strings);
  ~PracticeHost() override;

  /// Opens the notebook's window, or brings it to the front. Fails when the plug-in cannot be loaded.
  Status<> Open();

  /// The open notebook; null before the first `Open`. GUI thread.
  PracticeNotebook* notebook() { return m_notebook.get(); }

  /// The clipboard as the notebook uses it; only after `Open`.
  platform::Pasteboard& pasteboard() { return *m_pasteboard; }

  /// The addresses of the service on the notebook's pages, which is started at the first call. Fails when the
  /// notebook's window is not open. Any thread; on the command thread it waits for the window's.
  Result<Endpoints> Service();

  bool IsOpen() override;
  platform::ScriptProblem Show() override;
  platform::ScriptProblem Press(const platform::practice::Keys& keys) override;
  platform::ScriptProblem OpenLink(std::string_view link) override;

 private:
  std::filesystem::path m_folder;
  const shell::StringTable& m_strings;
  std::unique_ptr<platform::Pasteboard> m_pasteboard;
  std::unique_ptr<PracticeNotebook> m_notebook;
  std::atomic<platform::practice::PracticeTarget*> m_target = nullptr;
  QObject m_guiThread;  ///< calls from other threads end with it
};

}  // namespace quill::ui
