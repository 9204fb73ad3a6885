#include "ui/kit/alert_box.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/modal_window.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"

namespace quill::ui {
namespace {

/// True when a label can show the text without becoming larger than a screen: it neither breaks words nor
/// scrolls.
bool FitsALabel(const QString& text) {
  constexpr qsizetype kLongest = 1200;
  constexpr qsizetype kLongestWord = 70;
  constexpr qsizetype kMostLines = 16;
  if (text.size() > kLongest || text.count(u'\n') >= kMostLines) return false;
  qsizetype word = 0;
  return std::all_of(text.begin(), text.end(), [&word](QChar c) {
    word = c.isSpace() ? 0 : word + 1;
    return word <= kLongestWord;
  });
}

QWidget* NewLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setMinimumWidth(label->fontMetrics().averageCharWidth() * (text.size() > 60 ? 56 : 36));
  return label;
}

QWidget* NewScrollingText(const QString& text) {
  auto* view = new QPlainTextEdit(text);
  view->setReadOnly(true);
  view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  view->setTabChangesFocus(true);
  return view;
}

/// An icon beside a text; the buttons are left to the derived boxes.
class MessageBox : public AnswerWindow<bool> {
 protected:
  MessageBox(const shell::StringTable& strings, const QString& text, QStyle::StandardPixmap icon, Done done,
             QWidget* above)
      : AnswerWindow(strings, "appTitle", std::move(done)) {
    if (above != nullptr) setParent(above, windowFlags());
    setAccessibleDescription(text);
    auto* row = new QHBoxLayout;
    row->setSpacing(style()->pixelMetric(QStyle::PM_LayoutLeftMargin));
    auto* picture = new QLabel;
    picture->setPixmap(
        style()->standardIcon(icon).pixmap(style()->pixelMetric(QStyle::PM_MessageBoxIconSize)));
    row->addWidget(picture, 0, Qt::AlignTop);
    const bool small = FitsALabel(text);
    QWidget* message = small ? NewLabel(text) : NewScrollingText(text);
    if (!small) resize(fontMetrics().averageCharWidth() * 84, fontMetrics().lineSpacing() * 18);
    message->setAccessibleName(text);
    row->addWidget(message, 1);
    content().addLayout(row, small ? 0 : 1);
    if (small) content().addStretch(1);
    buttons().clear();
    auto* copy = new QShortcut(QKeySequence(QKeySequence::Copy), this);
    connect(copy, &QShortcut::activated, this, [text] { QApplication::clipboard()->setText(text); });
  }

  Result<bool, Problem> Read() override { return true; }
};

class AlertBox final : public MessageBox {
 public:
  AlertBox(const shell::StringTable& strings, const QString& text, Done done, QWidget* above)
      : MessageBox(strings, text, QStyle::SP_MessageBoxInformation, std::move(done), above) {
    QPushButton& ok = AddButton("strOk", QDialogButtonBox::AcceptRole);
    ok.setDefault(true);
    ok.setFocus();
  }
};

class QuestionBox final : public MessageBox {
 public:
  QuestionBox(const shell::StringTable& strings, const QString& text, Done done, QWidget* above)
      : MessageBox(strings, text, QStyle::SP_MessageBoxQuestion, std::move(done), above) {
    buttons().hide();  // it would put the two in the order of the platform
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    QPushButton* no = NewButton("strNo", false);
    row->addWidget(no);
    row->addWidget(NewButton("strYes", true));
    content().addLayout(row);
    no->setDefault(true);
    no->setFocus();
  }

 private:
  QPushButton* NewButton(std::string_view key, bool answer) {
    auto* button = new QPushButton(Text(key));
    connect(button, &QPushButton::clicked, this, [this, answer] { FinishWith(answer); });
    return button;
  }
};

}  // namespace

QWidget* ShowAlert(const shell::StringTable& strings, const QString& text, std::function<void()> closed,
                   QWidget* above) {
  auto done = [closed = std::move(closed)](std::optional<bool>) {
    if (closed) closed();
  };
  auto* box = new AlertBox(strings, text, std::move(done), above);
  BringToFront(*box);
  return box;
}

QWidget* ShowQuestion(const shell::StringTable& strings, const QString& text,
                      std::function<void(bool)> answered, QWidget* above) {
  auto done = [answered = std::move(answered)](std::optional<bool> yes) { answered(yes.value_or(false)); };
  auto* box = new QuestionBox(strings, text, std::move(done), above);
  BringToFront(*box);
  return box;
}

}  // namespace quill::ui
