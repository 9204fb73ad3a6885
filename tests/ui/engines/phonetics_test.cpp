#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <atomic>
#include <mutex>
#include <thread>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/phonetics/win_phonetics.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using tools::PhoneticAnswer;
using tools::PhoneticSource;

/// A dictionary of the test: what was asked for, and answers that wait until the test lets them go.
class Finder {
 public:
  PhoneticAnswer operator()(const std::string& language, const std::string& word,
                            const shell::IsCancelled& isCancelled) {
    {
      const std::lock_guard lock(m_mutex);
      m_asked.push_back(language + ":" + word);
    }
    while (isHeld && !isCancelled()) std::this_thread::yield();
    if (isCancelled()) ++cancelled;
    return answer(language, word);
  }

  std::vector<std::string> Asked() {
    const std::lock_guard lock(m_mutex);
    return m_asked;
  }

  std::function<PhoneticAnswer(const std::string& language, const std::string& word)> answer =
      [](const std::string&, const std::string& word) {
        PhoneticAnswer found;
        found.phonetic = "[" + word + "]";
        found.source = PhoneticSource::SpeechSynthesizer;
        return found;
      };
  std::atomic<bool> isHeld = false;
  std::atomic<int> cancelled = 0;

 private:
  std::mutex m_mutex;
  std::vector<std::string> m_asked;
};

class Phonetics : public testing::Test {
 protected:
  ~Phonetics() override { finder->isHeld = false; }

  void Open(const std::string& word = "hello", const std::string& language = "English") {
    shell::PhoneticsRequest request{
        word, language,
        [finder = finder](auto& l, auto& w, auto& isCancelled) { return (*finder)(l, w, isCancelled); },
        hosts};
    window = new MWinPhonetics(world.strings, request, [this](auto given) {
      answer = std::move(given);
      closed = true;
    });
    window->show();
    WaitForWindow<MWinPhonetics>();
  }

  std::string Shown() const { return FromQt(window->findChild<QPlainTextEdit*>()->toPlainText()); }
  bool WaitForShown(const std::string& text) {
    return WaitUntil([&] { return closed || Shown() == text; }) && !closed;
  }
  bool IsBusy() const { return window->findChild<QProgressBar*>()->isVisible(); }

  /// Everything that the window says, as it is seen.
  std::string Words() const {
    std::string words;
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      if (label->isVisible()) words += FromQt(label->text()) + "\n";
    }
    return words;
  }

  std::shared_ptr<Finder> finder = std::make_shared<Finder>();  // the thread may outlive the window
  tools::DictionaryHosts hosts;
  std::optional<shell::PhoneticChoice> answer;
  bool closed = false;
  MWinPhonetics* window = nullptr;
  GuiWorld world;  // the last: closes the window, which answers
};

// A word that comes with the window is looked for without a key, and Return inserts what was found.
TEST_F(Phonetics, FindsTheWordAtOnceAndInsertsIt) {
  Open();
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window),
              ElementsAre("Word", "Search", "English", "Transcription", "Insert", "Cancel"));
  ASSERT_TRUE(WaitForShown("[hello]"));
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->selectedText(), "hello");
  Press(Qt::Key_Return);
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->language, "English");
  EXPECT_EQ(answer->phonetic, "[hello]");
  EXPECT_THAT(finder->Asked(), ElementsAre("English:hello"));
}

// The window comes with what is selected, which may be a text that must not leave the machine by itself.
TEST_F(Phonetics, LooksForATextOnlyWhenAsked) {
  for (const std::string& text : {std::string("dear diary"), std::string("a\u00A0b"), std::string(65, 'x')}) {
    Open(text);
    Press(Qt::Key_End);
    Type("s");
    EXPECT_FALSE(WaitUntil([this] { return !finder->Asked().empty(); }, 800ms)) << text;
    Press(Qt::Key_Escape);
    ASSERT_TRUE(WaitUntil([] { return OpenWindow<MWinPhonetics>() == nullptr; }));
  }
  closed = false;
  Open("dear diary");
  Press(Qt::Key_S, Qt::AltModifier);
  ASSERT_TRUE(WaitForShown("[dear diary]"));
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([] { return OpenWindow<MWinPhonetics>() == nullptr; }));
  Open(std::string(64, 'x'));
  EXPECT_TRUE(WaitUntil([this] { return finder->Asked().size() == 2; }));
}

