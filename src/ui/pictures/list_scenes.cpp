#include "ui/pictures/list_scenes.h"

#include <QListView>
#include <memory>

#include "online/notebook_facts.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/navigation/win_navigate_pane.h"
#include "ui/windows/notebooks/win_notebook.h"
#include "ui/windows/notebooks/win_notebook_information.h"

namespace quill::ui {
namespace {

constexpr const char* kNotebooks =
    R"({"value":[{"displayName":"Garden","isDefault":true,"isShared":false,"userRole":"Owner",
    "createdDateTime":"2021-02-14T08:30:00Z","createdBy":{"user":{"displayName":"Robin Field"}},
    "lastModifiedDateTime":"2026-11-12T17:45:00Z","lastModifiedBy":{"user":{"displayName":"Robin Field"}},
    "links":{"oneNoteClientUrl":{"href":"onenote:https://d.docs.live.net/7c1f20aa/Documents/Garden"},
    "oneNoteWebUrl":{"href":"https://onedrive.live.com/redir.aspx?cid=7c1f20aa&resid=7C1F20AA%21118&app=OneNote"}},
    "id":"0-7C1F20AA!118"},
    {"displayName":"Household","links":{"oneNoteClientUrl":{"href":"onenote:https://d.docs.live.net/7c1f20aa/Documents/Household"}}},
    {"displayName":"Kitchen and cellar"},{"displayName":"Travel"},{"displayName":"Work"}]})";
constexpr const char* kRecent =
    R"({"value":[{"displayName":"Allotment 2019","links":{"oneNoteClientUrl":{"href":"onenote:https://d.docs.live.net/7c1f20aa/Documents/Allotment"}}}]})";

online::NavigatePaneRequest SamplePage() {
  return {"The year in the garden",
          "onenote:sample",
          {{1, "Spring", "a"},
           {2, "North bed", "b"},
           {3, "Broad beans", "c"},
           {4, "Sown on the first dry day in March, between the rows of garlic", "d"},
           {5, "Second sowing", "e"},
           {6, "What the slugs left of it", "f"},
           {2, "South bed", "g"},
           {3, "Courgettes", "h"},
           {1, "Summer", "i"},
           {2, "Watering", "j"},
           {3, "By hand", "k"},
           {3, "From the butt", "l"},
           {1, "Autumn", "m"}}};
}

Look OpenPane(Studio& studio, const online::NavigatePaneRequest& page) {
  auto* pane = new MWinNavigatePane(studio.strings, {[](const std::string&) {}, [] {}},
                                    std::make_shared<NavigationMemory>());
  pane->SetPage(page);
  // The third one is the one that was opened last, the fifth the current one.
  auto& view = *pane->findChild<QListView*>();
  auto& list = static_cast<HeadingModel&>(*view.model());
  if (list.rowCount() > 0) {
    list.MarkOpened(2);
    view.setCurrentIndex(list.index(4));
  }
  return InFront(pane);
}

Look OpenNotebooks(Studio& studio) {
  auto* window = new MWinNotebook(studio.strings, {[](const std::string&) {}, [](const std::string&) {}});
  window->SetLists({kNotebooks, kRecent});
  return InFront(window);
}

Look OpenInformation(Studio& studio) {
  return InFront(new MWinNotebookInformation(studio.strings, "Garden",
                                             online::NotebookFactsOfRow(kNotebooks, kRecent, 0)));
}

}  // namespace

std::vector<Scene> ListScenes() {
  return {{QStringLiteral("navigation-pane"), [](Studio& studio) { return OpenPane(studio, SamplePage()); }},
          {QStringLiteral("navigation-pane-empty"),
           [](Studio& studio) {
             return OpenPane(studio, {"The year in the garden", "onenote:sample", {}});
           }},
          {QStringLiteral("notebooks"), OpenNotebooks},
          {QStringLiteral("notebook-information"), OpenInformation}};
}

}  // namespace quill::ui
