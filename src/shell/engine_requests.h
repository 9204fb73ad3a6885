#pragma once
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "tools/phonetics_lookup.h"
#include "tools/syntax_highlight.h"

namespace quill::shell {

// The dialogs of the tools with an engine behind them. What they call to try something out may take seconds:
// it is called on a worker thread, by one such thread at a time.

/// Asked now and then by work that can be ended; true ends it.
using IsCancelled = std::function<bool()>;

/// Code as a page shows it, or why not. A problem without words (`HighlightProblem::NoCode`, `Cancelled`) is
/// silent.
using HighlightCode = std::function<Result<std::string, tools::HighlightFailure>(
    const tools::HighlightRequest&, const IsCancelled&)>;

/// What came of `MWinSyntaxHighlight`.
struct SyntaxChoice {
  tools::HighlightRequest request;  ///< the fields as they are
  std::string html;  ///< the document to insert; empty when the user gave up after a run that failed
};

/// `MWinSyntaxHighlight`: asks for code and how it shall look.
struct SyntaxHighlightRequest {
  using Answer = SyntaxChoice;
  tools::HighlightRequest remembered;  ///< all fields but the code
  HighlightCode highlight;             ///< for the result
  HighlightCode preview;               ///< the same with files of its own, for the preview
};

/// Finds the transcription of a word.
using FindPhonetic = std::function<tools::PhoneticAnswer(const std::string& language, const std::string& word,
                                                         const IsCancelled&)>;

/// What came of `MWinPhonetics`.
struct PhoneticChoice {
  std::string language;  ///< as the box had it when OK was pressed last
  std::string phonetic;  ///< empty when the user gave up after a search that found nothing
};

/// `MWinPhonetics`: asks for the transcription of a word.
struct PhoneticsRequest {
  using Answer = PhoneticChoice;
  std::string word;
  std::string language;  ///< one of `tools::PhoneticLanguages`; another selects none
  FindPhonetic find;
  tools::DictionaryHosts hosts = {};  ///< by which the dictionaries that answer are named
};

}  // namespace quill::shell
