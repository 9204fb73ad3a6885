#include "shell/search_text.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::shell {
namespace {

struct Replacement {
  char32_t letter;
  std::u32string_view typed;
};

/// Letters that Unicode does not decompose (already case-folded), and what is typed for them.
constexpr Replacement kReplacements[] = {{U'æ', U"ae"}, {U'đ', U"d"},  {U'ð', U"d"},
                                         {U'ħ', U"h"},  {U'ı', U"i"},  {U'ł', U"l"},
                                         {U'ø', U"o"},  {U'œ', U"oe"}, {U'þ', U"th"}};

enum class Role { Letter, Space, Dropped };

/// Accents of the European scripts, and the vowel points of Hebrew and Arabic. The signs of Indic scripts and
/// of Thai, and the voicing marks of Japanese, are letters to their readers and stay.
bool IsAccent(UChar32 code) {
  const int combiningClass = u_getCombiningClass(code);
  return combiningClass >= 200 || (combiningClass >= 10 && combiningClass <= 35);
}

bool IsApostrophe(UChar32 code) {
  const auto letter = static_cast<char32_t>(code);
  return letter == U'\'' || letter == U'’' || letter == U'ʼ' || letter == U'‘';
}

Role RoleOf(UChar32 code) {
  if (code < 0x80) {
    if (u_isalnum(code)) return Role::Letter;
    if (IsApostrophe(code)) return Role::Dropped;
    return u_ispunct(code) || code <= 0x20 || code == 0x7F ? Role::Space : Role::Letter;
  }
  if (IsAccent(code) || IsApostrophe(code) || u_hasBinaryProperty(code, UCHAR_DEFAULT_IGNORABLE_CODE_POINT))
    return Role::Dropped;
  return u_ispunct(code) || u_isUWhiteSpace(code) || u_iscntrl(code) ? Role::Space : Role::Letter;
}

bool IsVoicingMark(char32_t letter) {
  return letter == 0x3099 || letter == 0x309A;
}

bool IsWordByItself(char32_t letter) {
  if (letter < 0x2E80) return false;
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(static_cast<UChar32>(letter), &status);
  return script == USCRIPT_HAN || script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA;
}

class Folder {
 public:
  void Add(char32_t code) {
    const std::uint32_t begin = m_offset;
    m_offset += code > 0xFFFF ? 2 : 1;
    if (code < 0x80) return Put(static_cast<char32_t>(u_foldCase(static_cast<UChar32>(code), 0)), begin);
    icu::UnicodeString folded;
    if (m_decomposition == nullptr || !m_decomposition->getDecomposition(static_cast<UChar32>(code), folded))
      folded.setTo(static_cast<UChar32>(code));
    folded.foldCase();
    for (int at = 0; at < folded.length(); at = folded.moveIndex32(at, 1))
      PutReplaced(static_cast<char32_t>(folded.char32At(at)), begin);
  }

  void AddSpace() {
    ++m_offset;
    m_spaceBefore = true;
  }

  SearchText Take() { return std::move(m_text); }

 private:
  void PutReplaced(char32_t letter, std::uint32_t begin) {
    for (const Replacement& replacement : kReplacements) {
      if (replacement.letter != letter) continue;
      for (const char32_t typed : replacement.typed) Put(typed, begin);
      return;
    }
    Put(letter, begin);
  }

  void Put(char32_t letter, std::uint32_t begin) {
    if (IsVoicingMark(letter) && Voice(letter)) return;
    switch (RoleOf(static_cast<UChar32>(letter))) {
      case Role::Space:
        m_spaceBefore = true;
        return;
      case Role::Dropped:
        if (!m_spaceBefore && !m_text.ends.empty()) m_text.ends.back() = m_offset;
        return;
      case Role::Letter:
        break;
    }
    const bool isFirst = m_text.letters.empty();
    if (m_spaceBefore && !isFirst) Append(U' ', begin, begin);
    if (m_spaceBefore || isFirst || IsWordByItself(letter))
      m_text.words.push_back(static_cast<std::uint32_t>(m_text.letters.size()));
    Append(letter, begin, m_offset);
    m_spaceBefore = false;
  }

  /// Puts a voicing mark onto the letter before it, so that the letter alone is not found in it.
  bool Voice(char32_t mark) {
    if (m_spaceBefore || m_text.letters.empty() || m_decomposition == nullptr) return false;
    char32_t& last = m_text.letters.back();
    const UChar32 voiced =
        m_decomposition->composePair(static_cast<UChar32>(last), static_cast<UChar32>(mark));
    if (voiced < 0) return false;
    last = static_cast<char32_t>(voiced);
    m_text.ends.back() = m_offset;
    return true;
  }

  void Append(char32_t letter, std::uint32_t begin, std::uint32_t end) {
    m_text.letters += letter;
    m_text.begins.push_back(begin);
    m_text.ends.push_back(end);
  }

  static const icu::Normalizer2* Decomposition() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* found = icu::Normalizer2::getNFKDInstance(status);
    return U_SUCCESS(status) ? found : nullptr;
  }

  const icu::Normalizer2* m_decomposition = Decomposition();
  SearchText m_text;
  std::uint32_t m_offset = 0;
  bool m_spaceBefore = false;
};

}  // namespace

std::u32string_view SearchText::Word(std::size_t index) const {
  const std::u32string_view rest = std::u32string_view(letters).substr(words[index]);
  return rest.substr(0, rest.find(U' '));
}

std::size_t SearchText::WordLength(std::size_t index) const {
  const std::size_t length = Word(index).size();
  if (index + 1 == words.size()) return length;
  return std::min<std::size_t>(length, words[index + 1] - words[index]);
}

SearchText FoldForSearch(std::string_view text) {
  Folder folder;
  for (std::size_t at = 0; at < text.size();) {
    const content::DecodedChar next = content::DecodeUtf8(text, at);
    if (next.length == 0) {
      folder.AddSpace();
      ++at;
      continue;
    }
    folder.Add(next.code);
    at += next.length;
  }
  return folder.Take();
}

}  // namespace quill::shell
