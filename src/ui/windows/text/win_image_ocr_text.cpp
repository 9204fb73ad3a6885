#include "ui/windows/text/win_image_ocr_text.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "tools/image_text.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/text/exact_text_edit.h"
#include "ui/windows/text/quiet_note.h"

namespace quill::ui {

MWinImageOCRText::MWinImageOCRText(const shell::StringTable& strings, const shell::ImageTextRequest& request,
                                   Done done)
    : AnswerWindow(strings, "titleImageText", std::move(done)),
      m_text(new ExactTextEdit(request.text)),
      m_note(new QuietNote) {
  m_text->setAccessibleName(windowTitle());
  m_text->setPlaceholderText(Text("strImageTextNone"));
  m_text->setTabChangesFocus(true);
  m_text->setMinimumSize(fontMetrics().averageCharWidth() * 64, fontMetrics().lineSpacing() * 14);
  m_text->moveCursor(QTextCursor::Start);
  auto* tidy = new QHBoxLayout;
  tidy->addWidget(NewTidyButton("strImageTextSpaces", tools::ClearExtraSpaces));
  tidy->addWidget(NewTidyButton("strImageTextParagraphs", tools::MergeAsParagraph));
  tidy->addWidget(m_note, 1);
  content().addWidget(m_text, 1);
  content().addLayout(tidy);

  OnlyClose();
  QPushButton& copy = AddButton("strCopy");
  copy.setAutoDefault(false);
  connect(&copy, &QPushButton::clicked, this, [this] { Copy(); });
  m_needText.push_back(&copy);
  AssignMnemonics(*this, {});
  connect(m_text, &QPlainTextEdit::textChanged, this, [this] { TextChanged(); });
  // For a button that has just been pressed and has the keyboard; the text itself undoes without them.
  connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, m_text, &QPlainTextEdit::undo);
  connect(new QShortcut(QKeySequence::Redo, this), &QShortcut::activated, m_text, &QPlainTextEdit::redo);
  TextChanged();
  m_text->setFocus();
}

QPushButton* MWinImageOCRText::NewTidyButton(std::string_view key, Tidy tidy) {
  auto* button = new QPushButton(Text(key));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, tidy] {
    if (!m_text->Replace(tidy(m_text->Text()))) m_note->Tell(Text("strImageTextSame"));
  });
  m_needText.push_back(button);
  return button;
}

void MWinImageOCRText::Copy() {
  CopyText(ToQt(m_text->Text()));
  m_note->Tell(Text("strCopied"));
}

void MWinImageOCRText::TextChanged() {
  m_note->Tell({});
  for (QPushButton* button : m_needText) button->setEnabled(!m_text->document()->isEmpty());
}

Result<std::monostate, Problem> MWinImageOCRText::Read() {
  return std::monostate{};
}

}  // namespace quill::ui
