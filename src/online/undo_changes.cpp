#include <algorithm>
#include <set>

#include "content/xml_chars.h"
#include "online/change_list.h"
#include "online/page_edit.h"
#include "online/page_scanner.h"

namespace quill::online {
namespace {

using Kind = PageToken::Kind;

/// The body of a page piece by piece, without the white space between elements, which the service writes as
/// it likes.
class BodyScanner {
 public:
  explicit BodyScanner(std::string_view html) : m_html(html), m_scanner(html) {
    do {
      Next();
    } while (m_token.kind != Kind::PageEnd && !(m_token.IsElement() && m_token.name == "body"));
  }

  const PageToken& token() const { return m_token; }
  /// Of the piece, when it is an element with one.
  const std::optional<IdAttribute>& id() const { return m_id; }

  void Next() {
    do {
      m_token = m_scanner.Next();
    } while (m_token.kind == Kind::Text && IsSpace(m_scanner.SourceOf(m_token.where)));
    m_id = m_token.IsElement() ? FindId(m_html, m_token) : std::nullopt;
  }

  /// The source of the piece, of a tag without its id.
  std::string Source() const { return EditedSource(m_html, m_token.where, IdEdits()); }

  /// Goes on behind the element that begins here. Its source without ids. O(element).
  std::string TakeElement() {
    SourceRange element = m_token.where;
    std::vector<SourceEdit> ids = IdEdits();
    for (std::size_t depth = m_token.kind == Kind::StartTag ? 1 : 0; depth > 0;) {
      Next();
      if (m_token.kind == Kind::PageEnd) break;
      if (m_id) ids.push_back({m_id->where, {}});
      depth += m_token.kind == Kind::StartTag ? 1 : 0;
      depth -= m_token.kind == Kind::EndTag ? 1 : 0;
      element.end = m_token.where.end;
    }
    Next();
    return EditedSource(m_html, element, ids);
  }

 private:
  static bool IsSpace(std::string_view text) { return std::ranges::all_of(text, content::IsXmlSpace); }

  std::vector<SourceEdit> IdEdits() const {
    return m_id ? std::vector<SourceEdit>{{m_id->where, {}}} : std::vector<SourceEdit>{};
  }

  std::string_view m_html;
  PageScanner m_scanner;
  PageToken m_token;
  std::optional<IdAttribute> m_id;
};

Failure<std::string> Fault(const char* words) {
  return {words};
}

/// Ids change and the order of elements stays, so the two pages are read side by side.
Result<std::string> OldContents(std::string_view before, std::set<std::string> targets,
                                std::string_view now) {
  ChangeList changes;
  BodyScanner old(before);
  BodyScanner current(now);
  while (old.token().kind != Kind::PageEnd || current.token().kind != Kind::PageEnd) {
    if (old.id() && targets.erase(old.id()->value) > 0) {
      const bool fits = current.id() && current.token().name == old.token().name;
      if (!fits) return Fault("a changed element is not where it was");
      const std::string id = current.id()->value;
      changes.Replace(id, old.TakeElement());
      current.TakeElement();
      continue;
    }
    if (old.token().kind != current.token().kind || old.Source() != current.Source())
      return Fault("the page differs beside the changed elements");
    old.Next();
    current.Next();
  }
  if (!targets.empty()) return Fault("a changed element was not in the page");
  return changes.Json();
}

}  // namespace

Result<std::string> UndoChanges(std::string_view before, std::string_view changes, std::string_view now) {
  const auto ids = ReplacedIds(changes);
  if (!ids.ok()) return Failure{ids.error()};
  for (const std::string_view page : {before, now}) {
    const Status<> check = CheckPageHtml(page);
    if (!check.ok()) return Failure{check.error()};
  }
  return OldContents(before, {ids->begin(), ids->end()}, now);
}

}  // namespace quill::online
