#pragma once
#include <QTranslator>
#include <string_view>

namespace quill::ui {

/// The language of what Qt itself writes: file panels, standard buttons, context menus. GUI thread.
class QtLanguage {
 public:
  /// Takes a language's texts (a tag of `shell::Languages`) from Qt's own translations where they are
  /// installed; without them these texts stay English.
  void Use(std::string_view language);

 private:
  QTranslator m_translator;
};

}  // namespace quill::ui
