#include <QAbstractButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <set>

#include "options_world.h"
#include "ui/kit/page_mnemonics.h"

namespace quill::ui {
namespace {

using testing::IsEmpty;

const std::pair<MWinOptions::Page, const char*> kPages[] = {{MWinOptions::Page::General, "options-general"},
                                                            {MWinOptions::Page::Pages, "options-pages-first"},
                                                            {MWinOptions::Page::Tools, "options-tools"},
                                                            {MWinOptions::Page::HotKeys, "options-keys"},
                                                            {MWinOptions::Page::Account, "options-account"}};

/// The letters after "&" of what is on a page, and of what is on all.
std::vector<QChar> Letters(const QTabWidget& tabs, const QWidget& window) {
  QStringList texts;
  for (int i = 0; i < tabs.count(); ++i) texts += tabs.tabText(i);
  for (auto* button : window.findChildren<QAbstractButton*>()) {
    if (tabs.currentWidget()->isAncestorOf(button) || !tabs.isAncestorOf(button)) texts += button->text();
  }
  for (auto* label : tabs.currentWidget()->findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) texts += label->text();
  }
  std::vector<QChar> letters;
  for (const QString& text : texts) {
    const qsizetype at = text.indexOf(u'&');
    if (at >= 0) letters.push_back(text[at + 1].toLower());
  }
  return letters;
}

/// What has less room than its text needs.
std::vector<std::string> Clipped(const QWidget& page) {
  std::vector<std::string> clipped;
  for (auto* label : page.findChildren<QLabel*>()) {
    const bool fits = label->wordWrap() ? label->height() >= label->heightForWidth(label->width())
                                        : label->width() >= label->sizeHint().width();
    if (label->isVisible() && !fits) clipped.push_back(FromQt(label->text()));
  }
  for (auto* button : page.findChildren<QAbstractButton*>()) {
    const bool fits = button->width() >= button->minimumSizeHint().width();
    if (button->isVisible() && !button->text().isEmpty() && !fits) clipped.push_back(FromQt(button->text()));
  }
  return clipped;
}

/// Layouts with wrapped texts take several passes, on a busy machine for a while.
void Settle(const QWidget& page) {
  ProcessEventsFor(20ms);
  WaitUntil([&page] { return Clipped(page).empty(); }, 1s);
}

// Alt with a letter reaches one control, on every page.
TEST_F(OptionsTest, GivesEveryControlALetterOfItsOwn) {
  facts.hotKeysPossible = false;
  ASSERT_NE(Open(), nullptr);
  const auto* tabs = window->findChild<QTabWidget*>();
  for (const auto& [page, name] : kPages) {
    window->ShowPage(page);
    const std::vector<QChar> letters = Letters(*tabs, *window);
    EXPECT_GE(letters.size(), 7U) << name;
    EXPECT_EQ(std::set<QChar>(letters.begin(), letters.end()).size(), letters.size()) << name;
  }
}

// Titles without Latin letters are reached by keys, too.
TEST(PageMnemonics, PutsALetterBehindOtherScripts) {
  QSet<QChar> taken{u'a'};
  EXPECT_EQ(FromQt(WithMnemonic(QStringLiteral("言語："), taken)), "言語(&B)：");
  EXPECT_EQ(FromQt(WithMnemonic(QStringLiteral("Backup & Big"), taken)), "Ba&ckup && Big");
  EXPECT_EQ(FromQt(WithMnemonic(QStringLiteral("Change days"), taken)), "Change &days");
}

// A screen reader says the name of a field and not its punctuation, in any language.
TEST(WithoutColon, LeavesTheName) {
  EXPECT_EQ(FromQt(WithoutColon(QStringLiteral("Word:"))), "Word");
  EXPECT_EQ(FromQt(WithoutColon(QStringLiteral("Langue\u00a0:"))), "Langue");
  EXPECT_EQ(FromQt(WithoutColon(QStringLiteral("语言："))), "语言");
}

// Other languages need more room than English; no text may be cut off for it.
TEST_F(OptionsTest, HasRoomForLongerTexts) {
  facts.settings.OnlineOneNoteUserPrincipalName = "a.very.long.name.of.somebody@a.long.domain.example.com";
  ASSERT_NE(Open(), nullptr);
  const auto* tabs = window->findChild<QTabWidget*>();
  const bool isRoomy =
      window->screen()->availableSize().width() > 640;  // not when pictures are twice as large
  for (const bool isLong : {false, true}) {
    for (const auto& [page, name] : kPages) {
      window->ShowPage(page);
      const auto lengthen = [isLong](auto* widget) {
        const QString text = widget->text();
        const QString more = text.left(text.size() * 2 / 5).remove(u'&');
        if (isLong) widget->setText(text + QStringLiteral(" ab") + more);
      };
      for (auto* label : tabs->currentWidget()->findChildren<QLabel*>()) lengthen(label);
      for (auto* button : tabs->currentWidget()->findChildren<QAbstractButton*>()) {
        if (!button->text().isEmpty()) lengthen(button);
      }
      Settle(*tabs->currentWidget());
      EXPECT_THAT(Clipped(*tabs->currentWidget()), IsEmpty()) << name;
      auto* area = qobject_cast<QScrollArea*>(tabs->currentWidget());
      if (isRoomy) {
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << name;
      }
      Picture(*window, std::string(name) + (isLong ? "-long" : ""));
    }
  }
}

// The texts that are there, in the size that the window opens with: nothing is cut off and nothing scrolls
// sideways.
TEST_F(OptionsTest, HasRoomForEveryLanguage) {
  ASSERT_NE(Open(), nullptr);
  const bool isRoomy = window->screen()->availableSize().width() > 640;
  for (const char* language : {"de", "es", "fr", "ja", "zh-Hans"}) {
    world.strings.UseLanguage(language);
    window->Retranslate();
    ASSERT_TRUE(WaitUntil([this] { return window->findChildren<QTabWidget*>().size() == 1; }));
    const auto* tabs = window->findChild<QTabWidget*>();
    for (const auto& [page, name] : kPages) {
      window->ShowPage(page);
      Settle(*tabs->currentWidget());
      EXPECT_THAT(Clipped(*tabs->currentWidget()), IsEmpty()) << name << language;
      auto* area = qobject_cast<QScrollArea*>(tabs->currentWidget());
      if (isRoomy) {
        EXPECT_LE(area->widget()->width(), area->viewport()->width()) << name << language;
      }
      Picture(*window, std::string(name) + "-" + language);
    }
  }
}

}  // namespace
}  // namespace quill::ui
