#include "tools/phonetics.h"

#include <gtest/gtest.h>

#include "tools/parsed_selection.h"
#include "tools/phonetics_dictionaries.h"
#include "tools/phonetics_local.h"

namespace quill::tools {
namespace {

/// A dialog that notes what it was asked and always gives the same.
struct Dialog {
  std::optional<std::string> answer;
  std::vector<std::string> words;
  AskForPhonetic asks() {
    return [this](const std::string& word) {
      words.push_back(word);
      return answer;
    };
  }
};

// Only the first word is annotated, behind itself and as text; the line breaks of a real copy are no word.
TEST(Phonetics, AnnotatesTheFirstTextThatShows) {
  auto document = test::Parse("\n<p> <br/>\n<b>word</b> more</p><p>other</p>");
  Dialog dialog{"w<&>d", {}};
  EXPECT_EQ(InsertPhonestics(document.Root(), dialog.asks()), 1);
  EXPECT_EQ(dialog.words, std::vector<std::string>{"word"});
  const std::string xml = document.Xml();
  EXPECT_NE(xml.find("<b>word<span style=\"font-family:Calibri;\"> (w&lt;&amp;&gt;d) </span></b> more"),
            std::string::npos)
      << xml;
}

// Closing the dialog, or having selected nothing, changes nothing; the walk does not go on to the next text.
TEST(Phonetics, LeavesTheDocumentWithoutAnAnswer) {
  auto document = test::Parse("<p>one</p><p>two</p>");
  const std::string before = document.Xml();
  Dialog dialog;
  EXPECT_EQ(InsertPhonestics(document.Root(), dialog.asks()), 0);
  EXPECT_EQ(dialog.words.size(), 1u);
  EXPECT_EQ(document.Xml(), before);

  auto empty = test::Parse("\n<p>\xC2\xA0 <img src='a'/></p>");
  Dialog unasked{"x", {}};
  EXPECT_EQ(InsertPhonestics(empty.Root(), unasked.asks()), 0);
  EXPECT_TRUE(unasked.words.empty());
}

// The same command is given words and fragments; a fragment must not be shown as markup in the dialog.
TEST(Phonetics, TakesWordsAndFragments) {
  Dialog dialog{"wɜːd", {}};
  const PhoneticInsertion word = InsertPhonetics("word", dialog.asks());
  EXPECT_EQ(word.result, 1);
  EXPECT_EQ(word.html, "word (wɜːd) ");
  const PhoneticInsertion fragment = InsertPhonetics("<p style='x'>some &amp; word<br></p>", dialog.asks());
  EXPECT_EQ(fragment.result, 1);
  EXPECT_NE(fragment.html.find("some &amp; word<span style=\"font-family:Calibri;\"> (wɜːd) </span><br"),
            std::string::npos)
      << fragment.html;
  EXPECT_EQ(dialog.words, (std::vector<std::string>{"word", "some & word"}));

  const PhoneticInsertion broken = InsertPhonetics("<p>a</b>", dialog.asks());
  EXPECT_TRUE(broken.isNotWellFormed);
  EXPECT_EQ(broken.result, 0);
  EXPECT_EQ(InsertPhonetics("", dialog.asks()).result, 0);
  EXPECT_EQ(dialog.words.size(), 2u);
  dialog.answer.reset();
  EXPECT_EQ(InsertPhonetics("word", dialog.asks()).html, "");
}

// A word is one piece of the path, whatever it contains; only the English dictionary wants small letters.
TEST(Dictionaries, AskForTheWordAsOnePiece) {
  DictionaryHosts hosts;
  hosts.english = hosts.german = hosts.chineseEnglish = "https://d.example";
  const auto address = [&hosts](std::string_view language, DictionarySet set, std::string_view word) {
    return DictionaryAddress(*FindDictionary(language, set), hosts, word);
  };
  using enum DictionarySet;
  EXPECT_EQ(address("English", Secondary, "CAFÉ"), "https://d.example/dicts/en/caf%C3%A9");
  EXPECT_EQ(address("English", Primary, "CAFÉ"), "https://d.example/CAF%C3%89");
  EXPECT_EQ(address("German", Secondary, "a/b?c#d %41"), "https://d.example/dicts/de/a%2Fb%3Fc%23d%20%2541");
  EXPECT_EQ(address("Chinese", Primary, "%@"), "https://d.example/%25@");
  EXPECT_EQ(address("French", Secondary, "mot"), "");
  EXPECT_EQ(FindDictionary("Japanese", Primary), nullptr);
  EXPECT_EQ(FindDictionary("German", Primary), nullptr);
  EXPECT_EQ(FindDictionary("Latin", Secondary), nullptr);
}

// The cut is by first markers only; a marker that is missing gives nothing instead of half a page.
TEST(Dictionaries, CutThePieceFromThePage) {
  using enum DictionarySet;
  const auto cut = [](std::string_view language, DictionarySet set, std::string_view page) {
    return std::string(PhoneticFromPage(*FindDictionary(language, set), page));
  };
  EXPECT_EQ(cut("English", Secondary,
                "x<span class=\"Phonitic\">a / wɜːd\t/ b</span> <span class=\"Phonitic\">/n/</span>"),
            "wɜːd");
  EXPECT_EQ(cut("English", Secondary, "<span class=\"Phonitic\">no slash</span>/x/"), "");
  EXPECT_EQ(cut("English", Secondary, "<span class=\"Phonitic\">/x/"), "");
  EXPECT_EQ(cut("English", Primary, "<div class=\"phonetic\" id=1><b>[x]</b> [y]</div>"), "x");
  EXPECT_EQ(cut("French", Primary, "<div class=\"pronounces\"><b>[mo]</b></div>"), "mo");
  EXPECT_EQ(cut("French", Secondary, "<SPAN class=Phonitic>[mo]</SPAN>"), "mo");
  EXPECT_EQ(cut("German", Secondary, "<span class=\"Phonitic\">[vɔrt]</span>"), "vɔrt");
  EXPECT_EQ(cut("Chinese", Secondary, "<span class=\"dicpy\"> nǐ hǎo\t</span>"), "nǐ hǎo");
  EXPECT_EQ(
      cut("Japanese", Secondary, "<span class=\"kanji-2-up kanji\">にほん</span>\n<span class=\"text\">日本"),
      "にほん</span>\n");
  EXPECT_EQ(PhoneticAsText("\n に</span>\n <span>ほ&#x3093;</span> &lt;b&gt; "), "に ほん b");
}

// What espeak-ng says about the language it switched to is not part of the pronunciation.
TEST(LastResorts, TidyTheSynthesizersText) {
  EXPECT_EQ(SynthesizerText("(en)wiːkˈɛnd(fr)\n bɔ̃\n\n"), "wiːkˈɛnd bɔ̃");
  EXPECT_EQ(SynthesizerText("a (B) (x) (en"), "a (B) (x) (en");
}

// Readings are given only where the characters tell them.
TEST(LastResorts, TransliterateWhatCanBeRead) {
  EXPECT_EQ(TransliteratedPhonetic("Chinese", "你好"), "nǐ hǎo");
  EXPECT_EQ(TransliteratedPhonetic("Chinese", "hello"), "");
  EXPECT_EQ(TransliteratedPhonetic("Japanese", "さくら"), "sakura");
  EXPECT_EQ(TransliteratedPhonetic("Japanese", "ラーメン"), "rāmen");
  EXPECT_EQ(TransliteratedPhonetic("Japanese", "日本の"), "");
  EXPECT_EQ(TransliteratedPhonetic("English", "word"), "");
}

}  // namespace
}  // namespace quill::tools
