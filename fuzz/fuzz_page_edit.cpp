// Pages that are built from the input: what is sent for a text makes the page that a slow reading expects,
// and taking it back makes the page that it was. Pages that are the input itself: nothing but an answer.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "online/page_edit.h"
#include "online/page_oracle.h"

namespace {

namespace oracle = quill::oracle;
using namespace quill::online;
using std::string;

void Check(bool isTrue) {
  if (!isTrue) std::abort();
}

void CheckGrown(const string& html, const string& find, const string& replacement, bool matchesCase) {
  const auto edit = ReplaceInPage(html, find, replacement, matchesCase);
  Check(edit.ok());
  const auto expected = oracle::Replaced(oracle::RawPage(html), find, replacement, matchesCase);
  Check(edit->matchCount == expected.matches);
  Check(oracle::Fault(html, edit->json, expected).empty());
  if (edit->json.empty()) return;
  // The service would give new ids; without any the elements are not found again.
  Check(!UndoChanges(html, edit->json, oracle::Applied(html, edit->json)).ok());
  const auto undo = UndoChanges(html, edit->json, html);
  Check(undo.ok());
  Check(oracle::TextsShown(oracle::RawPage(oracle::Applied(html, *undo))) ==
        oracle::TextsShown(oracle::RawPage(html)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const string text(reinterpret_cast<const char*>(data) + 2, size - 2);
  const string find = text.substr(0, data[0] % 6);
  const string rest = text.substr(find.size());
  const string replacement = rest.substr(0, data[0] / 6 % 6);
  const bool matchesCase = data[1] % 2 == 0;
  if (size < 160)
    CheckGrown(oracle::GrowPage(rest), oracle::GrowWords(find), oracle::GrowWords(replacement), matchesCase);
  const auto edit = ReplaceInPage(text, find, replacement, matchesCase);
  if (edit.ok() && !edit->json.empty()) static_cast<void>(UndoChanges(text, edit->json, text));
  return 0;
}
