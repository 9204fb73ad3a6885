#include "online/page_targets.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quill::online {
namespace {

struct NamedManner {
  std::string_view name;
  ElementManner manner;
};

constexpr ElementManner kBlock = {true, false};
constexpr ElementManner kObject = {true, true};

// Sorted by name.
constexpr NamedManner kManners[] = {
    {"address", kBlock},    {"article", kBlock},   {"aside", kBlock},      {"audio", kObject},
    {"blockquote", kBlock}, {"body", kBlock},      {"br", kBlock},         {"canvas", kObject},
    {"caption", kBlock},    {"col", kBlock},       {"colgroup", kBlock},   {"dd", kBlock},
    {"details", kBlock},    {"div", kBlock},       {"dl", kBlock},         {"dt", kBlock},
    {"embed", kObject},     {"fieldset", kBlock},  {"figcaption", kBlock}, {"figure", kBlock},
    {"footer", kBlock},     {"form", kBlock},      {"h1", kBlock},         {"h2", kBlock},
    {"h3", kBlock},         {"h4", kBlock},        {"h5", kBlock},         {"h6", kBlock},
    {"head", kObject},      {"header", kBlock},    {"hr", kBlock},         {"html", kBlock},
    {"iframe", kObject},    {"img", kObject},      {"input", kObject},     {"legend", kBlock},
    {"li", kBlock},         {"main", kBlock},      {"nav", kBlock},        {"object", kObject},
    {"ol", kBlock},         {"p", kBlock},         {"pre", kBlock},        {"script", kObject},
    {"section", kBlock},    {"select", kObject},   {"style", kObject},     {"summary", kBlock},
    {"svg", kObject},       {"table", kBlock},     {"tbody", kBlock},      {"td", kBlock},
    {"template", kObject},  {"textarea", kObject}, {"tfoot", kBlock},      {"th", kBlock},
    {"thead", kBlock},      {"title", kObject},    {"tr", kBlock},         {"ul", kBlock},
    {"video", kObject},
};
static_assert(std::ranges::is_sorted(kManners, {}, &NamedManner::name));

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string Lower(std::string_view name) {
  std::string lower;
  std::ranges::transform(name, std::back_inserter(lower), LowerAscii);
  return lower;
}

bool IsParagraph(std::string_view name) {
  return name == "p" || (name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6');
}

}  // namespace

ElementManner MannerOf(std::string_view name) {
  const std::string lower = Lower(name);
  const auto* row = std::ranges::lower_bound(kManners, std::string_view(lower), {}, &NamedManner::name);
  return row != std::end(kManners) && row->name == lower ? row->manner : ElementManner{};
}

void PageTargets::Enter(const PageToken& tag, std::string id) {
  const std::string name = Lower(tag.name);
  Level level = m_open.empty() ? Level{} : m_open.back();
  level.isOwn = false;
  level.isHidden = level.isHidden || MannerOf(name).hidesText;
  bool canReplace = false;
  if (name == "table") {
    canReplace = !level.isInTable;
    level.isInTable = true;
  } else if (!level.isInTable) {
    const bool isDiv = name == "div";
    const bool isItem = name == "li";
    const bool isFree = !level.isInItem && (IsParagraph(name) || (isDiv && level.isInDiv));
    canReplace = isFree || isItem || name == "ol" || name == "ul";
    level.isInItem = level.isInItem || isItem;
    level.isInDiv = level.isInDiv || isDiv;
  }
  if (canReplace && !id.empty()) {
    level.isOwn = true;
    level.target = all.size();
    all.push_back({std::move(id), tag.where, false});
  }
  m_open.push_back(level);
}

void PageTargets::Leave(const PageToken& endTag) {
  if (m_open.empty()) return;
  if (m_open.back().isOwn) all[m_open.back().target].where.end = endTag.where.end;
  m_open.pop_back();
}

}  // namespace quill::online