// The box has its own names for the languages, in the order of the list; a language that is not in it selects
// none, and then nothing is asked before one is chosen.
TEST_F(Phonetics, OffersTheLanguages) {
  Open("mot", "Klingon");
  auto* box = window->findChild<QComboBox*>();
  std::vector<std::string> names;
  for (int i = 0; i < box->count(); ++i) names.push_back(FromQt(box->itemText(i)));
  EXPECT_THAT(names, ElementsAre("Chinese", "English", "French", "German", "Japanese"));
  Press(Qt::Key_Return);
  EXPECT_THAT(Words(), HasSubstr("Choose a language."));
  EXPECT_EQ(QApplication::focusWidget(), box);
  EXPECT_THAT(finder->Asked(), IsEmpty());
  Type("F");
  EXPECT_THAT(Words(), Not(HasSubstr("Choose a language.")));
  ASSERT_TRUE(WaitForShown("[mot]"));
  EXPECT_THAT(finder->Asked(), ElementsAre("French:mot"));
}

// While somebody types, no half word goes to a service; a search under way for the old word is ended.
TEST_F(Phonetics, SearchesForTheWordThatStays) {
  finder->isHeld = true;
  Open("old");
  ASSERT_TRUE(WaitUntil([this] { return finder->Asked().size() == 1; }));
  Type("new");
  finder->isHeld = false;
  ASSERT_TRUE(WaitForShown("[new]"));
  EXPECT_THAT(finder->Asked(), ElementsAre("English:old", "English:new"));
  EXPECT_EQ(finder->cancelled, 1);
  Type("s");
  EXPECT_EQ(Shown(), "");
  EXPECT_FALSE(WaitUntil([this] { return finder->Asked().size() > 2; }, 100ms)) << "it must wait a moment";
  ASSERT_TRUE(WaitForShown("[news]"));
  Press(Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(WaitUntil([this] { return finder->Asked().size() == 4; })) << "the button asks once more";
}

// Where a transcription comes from decides whether it can be trusted, so each source is told in words, with
// the dictionaries' reasons only where no dictionary answered.
TEST_F(Phonetics, TellsTheSource) {
  hosts.english = "https://words.example";
  hosts.chineseEnglish = "https://other.example/";
  const auto* english = tools::FindDictionary("English", tools::DictionarySet::Secondary);
  const auto* other = tools::FindDictionary("English", tools::DictionarySet::Primary);
  const tools::DictionaryProblem notFound{english, tools::DictionaryProblemKind::NotFound};
  const tools::DictionaryProblem timedOut{other, tools::DictionaryProblemKind::NoAnswer,
                                          platform::HttpProblem::TimedOut};
  const tools::DictionaryProblem notSet{other, tools::DictionaryProblemKind::NotConfigured};
  const std::string missing = "words.example: The dictionary does not have this word.";
  struct Case {
    const char* name;
    PhoneticAnswer answer;
    std::vector<std::string> told;
    std::string untold;
  };
  const Case cases[] = {
      {"dictionary",
       {"həˈləʊ", PhoneticSource::Dictionary, other, {notFound}},
       {"dictionary other.example."},
       missing},
      {"synthesizer",
       {"həlˈəʊ", PhoneticSource::SpeechSynthesizer, nullptr, {notFound, timedOut}},
       {"espeak-ng: not looked up", missing, "other.example: The server did not answer in time."},
       "set up"},
      {"transliteration",
       {"zhōng wén", PhoneticSource::Transliteration, nullptr, {notSet}},
       {"By transliteration", "No online dictionary is set up"},
       "No address"},
      {"nothing",
       {"", PhoneticSource::None, nullptr, {notFound, notSet}},
       {"No phonetic transcription was found.", missing},
       "No online"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    finder->answer = [&c](auto&, auto&) { return c.answer; };
    Open();
    ASSERT_TRUE(WaitUntil([&] { return Words().find(c.told[0]) != std::string::npos; })) << Words();
    EXPECT_EQ(Shown(), c.answer.phonetic);
    for (const std::string& told : c.told) EXPECT_THAT(Words(), HasSubstr(told));
    EXPECT_THAT(Words(), Not(HasSubstr(c.untold)));
    Picture(*window, std::string("phonetics-") + c.name);
    Press(Qt::Key_Escape);
    ASSERT_TRUE(closed);
    EXPECT_FALSE(answer.has_value());
    ASSERT_TRUE(WaitUntil([] { return OpenWindow<MWinPhonetics>() == nullptr; }));
    closed = false;
  }
}

// A slow service shows that something goes on; the first Escape ends the search, the second the window.
TEST_F(Phonetics, EndsASlowSearchBeforeTheWindow) {
  finder->isHeld = true;
  const auto begin = std::chrono::steady_clock::now();
  Open();
  ASSERT_TRUE(WaitUntil([this] { return IsBusy(); }));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 450ms) << "a quick search must not flicker";
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "phonetics-busy");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsBusy());
  EXPECT_FALSE(closed);
  EXPECT_THAT(Words(), HasSubstr("The search was stopped."));
  EXPECT_TRUE(WaitUntil([this] { return finder->cancelled == 1; }));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(closed);
  EXPECT_FALSE(answer.has_value());
}

