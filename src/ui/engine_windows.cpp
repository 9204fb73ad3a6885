#include "ui/engine_windows.h"

#include "shell/engine_requests.h"
#include "shell/equation_request.h"
#include "ui/equation_host.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/equation/win_latex.h"
#include "ui/windows/phonetics/win_phonetics.h"
#include "ui/windows/syntax/win_syntax_highlight.h"

namespace quill::ui {

void AddEngineWindows(WindowFactory& windows, const shell::StringTable& strings, EquationHost& equations,
                      std::function<void(const std::string&)> tell) {
  windows.AddPlainDialog<shell::SyntaxHighlightRequest, MWinSyntaxHighlight>(strings);
  windows.AddPlainDialog<shell::PhoneticsRequest, MWinPhonetics>(strings);
  windows.AddDialog<shell::EquationRequest>(
      [&strings, &equations, tell](const shell::EquationRequest& request, MWinLaTeX::Done done) -> QWidget* {
        const Result<EquationView*> view = equations.View(request.mathJaxAddress);
        if (view.ok()) return new MWinLaTeX(strings, **view, request, std::move(done));
        done(std::nullopt);
        tell(strings.Format("errPluginMissing", {view.error()}));
        return nullptr;
      });
}

}  // namespace quill::ui
