#include "ui/online_windows.h"

#include <memory>

#include "online/editor_talk.h"
#include "online/online_requests.h"
#include "shell/sign_in_request.h"
#include "ui/kit/window_factory.h"
#include "ui/web_plugin.h"
#include "ui/windows/find_replace/win_onenote_online.h"
#include "ui/windows/navigation/win_navigate_pane.h"
#include "ui/windows/notebooks/win_notebook.h"
#include "ui/windows/sign_in/win_login_online_onenote.h"

namespace quill::ui {
namespace {

void AddSignIn(WindowFactory& windows, const shell::StringTable& strings,
               const std::function<void(const std::string&)>& tell) {
  windows.AddDialog<shell::SignInRequest>(
      [&strings, tell](const shell::SignInRequest& request, MWinLoginOnlineOneNote::Done done) -> QWidget* {
        const Result<WebViews*> views = LoadWebViews();
        if (views.ok()) {
          return new MWinLoginOnlineOneNote(strings, (*views)->CreateSignInView(strings), request,
                                            std::move(done));
        }
        done(std::nullopt);
        tell(strings.Format("errSignInNoPages", {views.error()}) + "\n\n" +
             std::string(strings.Text("strSignInAnyBrowser")));
        return nullptr;
      });
}

void AddLists(WindowFactory& windows, const shell::StringTable& strings, const OnlineWindowHooks& hooks) {
  auto memory = std::make_shared<NavigationMemory>();
  windows.AddWindow<online::NavigatePaneRequest>(
      [&strings, hooks, memory](const online::NavigatePaneRequest& request) {
        auto* pane = ShowOne<MWinNavigatePane>([&] {
          return new MWinNavigatePane(strings, {hooks.openLocation, hooks.refreshNavigation}, memory);
        });
        pane->SetPage(request);
        return pane;
      });
  windows.AddWindow<online::NotebookListRequest>(
      [&strings, hooks](const online::NotebookListRequest& request) {
        auto* list = ShowOne<MWinNotebook>([&] {
          return new MWinNotebook(strings, {hooks.openLocation, hooks.tell});
        });
        list->SetLists(request);
        return list;
      });
}

/// Without the web engine the request goes, and with it the window's seat: the command ends.
void AddEditor(WindowFactory& windows, const shell::StringTable& strings,
               const std::function<void(const std::string&)>& tell) {
  windows.AddWindow<online::FindReplaceRequest>(
      [&strings, tell](const online::FindReplaceRequest& request) -> QWidget* {
        const Result<WebViews*> views = LoadWebViews();
        if (views.ok())
          return new MWinOneNoteOnline(strings, (*views)->CreateFindReplaceView(strings), request);
        tell(strings.Format("errFindReplaceNoView", {views.error()}) + "\n\n" +
             std::string(strings.Text("strFindReplaceInTerminal")));
        return nullptr;
      });
}

}  // namespace

void AddOnlineWindows(WindowFactory& windows, const shell::StringTable& strings,
                      const OnlineWindowHooks& hooks) {
  AddSignIn(windows, strings, hooks.tell);
  AddLists(windows, strings, hooks);
  AddEditor(windows, strings, hooks.tell);
}

}  // namespace quill::ui
