#include "practice/service/online_page.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "practice/service/html_reader.h"
#include "practice/service/html_writer.h"
#include "practice/service/online_ids.h"
#include "practice/service/page_elements.h"

namespace quill::practice {
namespace {

using std::string_view;

/// Pages keep no time of their making, so all tell the same.
constexpr string_view kCreated = "2024-01-02T09:30:00.0000000";
constexpr string_view kOutline = "position:absolute;left:48px;top:120px;width:624px";

/// Elements that an editor makes and the service does not have, as the style that means the same.
constexpr std::pair<string_view, string_view> kAsStyle[] = {{"b", "font-weight:bold"},
                                                            {"strong", "font-weight:bold"},
                                                            {"i", "font-style:italic"},
                                                            {"em", "font-style:italic"},
                                                            {"u", "text-decoration:underline"},
                                                            {"s", "text-decoration:line-through"},
                                                            {"strike", "text-decoration:line-through"},
                                                            {"code", "font-family:Consolas"},
                                                            {"sup", "vertical-align:super"},
                                                            {"sub", "vertical-align:sub"}};

string_view StyleInsteadOf(string_view name) {
  const auto* const row = std::find_if(std::begin(kAsStyle), std::end(kAsStyle),
                                       [&](const auto& entry) { return entry.first == name; });
  return row == std::end(kAsStyle) ? string_view() : row->second;
}

/// Writes a page's content as the service does.
class OnlineWriter {
 public:
  /// Gives ids to the elements of `ids`; none without.
  explicit OnlineWriter(const OnlineIds* ids) {
    if (ids == nullptr) return;
    for (const ElementWithId& element : ids->Elements()) {
      m_ids.emplace(element.element.internal_object(), ids->IdOf(element));
    }
  }

  void WriteInside(pugi::xml_node parent) {
    for (const pugi::xml_node child : parent.children()) Write(child);
  }

  std::string out;

 private:
  void Write(pugi::xml_node node) {
    const string_view name = node.name();
    if (node.type() == pugi::node_pcdata) return WriteText(node);
    if (name == "hr") return;
    if (name == "blockquote") return WriteInside(node);
    const string_view style = StyleInsteadOf(name);
    const string_view known = OnlineName(name);
    const string_view written = !style.empty() ? string_view("span") : known.empty() ? name : known;
    out.append("<").append(written);
    if (const auto id = m_ids.find(node.internal_object()); id != m_ids.end())
      AppendAttribute(out, "id", id->second);
    if (!style.empty()) AppendAttribute(out, "style", style);
    WriteAttributes(node, !style.empty());
    if (IsVoidElement(name)) return void(out += " />");
    out += '>';
    WriteInside(node);
    out.append("</").append(written).append(">");
  }

  void WriteAttributes(pugi::xml_node node, bool hasStyle) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
      if (hasStyle && string_view(attribute.name()) == "style") continue;
      AppendAttribute(out, attribute.name(), attribute.value());
      if (string_view(attribute.name()) == "src") AppendAttribute(out, "data-fullres-src", attribute.value());
    }
  }

  /// A line feed of preformatted text ends a line; paragraphs have `br` for that.
  void WriteText(pugi::xml_node text) {
    string_view rest = text.value();
    if (string_view(text.parent().name()) == "pre") {
      for (std::size_t end = rest.find('\n'); end != string_view::npos; end = rest.find('\n')) {
        AppendText(out, rest.substr(0, end));
        out += "<br />";
        rest.remove_prefix(end + 1);
      }
    }
    AppendText(out, rest);
  }

  std::unordered_map<pugi::xml_node_struct*, std::string> m_ids;
};

}  // namespace

std::string OnlinePageHtml(const LibraryContent& content, string_view pageGuid, bool hasIds) {
  pugi::xml_document document;
  pugi::xml_node body = document.append_child("body");
  if (!AppendHtml(body, content.body).ok()) body.append_child("p");
  const OnlineIds ids(content, pageGuid, body);
  OnlineWriter writer(hasIds ? &ids : nullptr);
  std::string& out = writer.out;
  out += "<html lang=\"en-US\">\n\t<head>\n\t\t<title>";
  AppendText(out, content.title);
  out += "</title>\n\t\t<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\" />\n\t\t<meta";
  AppendAttribute(out, "name", "created");
  AppendAttribute(out, "content", kCreated);
  out +=
      " />\n\t</head>\n\t<body data-absolute-enabled=\"true\" "
      "style=\"font-family:Calibri;font-size:11pt\">\n\t\t<div";
  if (hasIds) AppendAttribute(out, "id", ids.IdOfAll());
  AppendAttribute(out, "data-id", "_default");
  AppendAttribute(out, "style", kOutline);
  out += ">\n";
  writer.WriteInside(body);
  out += "\n\t\t</div>\n\t</body>\n</html>\n";
  return std::move(out);
}

}  // namespace quill::practice
