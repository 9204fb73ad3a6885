#pragma once
#include <libxml/parser.h>

#include <memory>
#include <string>
#include <vector>

/// What the service sends, and another parser to read pages and exports with.
namespace quill::samples {

inline constexpr const char* kLink =
    "onenote:https://d.docs.live.net/7c1f/Documents/Home/"
    "Minutes.one#Week%2012&section-id={5D}&page-id={8A}&end";
inline constexpr const char* kParagraph =
    "onenote:https://d.docs.live.net/7c1f/Documents/Home/"
    "Minutes.one#Week%2012&section-id={5D}&page-id={8A}&object-id=";

/// A page as the service writes it, around this content.
inline std::string Page(const std::string& content) {
  return "<html lang=\"en-US\">\r\n\t<head>\r\n\t\t<title>Week 12 &amp; 13</title>\r\n\t\t<meta "
         "name=\"created\" "
         "content=\"2024-03-18T09:12:00.0000000\" />\r\n\t</head>\r\n\t<body data-absolute-enabled=\"true\" "
         "style=\"font-family:Calibri;font-size:11pt\">\r\n\t\t<div id=\"div:{d1}{39}\" data-id=\"_default\" "
         "style=\"position:absolute;left:48px\">" +
         content + "<!-- InkNode is not supported --></div>\r\n\t</body>\r\n</html>";
}

/// An entry of a list, with the links that each has.
inline std::string Entry(const std::string& link, const std::string& fields) {
  return R"({"links":{"oneNoteClientUrl":{"href":")" + link + R"("},"oneNoteWebUrl":{"href":"https://w/)" +
         std::to_string(link.size()) + "\"}}," + fields + "}";
}

inline std::string List(const std::vector<std::string>& entries) {
  std::string body = R"({"@odata.context":"https://g/$metadata","value":[)";
  for (const std::string& entry : entries) body += (body.back() == '[' ? "" : ",") + entry;
  return body + "]}";
}

using XmlDocument = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

inline XmlDocument ParseXml(const std::string& xml) {
  constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  return {xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "", "UTF-8", kOptions), &xmlFreeDoc};
}

/// The text of a node or attribute that libxml2 hands over.
inline std::string Take(xmlChar* text) {
  const std::unique_ptr<xmlChar, decltype(xmlFree)> owner(text, xmlFree);
  return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

inline std::string AttributeOf(xmlNode* node, const char* name) {
  return Take(xmlGetProp(node, reinterpret_cast<const xmlChar*>(name)));
}

}  // namespace quill::samples
