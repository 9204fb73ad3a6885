#include "platform/script/script_parser.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>

namespace quill::platform::script {
namespace {

constexpr int kLargestKeyCode = 127;
constexpr double kLongestDelay = 3600;

/// A piece of a line: a word (in lower case), a number, a string without its quotes, or one sign.
struct Token {
  enum class Kind { Word, Number, String, Sign, End } kind = Kind::End;
  std::string text;
};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Cuts one line into tokens.
class Scanner {
 public:
  explicit Scanner(std::string_view line) : m_rest(line) {}

  Result<Token> Next() {
    while (!m_rest.empty() && (m_rest[0] == ' ' || m_rest[0] == '\t' || m_rest[0] == '\r'))
      m_rest.remove_prefix(1);
    if (m_rest.empty() || m_rest.substr(0, 2) == "--") return Token{};
    const char first = m_rest[0];
    if (first == '"') return String();
    if (IsLetter(first)) return Run(Token::Kind::Word, IsLetter);
    if (IsDigit(first)) return Run(Token::Kind::Number, [](char c) { return IsDigit(c) || c == '.'; });
    m_rest.remove_prefix(1);
    return Token{Token::Kind::Sign, std::string(1, first)};
  }

 private:
  template <class Belongs>
  Token Run(Token::Kind kind, Belongs belongs) {
    Token token{kind, {}};
    while (!m_rest.empty() && belongs(m_rest[0])) {
      const char c = m_rest[0];
      token.text += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
      m_rest.remove_prefix(1);
    }
    return token;
  }

  Result<Token> String() {
    Token token{Token::Kind::String, {}};
    for (std::size_t i = 1; i < m_rest.size(); ++i) {
      char c = m_rest[i];
      if (c == '"') {
        m_rest.remove_prefix(i + 1);
        return token;
      }
      if (c == '\\') {
        if (++i == m_rest.size()) break;
        c = m_rest[i];
        if (c != '"' && c != '\\') return Failure{std::string("the escape \\") + c + " is not known"};
      }
      token.text += c;
    }
    return Failure{std::string("a string is not closed")};
  }

  std::string_view m_rest;
};

using Tokens = std::vector<Token>;

Result<Tokens> Scan(std::string_view line) {
  Scanner scanner(line);
  Tokens tokens;
  for (;;) {
    Result<Token> token = scanner.Next();
    if (!token.ok()) return Failure{token.error()};
    const bool last = token->kind == Token::Kind::End;
    tokens.push_back(std::move(*token));
    if (last) return tokens;
  }
}

/// Digits with at most one point, in any locale; nothing for anything else.
std::optional<double> Decimal(std::string_view text) {
  double value = 0;
  double unit = 0;
  for (const char c : text) {
    if (c == '.') {
      if (unit != 0) return std::nullopt;
      unit = 1;
      continue;
    }
    value = value * 10 + (c - '0');
    unit *= 10;
    if (value > std::numeric_limits<int>::max()) return std::nullopt;
  }
  return unit > 1 ? value / unit : value;
}

/// Reads one line's tokens from left to right.
class Line {
 public:
  explicit Line(const Tokens& tokens) : m_tokens(tokens) {}

  bool AtEnd() const { return m_tokens[m_at].kind == Token::Kind::End; }

  /// Steps over `words` (separated by one blank) if they are what comes next.
  bool Take(std::string_view words) {
    std::size_t at = m_at;
    while (!words.empty()) {
      const std::string_view word = words.substr(0, words.find(' '));
      words.remove_prefix(std::min(words.size(), word.size() + 1));
      const Token& token = m_tokens[at];
      if ((token.kind != Token::Kind::Word && token.kind != Token::Kind::Sign) || token.text != word)
        return false;
      ++at;
    }
    m_at = at;
    return true;
  }

  std::optional<std::string> TakeString() { return TakeKind(Token::Kind::String); }

  std::optional<double> TakeNumber() {
    const std::optional<std::string> text = TakeKind(Token::Kind::Number);
    return text ? Decimal(*text) : std::nullopt;
  }

  std::string Seen() const {
    const Token& token = m_tokens[m_at];
    return token.kind == Token::Kind::End ? "the end of the line" : "\"" + token.text + "\"";
  }

 private:
  std::optional<std::string> TakeKind(Token::Kind kind) {
    if (m_tokens[m_at].kind != kind) return std::nullopt;
    return m_tokens[m_at++].text;
  }

  const Tokens& m_tokens;
  std::size_t m_at = 0;
};

bool TakeModifier(Line& line, Modifiers& modifiers) {
  if (line.Take("command down")) return modifiers.command = true;
  if (line.Take("control down")) return modifiers.control = true;
  if (line.Take("option down")) return modifiers.option = true;
  if (line.Take("shift down")) return modifiers.shift = true;
  return false;
}

/// "using X down" or "using {X down, Y down}"; no modifiers when there is no "using".
Result<Modifiers> TakeModifiers(Line& line) {
  Modifiers modifiers;
  if (!line.Take("using")) return modifiers;
  const bool list = line.Take("{");
  do {
    if (!TakeModifier(line, modifiers)) return Failure{"a modifier was expected, not " + line.Seen()};
  } while (list && line.Take(","));
  if (list && !line.Take("}")) return Failure{"} was expected, not " + line.Seen()};
  return modifiers;
}

class Parser {
 public:
  Status<> Statement(Line& line) {
    if (line.AtEnd()) return Done();
    Status<> done = Dispatch(line);
    if (done.ok() && !line.AtEnd()) return Failure{line.Seen() + " was not understood"};
    return done;
  }

