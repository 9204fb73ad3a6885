#include "online/paragraph_link.h"

#include "content/find_text.h"
#include "content/text_between.h"
#include "online/link_conversions.h"

namespace quill::online {
namespace {

constexpr std::string_view kObjectId = "&object-id=";
constexpr std::string_view kEnd = "&end";

std::string ObjectIdOfElement(std::string_view elementId) {
  return ConvertOnlineHtmlObjId2ClientUrlObjId(content::TextBetween(elementId, ":", ""));
}

}  // namespace

std::string ParagraphLink(std::string_view pageLink, std::string_view elementId) {
  std::string link(pageLink.substr(0, content::FindText(pageLink, kObjectId)));
  content::ReplaceAllWithin(link, kEnd, "");
  return link.append(kObjectId).append(ObjectIdOfElement(elementId));
}

std::string PaneParagraphLink(std::string_view pageLink, std::string_view elementId) {
  const std::string objectId = ObjectIdOfElement(elementId);
  if (content::FindText(pageLink, kObjectId) == std::string_view::npos) {
    return content::ReplaceAll(pageLink, kEnd, std::string(kObjectId).append(objectId));
  }
  return content::ReplaceAll(pageLink, content::TextBetween(pageLink, kObjectId, ""), objectId);
}

}  // namespace quill::online
