#include "ui/windows/packages/win_folder.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/posix/creation_date.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/packages/notebook_tree.h"

namespace quill::ui {
namespace {

files::NotebookFacts MeasureOnDisk(const std::filesystem::path& notebook,
                                   const files::IsCancelled& isCancelled) {
  return files::MeasureNotebook(notebook, platform::SystemFileDates(), isCancelled);
}

}  // namespace

MWinFolder::MWinFolder(const shell::StringTable& strings, PanelMemory& panels,
                       const shell::PackageRequest& request, Done done, Measure measure)
    : AnswerWindow(strings, "titlePackages", std::move(done)),
      m_texts(strings),
      m_panels(panels),
      m_list(request.notebooks),
      m_facts(m_list.size()),
      m_measure(measure ? std::move(measure) : MeasureOnDisk) {
  if (m_list.empty()) {
    LayEmpty();
  } else {
    LayList();
    ShowTotal();
    MeasureNext();
  }
}

void MWinFolder::LayEmpty() {
  constexpr int kWidthInCharacters = 48;
  QLabel* nothing = NewWrappedLabel(Text("strPackagesEmpty"));
  nothing->setMinimumWidth(fontMetrics().averageCharWidth() * kWidthInCharacters);
  content().addWidget(nothing);
  OnlyClose();
  AssignMnemonics(buttons(), {});
}

void MWinFolder::LayList() {
  m_tree = new NotebookTree(m_texts, m_list);
  auto* label = new QLabel(Text("strPackagesLabel"));
  label->setBuddy(m_tree);
  m_tree->setAccessibleName(WithoutColon(label->text()));
  content().addWidget(label);
  content().addWidget(m_tree, 1);
  content().addLayout(NewCheckRow());
  SetOkText("strPackagesPack");
  // It first asks for the folder.
  disconnect(&buttons(), &QDialogButtonBox::accepted, this, nullptr);
  connect(&buttons(), &QDialogButtonBox::accepted, this, &MWinFolder::AskTarget);
  AssignMnemonics(*this, {});
  connect(m_tree, &NotebookTree::ChecksChanged, this, &MWinFolder::ShowTotal);
}

QLayout* MWinFolder::NewCheckRow() {
  auto* row = new QHBoxLayout;
  const std::pair<const char*, CheckMode> modes[] = {{"strPackagesAll", CheckMode::All},
                                                     {"strPackagesNone", CheckMode::None},
                                                     {"strPackagesInvert", CheckMode::Invert}};
  for (const auto& [key, mode] : modes) {
    auto* button = new QPushButton(Text(key));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, mode = mode] { m_tree->CheckAllItems(mode); });
    row->addWidget(button);
  }
  row->addStretch(1);
  row->addWidget(m_total = new QLabel);
  return row;
}

void MWinFolder::MeasureNext() {
  const auto next = std::ranges::find_if(m_facts, [](const auto& facts) { return !facts.has_value(); });
  if (next == m_facts.end()) return;
  const auto row = static_cast<std::size_t>(next - m_facts.begin());
  m_job.Run([measure = m_measure, path = m_list[row].path](
                const LatestJob::IsCancelled& isCancelled) { return measure(path, isCancelled); },
            [this, row](const files::NotebookFacts& facts) {
              m_facts[row] = facts;
              m_tree->SetFacts(row, facts);
              ShowTotal();
              MeasureNext();
            });
}

void MWinFolder::ShowTotal() {
  std::size_t count = 0;
  std::uintmax_t bytes = 0;
  bool isWhole = true;  // the size of everything that is chosen is known
  for (std::size_t row = 0; row < m_list.size(); ++row) {
    if (!m_tree->IsChecked(row)) continue;
    ++count;
    isWhole = isWhole && m_facts[row].has_value();
    if (m_facts[row]) bytes += m_facts[row]->bytes;
  }
  const auto number = [this](std::size_t value) {
    return FromQt(locale().toString(static_cast<qulonglong>(value)));
  };
  const QString size =
      locale().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeTraditionalFormat);
  m_total->setText(count == 0 ? Text("strPackagesNothing")
                              : Format("strPackagesTotal", {number(count), number(m_list.size()),
                                                            isWhole ? FromQt(size) : std::string("…")}));
  // Otherwise the keyboard would go to whatever comes next.
  if (count == 0 && okButton().hasFocus()) m_tree->setFocus();
  okButton().setEnabled(count > 0);
}

void MWinFolder::AskTarget() {
  if (std::exchange(m_isAsking, true)) return;
  platform::OpenPanel panel;
  panel.title = FromQt(windowTitle());
  panel.message = "Choose a folder for save package";
  panel.kind = platform::OpenKind::Folders;
  ShowOpenPanel(m_texts, m_panels, panel,
                [window = QPointer<MWinFolder>(this)](const std::vector<std::filesystem::path>& chosen) {
                  if (!window) return;
                  window->m_isAsking = false;
                  window->activateWindow();
                  if (chosen.empty()) return;
                  window->m_target = chosen.front();
                  window->accept();
                });
}

Result<shell::PackageChoice, Problem> MWinFolder::Read() {
  for (std::size_t row = 0; row < m_list.size(); ++row) m_list[row].checked = m_tree->IsChecked(row);
  return shell::PackageChoice{m_list, m_target};
}

}  // namespace quill::ui
