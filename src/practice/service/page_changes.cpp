#include "practice/service/page_changes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "content/unicode_text.h"
#include "practice/service/added_content.h"
#include "practice/service/html_reader.h"
#include "practice/service/html_writer.h"
#include "practice/service/online_ids.h"

namespace quill::practice {
namespace {

using std::string_view;

/// What the service does with which element. All others (td, tr, span, a, …) it only changes as part of one
/// of these.
struct Rule {
  string_view kind;
  bool replace;
  bool append;
  bool insert;
};
constexpr Rule kRules[] = {
    {"title", true, false, false}, {"body", false, true, false}, {"div", true, true, true},
    {"p", true, false, true},      {"h1", true, false, true},    {"h2", true, false, true},
    {"h3", true, false, true},     {"h4", true, false, true},    {"h5", true, false, true},
    {"h6", true, false, true},     {"li", true, false, true},    {"ul", true, true, true},
    {"ol", true, true, true},      {"table", true, false, true}, {"img", true, false, true},
};

bool IsAllowed(string_view kind, ChangeAction action) {
  const auto* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                        [&](const Rule& entry) { return entry.kind == kind; });
  if (rule == std::end(kRules)) return false;
  switch (action) {
    case ChangeAction::Replace:
      return rule->replace;
    case ChangeAction::Append:
      return rule->append;
    case ChangeAction::Insert:
      return rule->insert;
  }
  return false;
}

bool IsList(string_view name) {
  return name == "ul" || name == "ol";
}

/// Marks where what is added goes.
pugi::xml_node MakePlace(pugi::xml_node target, const Change& change) {
  constexpr const char* kName = "place";
  pugi::xml_node parent = target.parent();
  if (change.action == ChangeAction::Append) {
    return change.before ? target.prepend_child(kName) : target.append_child(kName);
  }
  return change.before ? parent.insert_child_before(kName, target) : parent.insert_child_after(kName, target);
}

/// The text of a title: without markup, its blanks as single ones.
std::string PlainLine(pugi::xml_node added) {
  std::string line;
  for (const pugi::xpath_node found : added.select_nodes(".//text()")) {
    for (const char c : string_view(found.node().value())) {
      const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
      if (!isBlank) line += c;
      if (isBlank && !line.empty() && line.back() != ' ') line += ' ';
    }
  }
  return std::string(content::TrimBlanks(line));
}

}  // namespace

ChangedPage::ChangedPage(const LibraryContent& content, string_view pageGuid)
    : m_body(m_document.append_child("body")),
      m_gone(m_document.append_child("gone")),
      m_title(content.title) {
  m_isReadable = AppendHtml(m_body, content.body).ok();
  const OnlineIds ids(content, pageGuid, m_body);
  for (const ElementWithId& element : ids.Elements()) m_byId.emplace(ids.IdOf(element), element.element);
  m_byId.emplace(ids.IdOfAll(), m_body);
}

LibraryContent ChangedPage::Content() const {
  return {m_title, PageHtml(m_body)};
}

bool ChangedPage::IsOnPage(pugi::xml_node element) const {
  while (element && element != m_body) element = element.parent();
  return !element.empty();
}

std::optional<ChangedPage::Target> ChangedPage::Find(string_view target) const {
  if (target == "title") return Target{{}, "title"};
  if (target == "body" || target == "#_default") return Target{m_body, "body"};
  pugi::xml_node element;
  if (target.starts_with('#')) {
    element = m_body.find_node(
        [&](pugi::xml_node node) { return node.attribute("data-id").value() == target.substr(1); });
  } else if (const auto known = m_byId.find(std::string(target)); known != m_byId.end()) {
    element = known->second;
  }
  if (!element || !IsOnPage(element)) return std::nullopt;
  const string_view kind = OnlineName(element.name());
  return Target{element, kind.empty() ? string_view(element.name()) : kind};
}

std::optional<ChangeProblem> ChangedPage::Apply(const Change& change) {
  if (!m_isReadable) return ChangeProblem{500, std::string(kBadRequest), "The page cannot be read."};
  const std::optional<Target> target = Find(change.target);
  if (!target)
    return Refusal(kTargetNotFound, fmt::format("The target \"{}\" was not found.", change.target));
  if (!IsAllowed(target->kind, change.action)) {
    return Refusal(kNotForThisTarget,
                   fmt::format("An element \"{}\" does not know this action.", target->kind));
  }
  const pugi::xml_node added = m_document.append_child("added");
  if (const Status<> read = AppendHtml(added, change.content); !read.ok())
    return Refusal(kBadRequest, read.error());
  if (!added.first_child()) return Refusal(kBadRequest, "The content has nothing that a page can hold.");
  target->element ? Put(target->element, change, added) : ReplaceTitle(added);
  m_document.remove_child(added);
  return std::nullopt;
}

void ChangedPage::ReplaceTitle(pugi::xml_node added) {
  m_title = PlainLine(added);
}

void ChangedPage::Put(pugi::xml_node target, const Change& change, pugi::xml_node added) {
  const string_view name = target.name();
  const pugi::xml_node place = MakePlace(target, change);
  if (IsList(place.parent().name())) {
    MakeItems(added, change.action == ChangeAction::Append || name == "li");
  } else if (name != "img" || HasBlocks(added)) {
    MakeBlocks(added);
  }
  if (change.action == ChangeAction::Replace) m_gone.append_move(target);
  if (!IsList(place.parent().name()) && HasBlocks(added)) LiftOutOfParagraph(place, m_gone);
  while (const pugi::xml_node node = added.first_child()) place.parent().insert_move_before(node, place);
  place.parent().remove_child(place);
}

Result<LibraryContent, ChangeProblem> ApplyChanges(const LibraryContent& content, string_view pageGuid,
                                                   string_view json) {
  const Result<std::vector<Change>, ChangeProblem> changes = ParseChanges(json);
  if (!changes.ok()) return Failure{changes.error()};
  ChangedPage page(content, pageGuid);
  for (const Change& change : *changes) {
    if (const std::optional<ChangeProblem> problem = page.Apply(change)) return Failure{*problem};
  }
  return page.Content();
}

}  // namespace quill::practice
