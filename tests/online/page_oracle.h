#pragma once
#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// Find and replace in a page read word by word, with another parser, and pages to try it on: for tests and
/// the fuzzer.
namespace quill::oracle {

/// A page whose references are left as they are written.
struct RawPage {
  explicit RawPage(const std::string& html) {
    const unsigned options = (pugi::parse_full | pugi::parse_ws_pcdata) & ~pugi::parse_escapes;
    isRead = tree.load_buffer(html.data(), html.size(), options, pugi::encoding_utf8);
  }
  pugi::xml_document tree;
  bool isRead = false;
};

inline std::string Source(pugi::xml_node node) {
  std::ostringstream out;
  node.print(out, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
  return out.str();
}

inline bool IsOneOf(const char* name, std::initializer_list<const char*> names) {
  for (const char* each : names) {
    if (std::strcmp(name, each) == 0) return true;
  }
  return false;
}

inline bool IsWithin(pugi::xml_node node, std::initializer_list<const char*> names) {
  for (node = node.parent(); node; node = node.parent()) {
    if (IsOneOf(node.name(), names)) return true;
  }
  return false;
}

/// Whether the service replaces the element where it stands.
inline bool IsReplaceable(pugi::xml_node e) {
  if (e.attribute("id").value()[0] == '\0' || IsWithin(e, {"table"})) return false;
  if (IsOneOf(e.name(), {"table", "li", "ol", "ul"})) return true;
  if (IsWithin(e, {"li"})) return false;
  return IsOneOf(e.name(), {"p", "h1", "h2", "h6"}) || (IsOneOf(e.name(), {"div"}) && IsWithin(e, {"div"}));
}

/// The id of what has to be sent for a text in this element; "" when it cannot be changed.
inline std::string TargetOf(pugi::xml_node e) {
  while (e && !IsReplaceable(e)) e = e.parent();
  return e.attribute("id").value();
}

/// A text between two breaks, as characters, and what has to be sent for it.
struct ShownText {
  std::vector<std::string> chars;
  std::string target;
};

inline std::vector<std::string> CharsOf(const std::string& source) {
  static const std::pair<const char*, const char*> kKnown[] = {{"&amp;", "&"},         {"&lt;", "<"},
                                                               {"&gt;", ">"},          {"&nbsp;", "\xC2\xA0"},
                                                               {"&#233;", "\xC3\xA9"}, {"&hearts;", "?"}};
  std::vector<std::string> chars;
  for (std::size_t at = 0; at < source.size();) {
    std::size_t length = 1;
    while (at + length < source.size() && (source[at + length] & 0xC0) == 0x80) ++length;
    std::string c = source.substr(at, length);
    for (const auto& [reference, character] : kKnown) {
      if (source.compare(at, std::strlen(reference), reference) != 0) continue;
      length = std::strlen(reference);
      c = *character == '?' ? reference : character;
    }
    chars.push_back(c == "\n" ? " " : c);
    at += length;
  }
  return chars;
}

/// Without the blanks that are not shown.
inline std::vector<std::string> Normal(const std::vector<std::string>& chars) {
  std::vector<std::string> normal;
  for (const std::string& c : chars) {
    if (c != " " || (!normal.empty() && normal.back() != " ")) normal.push_back(c);
  }
  if (!normal.empty() && normal.back() == " ") normal.pop_back();
  return normal;
}

/// The texts of a page in their order, empty ones included.
inline void ReadTexts(pugi::xml_node parent, std::vector<ShownText>& texts) {
  for (const pugi::xml_node node : parent.children()) {
    if (node.type() == pugi::node_pcdata) {
      for (const std::string& c : CharsOf(node.value())) texts.back().chars.push_back(c);
    }
    if (node.type() != pugi::node_element) continue;
    if (IsOneOf(node.name(), {"span", "a", "b", "P2"})) {
      ReadTexts(node, texts);
      continue;
    }
    texts.push_back({{}, TargetOf(node)});
    if (!IsOneOf(node.name(), {"head", "object", "br", "img"})) ReadTexts(node, texts);
    texts.push_back({{}, TargetOf(parent)});
  }
}

inline std::vector<ShownText> Texts(pugi::xml_node page) {
  std::vector<ShownText> texts = {{}};
  ReadTexts(page, texts);
  for (ShownText& text : texts) text.chars = Normal(text.chars);
  return texts;
}

/// The letters that `GrowPage` and `GrowWords` use, without their case.
inline std::string Folded(const std::string& c, bool matchesCase) {
  if (c == "\xC2\xA0") return " ";
  if (matchesCase) return c;
  if (c == "\xC3\x89") return "\xC3\xA9";  // É
  if (c == "\xE2\x84\xAA") return "k";     // the sign of Kelvin
  if (c.size() == 1 && c[0] >= 'A' && c[0] <= 'Z') return std::string(1, static_cast<char>(c[0] + 32));
  return c;
}

/// What find and replace should come to.
struct Expected {
  std::vector<std::string> texts;  ///< of the page then, without empty ones
  std::vector<std::string> ids;    ///< of the elements that hold a match
  std::size_t matches = 0;
};

inline Expected Replaced(const RawPage& page, const std::string& find, const std::string& replacement,
                         bool matchesCase) {
  const std::vector<std::string> wanted = CharsOf(find);
  Expected expected;
  for (const ShownText& text : Texts(page.tree)) {
    std::vector<std::string> chars;
    for (std::size_t at = 0; at < text.chars.size();) {
      std::size_t same = 0;
      while (same < wanted.size() && at + same < text.chars.size() &&
             Folded(text.chars[at + same], matchesCase) == Folded(wanted[same], matchesCase))
        ++same;
      if (wanted.empty() || same < wanted.size() || text.target.empty()) {
        chars.push_back(text.chars[at++]);
        continue;
      }
      for (const std::string& c : CharsOf(replacement)) chars.push_back(c);
      at += wanted.size();
      ++expected.matches;
      if (expected.ids.empty() || expected.ids.back() != text.target) expected.ids.push_back(text.target);
    }
    std::string shown;
    for (const std::string& c : Normal(chars)) shown += c;
    if (!shown.empty()) expected.texts.push_back(shown);
  }
  return expected;
}

inline std::vector<std::string> TextsShown(const RawPage& page) {
  std::vector<std::string> texts;
  for (const ShownText& text : Texts(page.tree)) {
    std::string shown;
    for (const std::string& c : text.chars) shown += c;
    if (!shown.empty()) texts.push_back(shown);
  }
  return texts;
}

inline pugi::xml_node FindById(pugi::xml_node page, const std::string& id) {
  return page.find_node([&](pugi::xml_node node) { return id == node.attribute("id").value(); });
}

/// What the service does with a list of changes. An empty text when a change has no target, or when its
/// content is not one element.
inline std::string Applied(const std::string& html, const std::string& json) {
  RawPage page(html);
  for (const nlohmann::json& change : nlohmann::json::parse(json)) {
    const pugi::xml_node old = FindById(page.tree, change.at("target"));
    const RawPage content(change.at("content").get<std::string>());
    if (!old || !content.isRead || content.tree.first_child() != content.tree.last_child()) return {};
    old.parent().insert_copy_after(content.tree.first_child(), old);
    old.parent().remove_child(old);
  }
  return Source(page.tree);
}

/// The tags alone, without ids.
inline std::string Skeleton(const std::string& html) {
  RawPage page(html);
  std::vector<pugi::xml_node> texts;
  struct Walker : pugi::xml_tree_walker {
    std::vector<pugi::xml_node>* texts = nullptr;
    bool for_each(pugi::xml_node& node) override {
      node.remove_attribute("id");
      if (node.type() == pugi::node_pcdata) texts->push_back(node);
      return true;
    }
  } walker;
  walker.texts = &texts;
  page.tree.traverse(walker);
  for (pugi::xml_node text : texts) text.parent().remove_child(text);
  return Source(page.tree);
}

/// Everything that has to be true of a list of changes; the first thing that is not, or "".
inline std::string Fault(const std::string& html, const std::string& json, const Expected& expected) {
  const RawPage page(html);
  if (json.empty()) return expected.ids.empty() ? "" : "nothing is sent";
  std::vector<std::string> sent;
  for (const nlohmann::json& change : nlohmann::json::parse(json)) {
    const std::string id = change.at("target"), content = change.at("content");
    const pugi::xml_node old = FindById(page.tree, id);
    if (change.at("action") != "replace" || !old) return "no replacement of an element: " + id;
    if (!IsReplaceable(old)) return "the service cannot replace " + id;
    if (content.find(" id=") != std::string::npos) return "ids are sent: " + content;
    if (Skeleton(content) != Skeleton(Source(old))) return "other tags: " + content;
    sent.push_back(id);
  }
  // The elements with a match, but for those within another of them.
  std::vector<std::string> wanted;
  for (const std::string& id : expected.ids) {
    const std::set<std::string> all(expected.ids.begin(), expected.ids.end());
    bool isInside = false;
    for (pugi::xml_node up = FindById(page.tree, id).parent(); up; up = up.parent())
      isInside = isInside || all.count(up.attribute("id").value()) > 0;
    if (!isInside && std::find(wanted.begin(), wanted.end(), id) == wanted.end()) wanted.push_back(id);
  }
  if (std::set<std::string>(sent.begin(), sent.end()) !=
          std::set<std::string>(wanted.begin(), wanted.end()) ||
      sent.size() != wanted.size())
    return "other elements are sent: " + json;
  std::size_t last = 0;
  for (const std::string& id : sent) {
    const std::size_t at = html.find("id=\"" + id + "\"");
    if (at < last) return "not in the order of the page";
    last = at;
  }
  const std::string now = Applied(html, json);
  if (TextsShown(RawPage(now)) != expected.texts) return "another text: " + now;
  return "";
}

/// A page of anything within anything: each byte of the seed is one step.
inline std::string GrowPage(std::string_view seed) {
  static const char* const kNames[] = {"p",   "span", "li", "ol", "td", "table",
                                       "div", "h2",   "a",  "b",  "tr", "P2"};
  static const char* const kPieces[] = {"a",
                                        "b",
                                        "A",
                                        "k",
                                        "K",
                                        " ",
                                        "\n ",
                                        "\xC2\xA0",
                                        "&nbsp;",
                                        "&amp;",
                                        "&#233;",
                                        "\xC3\x89",
                                        "\xE2\x84\xAA",
                                        "\xC4\xB0",
                                        "&lt;",
                                        "&hearts;",
                                        "ab",
                                        "<br />",
                                        "<img src=\"x?a=1&amp;b=2\" />",
                                        "<!-- a -->",
                                        "<object data-attachment='a>b'>a</object>",
                                        "i"};
  std::vector<std::string> open;
  std::string page =
      "<html><head><title>ab</title></head><body><div id=\"div:{d1}{39}\" data-id=\"_default\">";
  int count = 0;
  for (const char c : seed) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0xC0 && open.size() < 40) {
      open.emplace_back(kNames[byte / 4 % std::size(kNames)]);
      page += "<" + open.back();
      if (byte % 4 != 0) page += " id=\"" + open.back() + ":{g" + std::to_string(++count) + "}{1}\"";
      page += byte % 4 == 3 ? " data-tag='to-do:completed' data-id=\"a\">" : ">";
    } else if (byte >= 0x90) {
      if (open.empty()) continue;
      page += "</" + open.back() + ">";
      open.pop_back();
    } else {
      page += kPieces[byte % std::size(kPieces)];
    }
  }
  for (; !open.empty(); open.pop_back()) page += "</" + open.back() + ">";
  return page + "</div></body></html>";
}

/// A few typed characters.
inline std::string GrowWords(std::string_view seed) {
  static const char* const kPieces[] = {"a",  "b", "A",        "k", " ",        "\xC2\xA0", "\xC3\xA9",
                                        "&",  "<", "\xC4\xB0", "i", "\xC3\x89", ">",        "\xE2\x84\xAA",
                                        "ab", "K"};
  std::string words;
  for (const char c : seed) words += kPieces[static_cast<unsigned char>(c) % std::size(kPieces)];
  return words;
}

}  // namespace quill::oracle
