#include "shell/engine_requests.h"
#include "shell/equation_request.h"
#include "tools/phonetics_dictionaries.h"
#include "ui/content_windows.h"
#include "ui/equation_host.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/equation/win_latex.h"
#include "ui/windows/phonetics/win_phonetics.h"
#include "ui/windows/syntax/win_syntax_highlight.h"

namespace quill::ui {

void AddEngineWindows(WindowFactory& windows, const shell::StringTable& strings, EquationHost& equations,
                      std::function<void(const std::string&)> tell) {
  windows.AddDialog<shell::SyntaxHighlightRequest>(
      [&strings](const shell::SyntaxHighlightRequest& request, MWinSyntaxHighlight::Done done) {
        return new MWinSyntaxHighlight(strings, request, std::move(done));
      });
  windows.AddDialog<shell::PhoneticsRequest>(
      [&strings](const shell::PhoneticsRequest& request, MWinPhonetics::Done done) {
        return new MWinPhonetics(strings, tools::DictionaryHostsOfEnvironment(), request, std::move(done));
      });
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