  bool InsideTell() const { return !m_tells.empty(); }
  Program TakeProgram() { return std::move(m_program); }

 private:
  struct Tell {
    bool process;
    std::string name;
  };

  Status<> Dispatch(Line& line) {
    if (line.Take("delay")) return OnDelay(line);
    if (line.Take("tell application")) return OnTell(line, false);
    if (line.Take("tell process")) return OnTell(line, true);
    if (line.Take("end tell")) return OnEndTell();
    if (line.Take("reopen")) return ToApplication([&](std::string a) { return Reopen{std::move(a)}; });
    if (line.Take("activate")) return ToApplication([&](std::string a) { return Activate{std::move(a)}; });
    if (line.Take("keystroke")) return OnKeystroke(line);
    if (line.Take("key code")) return OnKeyCode(line);
    if (line.Take("open location")) return OnOpenLocation(line);
    if (line.Take("run vb macro macro name")) return OnMacro(line);
    return Failure{line.Seen() + " was not understood"};
  }

  Status<> OnDelay(Line& line) {
    const std::optional<double> seconds = line.TakeNumber();
    if (!seconds || *seconds > kLongestDelay) return Failure{std::string("a number of seconds was expected")};
    return Add(Delay{*seconds});
  }

  Status<> OnTell(Line& line, bool process) {
    std::optional<std::string> name = line.TakeString();
    if (!name) return Failure{"a name in quotes was expected, not " + line.Seen()};
    m_tells.push_back({process, std::move(*name)});
    return Done();
  }

  Status<> OnEndTell() {
    if (m_tells.empty()) return Failure{std::string("\"end tell\" without \"tell\"")};
    m_tells.pop_back();
    return Done();
  }

  Status<> OnKeystroke(Line& line) {
    std::optional<std::string> text = line.TakeString();
    if (!text) return Failure{"a text in quotes was expected, not " + line.Seen()};
    return ToProcess(line, [&](std::string process, Modifiers modifiers) {
      return Keystroke{std::move(process), std::move(*text), modifiers};
    });
  }

  Status<> OnKeyCode(Line& line) {
    const std::optional<double> code = line.TakeNumber();
    const int whole = code && *code <= kLargestKeyCode ? static_cast<int>(*code) : -1;
    if (whole < 0 || whole != *code) return Failure{std::string("a key code from 0 to 127 was expected")};
    return ToProcess(line, [&](std::string process, Modifiers modifiers) {
      return KeyCode{std::move(process), whole, modifiers};
    });
  }

  Status<> OnOpenLocation(Line& line) {
    std::optional<std::string> url = line.TakeString();
    if (!url) return Failure{"a link in quotes was expected, not " + line.Seen()};
    return ToApplication([&](std::string a) { return OpenLocation{std::move(a), std::move(*url)}; });
  }

  Status<> OnMacro(Line& line) {
    std::optional<std::string> macro = line.TakeString();
    if (!macro) return Failure{"a macro's name in quotes was expected, not " + line.Seen()};
    return ToApplication([&](std::string a) { return RunMacro{std::move(a), std::move(*macro)}; });
  }

  template <class Make>
  Status<> ToApplication(Make make) {
    if (m_tells.empty() || m_tells.back().process)
      return Failure{std::string("outside \"tell application\"")};
    return Add(make(m_tells.back().name));
  }

  template <class Make>
  Status<> ToProcess(Line& line, Make make) {
    if (m_tells.empty() || !m_tells.back().process) return Failure{std::string("outside \"tell process\"")};
    const Result<Modifiers> modifiers = TakeModifiers(line);
    if (!modifiers.ok()) return Failure{modifiers.error()};
    return Add(make(m_tells.back().name, *modifiers));
  }

  Status<> Add(Step step) {
    m_program.push_back(std::move(step));
    return Done();
  }

  std::vector<Tell> m_tells;
  Program m_program;
};

}  // namespace

Result<Program> ParseScript(std::string_view text) {
  Parser parser;
  std::size_t number = 0;
  const auto failed = [&](const std::string& why) {
    return Failure{"line " + std::to_string(number) + ": " + why};
  };
  while (!text.empty()) {
    ++number;
    const std::string_view raw = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), raw.size() + 1));
    const Result<Tokens> tokens = Scan(raw);
    if (!tokens.ok()) return failed(tokens.error());
    Line line(*tokens);
    const Status<> done = parser.Statement(line);
    if (!done.ok()) return failed(done.error());
  }
  if (parser.InsideTell()) return failed("\"tell\" without \"end tell\"");
  return parser.TakeProgram();
}

}  // namespace quill::platform::script
