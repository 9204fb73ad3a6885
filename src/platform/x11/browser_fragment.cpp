#include "platform/x11/browser_fragment.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "content/text_between.h"
#include "platform/x11/browser_style.h"

namespace quill::platform::x11 {
namespace {

using std::string_view_literals::operator""sv;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}
char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsLetter(char c) {
  return Lower(c) >= 'a' && Lower(c) <= 'z';
}
bool IsNameCharacter(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.' || c == ':';
}

std::string LowerText(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  return lower;
}

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Tags that go while what is between them stays.
bool IsWrapper(std::string_view name) {
  return IsOneOf(name, {"html", "head", "body", "tbody", "thead", "tfoot", "meta", "link", "base"});
}
// Elements that go with all that is in them.
bool IsUnseen(std::string_view name) {
  return IsOneOf(name, {"script", "style", "title", "noscript", "template"});
}
// Void elements that the application's form leaves open.
bool StaysOpen(std::string_view name) {
  return IsOneOf(name, {"br", "img"});
}
bool IsVoid(std::string_view name) {
  return StaysOpen(name) ||
         IsOneOf(name, {"hr", "input", "wbr", "col", "area", "embed", "param", "source", "track"});
}

/// True where an equals sign follows a word that the normaliser takes for an attribute whose value lacks
/// quotes. Inside a text or a link it must not see one.
bool LooksLikeAttribute(std::string_view before) {
  constexpr std::string_view kNames[] = {"type", "border",  "cellpadding", "cellspacing", "valign",
                                         "lang", "width",   "height",      "alt",         "value",
                                         "cols", "rowspan", "colspan"};
  return std::any_of(std::begin(kNames), std::end(kNames), [&](std::string_view name) {
    return before.size() >= name.size() &&
           std::equal(name.begin(), name.end(), before.end() - static_cast<std::ptrdiff_t>(name.size()),
                      [](char a, char b) { return a == Lower(b); });
  });
}

/// True when a reference such as "&amp;" or "&#10;" starts here; a lone ampersand is none.
bool IsReference(std::string_view text) {
  constexpr std::size_t kLongest = 12;
  std::size_t i = 1;
  if (i < text.size() && text[i] == '#') ++i;
  const std::size_t first = i;
  while (i < text.size() && i < kLongest && (IsLetter(text[i]) || (text[i] >= '0' && text[i] <= '9'))) ++i;
  return i > first && i < text.size() && text[i] == ';';
}

/// Text or an attribute's value so that the normaliser and an XML parser read it as a browser does.
void AppendText(std::string& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool control = static_cast<unsigned char>(c) < 0x20 && !IsBlank(c);
    if (control || c == '\f') continue;
    if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else if (c == '"') {
      out += "&quot;";
    } else if (c == '&' && !IsReference(text.substr(i))) {
      out += "&amp;";
    } else if (c == '=' && LooksLikeAttribute(text.substr(0, i))) {
      out += "&#61;";
    } else {
      out += c;
    }
  }
}

struct Attribute {
  std::string_view name;
  std::string_view value;
};

/// A start or end tag as it stands in the markup.
struct Tag {
  bool end = false;
  std::string name;  ///< in lower case
  std::vector<Attribute> attributes;

  std::string_view Value(std::string_view attribute) const {
    for (const Attribute& a : attributes) {
      if (a.name == attribute) return a.value;
    }
    return {};
  }
};

/// Cuts the next piece off a text.
class Cutter {
 public:
  explicit Cutter(std::string_view rest) : m_rest(rest) {}

  bool AtEnd() const { return m_rest.empty(); }
  bool StartsWith(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }
  char Peek() const { return m_rest.empty() ? '\0' : m_rest[0]; }
  void Skip(std::size_t count) { m_rest.remove_prefix(std::min(count, m_rest.size())); }

  template <class Belongs>
  std::string_view TakeWhile(Belongs belongs) {
    std::size_t end = 0;
    while (end < m_rest.size() && belongs(m_rest[end])) ++end;
    const std::string_view taken = m_rest.substr(0, end);
    m_rest.remove_prefix(end);
    return taken;
  }

  std::string_view TakeUntil(char stop) {
    return TakeWhile([stop](char c) { return c != stop; });
  }

  /// Goes on behind the next `text`, or to the end when there is none.
  void SkipPast(std::string_view text) {
    const std::size_t at = m_rest.find(text);
    Skip(at == std::string_view::npos ? m_rest.size() : at + text.size());
  }

  /// True when a tag starts here; otherwise the sign "<" is text.
  bool AtTag() const {
    return Peek() == '<' && m_rest.size() > 1 &&
           (IsLetter(m_rest[1]) || (m_rest[1] == '/' && m_rest.size() > 2 && IsLetter(m_rest[2])));
  }

  Tag TakeTag() {
    Tag tag;
    Skip(1);
    if (Peek() == '/') {
      tag.end = true;
      Skip(1);
    }
    tag.name = LowerText(TakeWhile(IsNameCharacter));
    while (!AtEnd() && Peek() != '>') {
      if (!TakeAttribute(tag)) Skip(1);
    }
    Skip(1);
    return tag;
  }

