#include "ui/kit/key_text.h"

#include <gtest/gtest.h>

#include <QKeySequence>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/qt_language.h"

namespace quill::ui {
namespace {

// The menu, which Qt writes, and the options, which we write, must call the same keys by the same names.
TEST(KeyText, NamesTheKeysAsTheMenuDoes) {
  const platform::KeyCombination letter{true, true, true, false, "D"};
  const platform::KeyCombination space{true, false, true, false, "Space"};
  const platform::KeyCombination logo{false, false, false, true, "F5"};
  for (const char* language : {"de", "fr", "es", "ja", "zh-Hans", "en"}) {
    QtLanguage qt;
    qt.Use(language);
    for (const platform::KeyCombination& keys : {letter, space}) {
      EXPECT_EQ(FromQt(HotKeyText(keys)), FromQt(KeySequence(keys).toString(QKeySequence::NativeText)))
          << language;
    }
    EXPECT_EQ(KeySequence(logo), QKeySequence(Qt::META | Qt::Key_F5)) << language;
  }
}

}  // namespace
}  // namespace quill::ui