// Nobody has to wait for a service to close the window, nor does its late answer reach anybody.
TEST_F(Phonetics, ClosesWhileSearching) {
  finder->isHeld = true;
  Open();
  ASSERT_TRUE(WaitUntil([this] { return finder->Asked().size() == 1; }));
  window->close();
  EXPECT_TRUE(closed);
  EXPECT_FALSE(answer.has_value());
  EXPECT_TRUE(WaitUntil([this] { return finder->cancelled == 1; }));
}

// Insert need not be pressed twice: given before the search has ended, it counts when it does, and no longer
// when the word is another by then.
TEST_F(Phonetics, InsertsWhenTheSearchEnds) {
  finder->isHeld = true;
  Open();
  Press(Qt::Key_Return);
  EXPECT_FALSE(closed);
  Type("bye");
  finder->isHeld = false;
  ASSERT_TRUE(WaitForShown("[bye]"));
  finder->isHeld = true;
  Type("s");
  Press(Qt::Key_Return);
  EXPECT_FALSE(closed);
  finder->isHeld = false;
  ASSERT_TRUE(WaitUntil([this] { return closed; }));
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->phonetic, "[byes]");
}

// A word that nobody has is told under the field and can be corrected; who gives up then still has chosen a
// language. An empty word is nothing to insert and nothing to complain about.
TEST_F(Phonetics, StaysOpenWhenNothingIsFound) {
  finder->answer = [](auto&, auto&) { return PhoneticAnswer(); };
  Open("xyzzy", "German");
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([this] { return Words().find("No phonetic") != std::string::npos; }));
  EXPECT_FALSE(closed);
  EXPECT_EQ(FromQt(QApplication::focusWidget()->accessibleDescription()),
            "No phonetic transcription was found.");
  Picture(*window, "phonetics-failed");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  EXPECT_THAT(Words(), Not(HasSubstr("No phonetic")));
  const std::size_t asked = finder->Asked().size();
  Press(Qt::Key_Return);
  EXPECT_FALSE(closed);
  EXPECT_EQ(finder->Asked().size(), asked);
  Press(Qt::Key_Escape);
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->language, "German");
  EXPECT_EQ(answer->phonetic, "");
}

}  // namespace
}  // namespace quill::ui
