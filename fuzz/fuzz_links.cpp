// Links from anywhere: each function against its rule read word by word, and links that are built from the
// input and have to give it back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "content/oracles.h"
#include "content/unicode_text.h"
#include "online/account_id.h"
#include "online/client_link.h"
#include "online/link_conversions.h"
#include "online/link_oracles.h"
#include "online/protected_ampersands.h"
#include "online/wildcard_match.h"

namespace {

namespace oracle = quill::oracle;
using namespace quill::online;
using oracle::TextBetween;
using std::string;

void Check(bool isSame) {
  if (!isSame) std::abort();
}

string PutInBraces(string link, const string& key) {
  const string id = TextBetween(link, key, "&");
  if (id.empty() || id.find('}', std::min(id.find('{'), id.size())) != string::npos) return link;
  const string bare = key + id + "&";
  const string braced = key + "{" + id + "}&";
  for (std::size_t at = 0; (at = link.find(bare, at)) != string::npos; at += braced.size())
    link.replace(at, bare.size(), braced);
  return link;
}

string Account(const string& link, const string& host) {
  std::vector<string> parts(1);
  for (const char c : TextBetween(link, "https://", "")) {
    if (c == '/') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  if (parts.size() >= 2 && parts[0] == host) return parts[1];
  return parts.size() >= 3 ? parts[2] : "";
}

void CheckLink(const string& text) {
  const PageClientLink parts = ReadClientLink(text, "d.docs.live.net");
  Check(parts.link.empty() || IsClientLink(text));
  // What was normalised is normal, and its parts are those of the link itself.
  Check(NormalizeClientLink(parts.link) == parts.link);
  Check(parts.accountId == Account(parts.link, "d.docs.live.net"));
  string pageId = TextBetween(text, "page-id={", "}");
  if (pageId.empty()) pageId = TextBetween(text, "page-id=", "&");
  Check(PageIdOfLink(text) == pageId);
  if (quill::content::IsValidUtf8(text)) {
    for (const string* part : {&parts.sectionName, &parts.pageTitle, &parts.sectionId, &parts.objectId})
      Check(quill::content::IsValidUtf8(*part));
  }
  Check(parts.pageTitle.find("section-id=") == string::npos);

  const string converted = ConvertJsonClientUrl2OldClientUrl(text);
  Check(converted == PutInBraces(PutInBraces(text, "&section-id="), "&page-id="));
  Check(ConvertJsonClientUrl2OldClientUrl(converted) == converted);
  const string object = ConvertOnlineHtmlObjId2ClientUrlObjId(text);
  Check(object.starts_with("{" + TextBetween(text, "{", "}") + "}&"));
  Check(ProtectAmpersands(text).find('&') == string::npos);
  Check(RestoreAmpersands(ProtectAmpersands(text)) == RestoreAmpersands(text));
}

void CheckBuilt(const string& name) {
  const string link = "onenote:https://h/a/" + oracle::EscapeAll(name) + ".one#" + oracle::EscapeAll(name) +
                      "&section-id=" + oracle::EscapeAll(name) + "&page-id=1&end";
  const bool isText = quill::content::IsValidUtf8(name);
  Check(SectionNameOfLink(link) == (isText ? name : ""));
  Check(PageTitleOfLink(link) == (isText && name.find("section-id=") == string::npos ? name : ""));
  const string converted = ConvertJsonClientUrl2OldClientUrl(link);
  Check(SectionIdOfLink(converted) == SectionIdOfLink(link));
  Check(PageIdOfLink(converted) == "1");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const string text(reinterpret_cast<const char*>(data), size);
  CheckLink(text);
  CheckLink(oracle::GrowLink(text));
  if (!text.empty()) CheckBuilt(text);
  const std::size_t half = size / 2;
  const bool fits = MatchesWildcards(text.substr(half), text.substr(0, half));
  bool isAscii = true;
  for (const char c : text) isAscii = isAscii && static_cast<unsigned char>(c) < 0x80;
  if (isAscii && size < 500) Check(fits == oracle::MatchesWildcards(text.substr(half), text.substr(0, half)));
  return 0;
}
