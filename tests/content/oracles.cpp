#include "content/oracles.h"

#include <libxml/HTMLparser.h>
#include <libxml/parser.h>

#include <cstdlib>
#include <optional>
#include <vector>

namespace quill::oracle {
namespace {

using std::string;
constexpr std::size_t npos = string::npos;

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

string Lower(string text) {
  for (char& c : text) c = Lower(c);
  return text;
}

std::size_t FindAnyCase(const string& text, const string& needle, std::size_t from) {
  return Lower(text).find(Lower(needle), from);
}

void Replace(string& text, const string& from, const string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != npos; at += to.size())
    text.replace(at, from.size(), to);
}

/// Without space separators and tabs at both ends.
string Trimmed(string text) {
  static const std::vector<string> kBlanks = {" ",
                                              "\t",
                                              "\xC2\xA0",
                                              "\xE1\x9A\x80",
                                              "\xE2\x80\x80",
                                              "\xE2\x80\x81",
                                              "\xE2\x80\x82",
                                              "\xE2\x80\x83",
                                              "\xE2\x80\x84",
                                              "\xE2\x80\x85",
                                              "\xE2\x80\x86",
                                              "\xE2\x80\x87",
                                              "\xE2\x80\x88",
                                              "\xE2\x80\x89",
                                              "\xE2\x80\x8A",
                                              "\xE2\x80\xAF",
                                              "\xE2\x81\x9F",
                                              "\xE3\x80\x80"};
  for (bool again = true; again;) {
    again = false;
    for (const string& blank : kBlanks) {
      if (text.starts_with(blank)) text.erase(0, blank.size()), again = true;
      if (text.ends_with(blank)) text.erase(text.size() - blank.size()), again = true;
    }
  }
  return text;
}

void RewriteAltTexts(string& text, const string& from, const string& to) {
  const string marker = "alt=\"";
  for (std::size_t p = 0; (p = FindAnyCase(text, marker, p)) != npos;) {
    const std::size_t begin = p + marker.size();
    const std::size_t end = text.find('"', begin);
    if (end == npos) return;
    string value = text.substr(begin, end - begin);
    Replace(value, from, to);
    text.replace(begin, end - begin, value);
    p += value.empty() ? marker.size() : value.size();
  }
}

string QuoteBareValues(const string& text, const string& name) {
  string out;
  string rest = text;
  for (std::size_t found; (found = FindAnyCase(rest, name + "=", 0)) != npos;) {
    const std::size_t begin = found + name.size() + 1;
    const std::size_t end = rest.find_first_of(" \t\n\v\f\r>", begin);
    if (end == npos) break;
    const string before = rest.substr(0, begin);
    const string value = rest.substr(begin, end - begin);
    rest = rest.substr(end);
    const string trimmed = Trimmed(value);
    const bool quoted = trimmed.starts_with('"') || trimmed.starts_with('\'');
    out += quoted ? before + value : before + '"' + value + '"';
  }
  return out + rest;
}

string CloseVoid(const string& text, const string& tag) {
  string out;
  string rest = text;
  for (std::size_t found; (found = FindAnyCase(rest, "<" + tag, 0)) != npos;) {
    const std::size_t end = rest.find('>', found + 1 + tag.size());
    if (end == npos) break;
    out += rest.substr(0, end) + "/>";
    rest = rest.substr(end + 1);
  }
  return out + rest;
}

void RemoveConditionalBlocks(string& text) {
  for (std::size_t begin; (begin = text.find("<![if ")) != npos;) {
    const std::size_t end = text.find("<![endif]>", begin);
    if (end == npos) return;
    text.erase(begin, end + 10 - begin);
  }
}

void AppendUtf8(string& out, unsigned code) {
  if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = 0xFFFD;
  const auto put = [&out](unsigned byte) { out += static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6), put(0x80 | (code & 63));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12), put(0x80 | (code >> 6 & 63)), put(0x80 | (code & 63));
  } else {
    put(0xF0 | code >> 18), put(0x80 | (code >> 12 & 63)), put(0x80 | (code >> 6 & 63)),
        put(0x80 | (code & 63));
  }
}

/// A text as bytes (below 0x100, taken as they are) and decoded characters (0x100 + code).
using Units = std::vector<unsigned>;
constexpr unsigned kDecoded = 0x100;

unsigned UnitAt(const Units& text, std::size_t at) {
  if (at >= text.size()) return ~0u;
  return text[at] >= kDecoded + 0x80 ? ~0u : text[at] % kDecoded;
}

std::optional<std::size_t> FindUnits(const Units& text, const string& needle, std::size_t from) {
  for (std::size_t at = from; at + needle.size() <= text.size(); ++at) {
    std::size_t same = 0;
    while (same < needle.size() && UnitAt(text, at + same) == static_cast<unsigned char>(needle[same]))
      ++same;
    if (same == needle.size()) return at;
  }
  return std::nullopt;
}

unsigned NumberOf(const string& number) {
  const bool isHex = number.starts_with("x");
  const string allowed = isHex ? "0123456789abcdefABCDEF" : "0123456789";
  string digits = isHex ? number.substr(1) : number;
  digits = digits.substr(0, digits.find_first_not_of(allowed));
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.empty()) return 0;
  if (digits.size() > 8) return 0x110000;
  return static_cast<unsigned>(std::strtoul(digits.c_str(), nullptr, isHex ? 16 : 10));
}

