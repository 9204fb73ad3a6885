#include "ui/windows/win_test.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/kit/qt_text.h"
#include "ui/windows/plain_text_view.h"

namespace quill::ui {

MWinTest::MWinTest(const shell::StringTable& strings, const shell::TextRequest& request)
    : ToolWindow(strings, "appTitle") {
  if (!request.title.empty()) setWindowTitle(ToQt(request.title));
  auto* view = new PlainTextView(ToQt(request.text));
  view->setAccessibleName(windowTitle());
  const QFontMetrics letters = view->fontMetrics();
  view->setMinimumSize(letters.averageCharWidth() * 30, letters.lineSpacing() * 6);
  auto* copied = new QLabel;
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* copy = buttons->addButton(Text("strCopyAll"), QDialogButtonBox::ActionRole);
  buttons->button(QDialogButtonBox::Close)->setText(Text("strClose"));
  auto* row = new QHBoxLayout;
  row->addWidget(copied);
  row->addWidget(buttons, 1);
  auto* column = new QVBoxLayout(this);
  column->addWidget(view, 1);
  column->addLayout(row);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(copy, &QPushButton::clicked, this, [this, view, copied] {
    CopyText(view->original());
    copied->setText(Text("strCopied"));
  });
  copy->setDefault(true);
  resize(letters.averageCharWidth() * 90, letters.lineSpacing() * 30);
}

}  // namespace quill::ui
