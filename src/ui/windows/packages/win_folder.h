#pragma once
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "files/store/notebook_list.h"
#include "shell/package_requests.h"
#include "ui/kit/file_panels.h"
#include "ui/kit/latest_job.h"
#include "ui/kit/modal_window.h"

class QLabel;
class QLayout;

namespace quill::ui {

class NotebookTree;

/// Asks which local notebooks to pack, all of them at first, and then for the folder that receives the
/// packages; when that is cancelled the window stays. The list is there at once, what the notebooks hold is
/// counted meanwhile.
class MWinFolder final : public AnswerWindow<shell::PackageChoice> {
  Q_OBJECT
 public:
  /// Stands for `files::MeasureNotebook` in a test. Called on another thread.
  using Measure =
      std::function<files::NotebookFacts(const std::filesystem::path&, const files::IsCancelled&)>;

  /// `panels` outlives the window.
  MWinFolder(const shell::StringTable& strings, PanelMemory& panels, const shell::PackageRequest& request,
             Done done, Measure measure = {});

 private:
  Result<shell::PackageChoice, Problem> Read() override;
  void LayEmpty();
  void LayList();
  QLayout* NewCheckRow();
  void MeasureNext();
  void ShowTotal();
  void AskTarget();

  const shell::StringTable& m_texts;
  PanelMemory& m_panels;
  std::vector<files::MAFolder> m_list;
  std::vector<std::optional<files::NotebookFacts>> m_facts;  ///< of each notebook, as far as they are known
  Measure m_measure;
  std::filesystem::path m_target;
  bool m_isAsking = false;  ///< the panel for the folder is open
  NotebookTree* m_tree = nullptr;
  QLabel* m_total = nullptr;
  LatestJob m_job;
};

}  // namespace quill::ui