void DecodeNumbers(Units& text) {
  for (std::size_t c = 0; c < text.size();) {
    const auto open = FindUnits(text, "&#", c);
    const auto end = FindUnits(text, ";", c);
    if (!open || !end || *end < *open) {
      ++c;
      continue;
    }
    string number;
    for (std::size_t i = *open + 2; i < *end; ++i) number += static_cast<char>(UnitAt(text, i));
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(*open);
    text.erase(first, text.begin() + static_cast<std::ptrdiff_t>(*end) + 1);
    text.insert(text.begin() + static_cast<std::ptrdiff_t>(*open),
                kDecoded + std::min(NumberOf(number), 0x110000u));
    c = *open;
  }
}

string FromUnits(const Units& text) {
  string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned code = text[i] - kDecoded;
    const unsigned next = i + 1 < text.size() && text[i + 1] >= kDecoded ? text[i + 1] - kDecoded : 0;
    if (text[i] < kDecoded) {
      out += static_cast<char>(text[i]);
    } else if (code >= 0xD800 && code <= 0xDBFF && next >= 0xDC00 && next <= 0xDFFF) {
      AppendUtf8(out, 0x10000 + (code - 0xD800) * 0x400 + (next - 0xDC00));
      ++i;
    } else {
      AppendUtf8(out, code);
    }
  }
  return out;
}

}  // namespace

string TextBetween(const string& text, const string& start, const string& end) {
  const std::size_t found = start.empty() ? 0 : text.find(start);
  if (found == npos) return "";
  const string rest = text.substr(found + start.size());
  if (end.empty()) return rest;
  const std::size_t stop = rest.find(end);
  return stop == npos ? "" : rest.substr(0, stop);
}

string HtmlToXml(const string& fragment) {
  string text = fragment;
  RewriteAltTexts(text, "=", "&=;");
  for (const char* name : {"type", "border", "cellpadding", "cellspacing", "valign", "lang", "width",
                           "height", "alt", "value", "cols", "rowspan", "colspan"}) {
    text = QuoteBareValues(text, name);
  }
  RemoveConditionalBlocks(text);
  const std::size_t firstBreak = text.find("<br");
  if (firstBreak == npos || !Trimmed(text.substr(firstBreak + 3)).starts_with("/>"))
    text = CloseVoid(text, "br");
  text = CloseVoid(text, "img");
  Replace(text, "&nbsp;", "\xC2\xA0");
  RewriteAltTexts(text, "&=;", "=");
  return "<?xml version=\"1.0\"?><quillText>" + text + "</quillText>";
}

string XmlToHtml(const string& xml) {
  string fragment = TextBetween(xml, "<quillText>", "</quillText>");
  Replace(fragment, "\xC2\xA0", "&nbsp;");
  return fragment;
}

string DecodeHtmlEntities(const string& text) {
  if (text.find('&') == npos) return text;
  string named = text;
  for (unsigned code = 160; code < 256; ++code) {
    string character;
    AppendUtf8(character, code);
    Replace(named, string("&") + htmlEntityValueLookup(code)->name + ";", character);
  }
  Replace(named, "&amp;", "&");
  Replace(named, "&lt;", "<");
  Replace(named, "&gt;", ">");
  Replace(named, "&apos;", "'");
  Replace(named, "&quot;", "\"");
  Units units;
  for (const char c : named) units.push_back(static_cast<unsigned char>(c));
  DecodeNumbers(units);
  return FromUnits(units);
}

string EscapeXmlText(const string& text) {
  string escaped = text;
  Replace(escaped, "&", "&amp;");
  Replace(escaped, "<", "&lt;");
  Replace(escaped, ">", "&gt;");
  return escaped;
}

string DecodeBasicEntities(const string& text) {
  string decoded = text;
  Replace(decoded, "&nbsp;", " ");
  Replace(decoded, "&lt;", "<");
  Replace(decoded, "&gt;", ">");
  Replace(decoded, "&apos;", "'");
  Replace(decoded, "&quot;", "\"");
  Replace(decoded, "&amp;", "&");
  return decoded;
}

string StripTags(const string& html) {
  string text = html;
  for (;;) {
    const string inner = TextBetween(text, "<", ">");
    if (inner.empty()) return text;
    text.erase(text.find('<'), inner.size() + 2);
  }
}

string PercentUnescape(const string& text) {
  string bytes;
  const string hex = "0123456789abcdef";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t high = i + 2 < text.size() ? hex.find(Lower(text[i + 1])) : npos;
    const std::size_t low = i + 2 < text.size() ? hex.find(Lower(text[i + 2])) : npos;
    if (text[i] == '%' && high != npos && low != npos) {
      bytes += static_cast<char>(high * 16 + low);
      i += 2;
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

bool IsWellFormed(std::string_view xml) {
  constexpr int kOptions = XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  xmlDocPtr doc = xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "", "UTF-8", kOptions);
  const bool isWellFormed = doc != nullptr;
  xmlFreeDoc(doc);
  return isWellFormed;
}

}  // namespace quill::oracle
