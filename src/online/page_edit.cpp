#include "online/page_edit.h"

#include <algorithm>
#include <utility>

#include "content/entities.h"
#include "content/unicode_text.h"
#include "content/xml_chars.h"
#include "online/block_text.h"
#include "online/change_list.h"
#include "online/page_scanner.h"
#include "online/page_targets.h"
#include "online/text_pattern.h"

namespace quill::online {
namespace {

/// A typed text as it stands in the source. What may stand in no page is left out.
std::string AsSource(std::string_view typed) {
  std::string allowed;
  while (!typed.empty()) {
    const std::size_t end = std::min(content::FindForbiddenChar(typed), typed.size());
    allowed += typed.substr(0, end);
    if (end == typed.size()) break;
    typed.remove_prefix(end + std::max<std::size_t>(content::DecodeUtf8(typed, end).length, 1));
  }
  return content::EscapeXmlText(allowed);
}

/// One reading of a page, from top to bottom.
class Replacing {
 public:
  Replacing(std::string_view html, std::string_view find, std::string_view replacement, bool matchesCase)
      : m_html(html), m_pattern(find, matchesCase), m_replacement(AsSource(replacement)) {}

  PageEdit Run() {
    PageScanner scanner(m_html);
    for (PageToken token = scanner.Next(); token.kind != PageToken::Kind::PageEnd; token = scanner.Next())
      Read(token);
    return Edit();
  }

 private:
  void Read(const PageToken& token) {
    if (token.kind == PageToken::Kind::Text) {
      if (m_targets.Current() != PageTargets::kNone && !m_targets.IsHidden())
        m_block.Append(m_html, token.where);
      return;
    }
    if (token.kind == PageToken::Kind::Unseen) return;
    if (MannerOf(token.name).breaksText) EndBlock();
    if (token.kind == PageToken::Kind::EndTag) return m_targets.Leave(token);
    auto id = FindId(m_html, token);
    if (id) m_ids.push_back({id->where, {}});
    if (token.kind == PageToken::Kind::StartTag) m_targets.Enter(token, id ? std::move(id->value) : "");
  }

  /// Only elements that end a block change the target, so all of a block has the same.
  void EndBlock() {
    m_block.Finish();
    for (const std::size_t at : m_pattern.FindAll(m_block.Codes())) {
      std::string_view text = m_replacement;
      for (const SourceRange& range : m_block.RangesOf(at, at + m_pattern.Length()))
        m_texts.push_back({range, std::exchange(text, {})});
      m_targets.all[m_targets.Current()].isChanged = true;
      ++m_matchCount;
    }
    m_block.Clear();
  }

  /// An element within another that is sent goes with it.
  PageEdit Edit() const {
    const auto begin = [](const SourceEdit& edit) { return edit.where.begin; };
    std::vector<SourceEdit> edits;
    std::ranges::merge(m_texts, m_ids, std::back_inserter(edits), {}, begin, begin);
    ChangeList changes;
    std::size_t sentUpTo = 0;
    for (const PageTarget& target : m_targets.all) {
      if (!target.isChanged || target.where.begin < sentUpTo) continue;
      changes.Replace(target.id, EditedSource(m_html, target.where, edits));
      sentUpTo = target.where.end;
    }
    return {m_matchCount, changes.Size(), changes.Json()};
  }

  std::string_view m_html;
  TextPattern m_pattern;
  std::string m_replacement;
  PageTargets m_targets;
  BlockText m_block;
  std::vector<SourceEdit> m_texts;  ///< of the matches
  std::vector<SourceEdit> m_ids;    ///< of all elements: the service gives new ones
  std::size_t m_matchCount = 0;
};

}  // namespace

Result<PageEdit> ReplaceInPage(std::string_view pageHtml, std::string_view find, std::string_view replacement,
                               bool matchesCase) {
  const Status<> check = CheckPageHtml(pageHtml);
  if (!check.ok()) return Failure{check.error()};
  return Replacing(pageHtml, find, replacement, matchesCase).Run();
}

}  // namespace quill::online
