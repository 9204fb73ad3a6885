#include "tools/phonetics.h"

#include "content/html_normalizer.h"
#include "content/unicode_text.h"
#include "content/working_document.h"

namespace quill::tools {
namespace {

/// The node after this one, depth first, within `root`; null at the end.
pugi::xml_node NextNode(pugi::xml_node node, pugi::xml_node root) {
  if (node.first_child()) return node.first_child();
  while (node != root && !node.next_sibling()) node = node.parent();
  return node == root ? pugi::xml_node() : node.next_sibling();
}

bool IsText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// The first text that shows something; null when there is none.
pugi::xml_node FirstText(pugi::xml_node root) {
  for (pugi::xml_node node = root.first_child(); node; node = NextNode(node, root)) {
    if (IsText(node) && !content::TrimWhite(node.value()).empty()) return node;
  }
  return {};
}

}  // namespace

std::int64_t InsertPhonestics(pugi::xml_node element, const AskForPhonetic& ask) {
  const pugi::xml_node text = FirstText(element);
  if (!text) return 0;
  const std::optional<std::string> phonetic = ask(text.value());
  if (!phonetic) return 0;
  pugi::xml_node span = text.parent().insert_child_after("span", text);
  span.append_attribute("style").set_value("font-family:Calibri;");
  span.append_child(pugi::node_pcdata).set_value((" (" + *phonetic + ") ").c_str());
  return 1;
}

PhoneticInsertion InsertPhonetics(std::string_view fragmentOrWord, const AskForPhonetic& ask) {
  PhoneticInsertion insertion;
  if (fragmentOrWord.find('<') == std::string_view::npos) {
    if (content::TrimWhite(fragmentOrWord).empty()) return insertion;
    const std::string word(fragmentOrWord);
    const std::optional<std::string> phonetic = ask(word);
    if (!phonetic) return insertion;
    insertion.result = 1;
    insertion.html = word + " (" + *phonetic + ") ";
    return insertion;
  }
  auto document = content::WorkingDocument::Parse(content::HtmlToXml(fragmentOrWord));
  if (!document) {
    insertion.isNotWellFormed = true;
    return insertion;
  }
  insertion.result = InsertPhonestics(document->Root(), ask);
  if (insertion.result > 0) insertion.html = content::XmlToHtml(document->Xml());
  return insertion;
}

}  // namespace quill::tools
