#pragma once
#include <optional>
#include <string>

#include "shell/engine_requests.h"
#include "tools/phonetics_dictionaries.h"
#include "ui/kit/modal_window.h"
#include "ui/windows/phonetics/phonetic_search.h"

class QComboBox;
class QLineEdit;

namespace quill::ui {

class PhoneticView;

/// Finds the transcription of a short word at once and while it is typed, that of a longer text when "Search"
/// or "Insert" is pressed. "Insert" before the search has ended closes the
/// window when it ends with a transcription.
class MWinPhonetics final : public AnswerWindow<shell::PhoneticChoice> {
  Q_OBJECT
 public:
  /// `hosts` names the dictionaries that have answered.
  MWinPhonetics(const shell::StringTable& strings, const shell::PhoneticsRequest& request, Done done);

  /// Cancel, Escape, and the window's close button: after an "Insert" that found nothing, the language is
  /// still an answer.
  void reject() override;

 protected:
  /// Escape ends a search first, then the window.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Result<shell::PhoneticChoice, Problem> Read() override;
  void AddControls(const shell::StringTable& strings, const shell::PhoneticsRequest& request);
  PhoneticWord Word() const;
  void WordChanged();
  void SearchNow();
  void Insert();
  void SearchChanged();
  void FinishInsert(const tools::PhoneticAnswer& answer);

  QLineEdit* m_word;
  QComboBox* m_language;
  PhoneticView* m_view;
  PhoneticSearch m_search;
  bool m_insertsWhenFound = false;
  bool m_hasFailed = false;
  std::string m_chosenLanguage;  // when "Insert" was pressed last
};

}  // namespace quill::ui