 private:
  bool TakeAttribute(Tag& tag) {
    TakeWhile(IsBlank);
    Attribute attribute;
    attribute.name =
        TakeWhile([](char c) { return !IsBlank(c) && c != '=' && c != '>' && c != '/' && c != '<'; });
    if (attribute.name.empty()) return false;
    TakeWhile(IsBlank);
    if (Peek() == '=') {
      Skip(1);
      TakeWhile(IsBlank);
      attribute.value = TakeValue();
    }
    tag.attributes.push_back(attribute);
    return true;
  }

  std::string_view TakeValue() {
    const char quote = Peek();
    if (quote != '"' && quote != '\'') return TakeWhile([](char c) { return !IsBlank(c) && c != '>'; });
    Skip(1);
    const std::string_view value = TakeUntil(quote);
    Skip(1);
    return value;
  }

  std::string_view m_rest;
};

bool IsXmlName(std::string_view name) {
  return !name.empty() && (IsLetter(name[0]) || name[0] == '_') &&
         std::all_of(name.begin(), name.end(), IsNameCharacter);
}

bool HasClass(const Tag& tag, std::string_view wanted) {
  std::string_view classes = tag.Value("class");
  while (!classes.empty()) {
    const std::string_view one = classes.substr(0, classes.find(' '));
    if (one == wanted) return true;
    classes.remove_prefix(std::min(classes.size(), one.size() + 1));
  }
  return false;
}

class Converter {
 public:
  explicit Converter(std::string_view html) : m_in(html) { m_out.reserve(html.size()); }

  std::string Convert() {
    while (!m_in.AtEnd()) {
      if (m_in.AtTag()) {
        OnTag(m_in.TakeTag());
      } else if (m_in.StartsWith("<!--")) {
        m_in.SkipPast("-->");
      } else if (m_in.StartsWith("<!") || m_in.StartsWith("<?")) {
        m_in.SkipPast(">");
      } else {
        OnText();
      }
    }
    return std::move(m_out);
  }

 private:
  void OnText() {
    if (m_in.Peek() == '<') {
      m_out += "&lt;";
      m_in.Skip(1);
    }
    AppendBetweenTags(m_in.TakeUntil('<'));
  }

  /// A quotation mark needs no escape between tags, and stays for those who read the fragment as text.
  void AppendBetweenTags(std::string_view text) {
    while (!text.empty()) {
      const std::string_view part = text.substr(0, text.find('"'));
      AppendText(m_out, part);
      text.remove_prefix(part.size());
      if (!text.empty()) {
        m_out += '"';
        text.remove_prefix(1);
      }
    }
  }

  void OnTag(const Tag& tag) {
    if (IsUnseen(tag.name)) {
      if (!tag.end) SkipElement(tag.name);
    } else if (IsWrapper(tag.name) || (tag.name == "br" && HasClass(tag, "Apple-interchange-newline"))) {
      return;
    } else if (IsVoid(tag.name)) {
      if (!tag.end) PutStart(tag, StaysOpen(tag.name) ? ">" : "/>");
    } else if (tag.end) {
      OnEnd(tag.name);
    } else {
      const bool shown = tag.name != "div" || !HasClass(tag, "OutlineElement");
      m_open.push_back({tag.name, shown});
      if (shown) PutStart(tag, ">");
    }
  }

  void SkipElement(std::string_view name) {
    for (;;) {
      m_in.TakeUntil('<');
      if (m_in.AtEnd()) return;
      if (m_in.StartsWith("</") && m_in.AtTag()) {
        const Tag tag = m_in.TakeTag();
        if (tag.name == name) return;
      } else {
        m_in.Skip(1);
      }
    }
  }

  void OnEnd(const std::string& name) {
    const bool known = !m_open.empty() && m_open.back().name == name;
    const bool shown = !known || m_open.back().shown;
    if (known) m_open.pop_back();
    if (shown) m_out.append("</").append(name).append(">");
  }

  void PutStart(const Tag& tag, std::string_view end) {
    m_out.append("<").append(tag.name);
    for (const Attribute& attribute : tag.attributes) PutAttribute(attribute);
    m_out.append(end);
  }

  void PutAttribute(const Attribute& attribute) {
    if (!IsXmlName(attribute.name)) return;
    const bool style = attribute.name == "style";
    const std::string kept = style ? DropSilentProperties(attribute.value) : std::string();
    if (style && kept.empty()) return;
    m_out.append(" ").append(attribute.name).append("=\"");
    AppendText(m_out, style ? std::string_view(kept) : attribute.value);
    m_out += '"';
  }

  struct Open {
    std::string name;
    bool shown;
  };

  Cutter m_in;
  std::string m_out;
  std::vector<Open> m_open;
};

}  // namespace

std::string BrowserToApplicationHtml(std::string_view html) {
  if (html.find(content::kStartMarker) != std::string_view::npos) return std::string(html);
  return content::JoinFragment(content::kBuiltHead, Converter(html).Convert(), content::kBuiltTail);
}

}  // namespace quill::platform::x11
