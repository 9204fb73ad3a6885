#include "ui/windows/dates/pattern_box.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/qt_text.h"
#include "ui/kit/wrapped_label.h"
#include "ui/windows/dates/letter_list.h"

namespace quill::ui {
namespace {

constexpr int kPreviewLines = 3;
constexpr qsizetype kLongestPreview = 120;

/// Shows a common pattern together with what it writes; what is chosen is the pattern alone.
class CommonPatterns final : public QStyledItemDelegate {
 public:
  CommonPatterns(QObject* parent, std::chrono::system_clock::time_point moment)
      : QStyledItemDelegate(parent), m_moment(moment) {}

  QString displayText(const QVariant& value, const QLocale&) const override {
    const QString pattern = value.toString();
    const std::string written = tools::FormatDate(FromQt(pattern), m_moment);
    return QStringLiteral("%1   ·   %2").arg(ToQt(written), pattern);
  }

 private:
  std::chrono::system_clock::time_point m_moment;
};

QString Shortened(const QString& text) {
  return text.size() <= kLongestPreview ? text : text.left(kLongestPreview - 1) + u'…';
}

}  // namespace

PatternBox::PatternBox(const shell::StringTable& strings, const Contents& contents,
                       std::chrono::system_clock::time_point moment)
    : m_strings(strings), m_moment(moment), m_field(new QComboBox), m_preview(NewWrappedLabel({})) {
  auto* label = new QLabel(ToQt(strings.Text(contents.labelKey)));
  label->setBuddy(m_field);
  m_field->setAccessibleName(label->text());
  m_field->setEditable(true);
  m_field->setInsertPolicy(QComboBox::NoInsert);
  m_field->setCompleter(nullptr);  // it would take "mm" for "MM"
  AddCommon(contents.common);
  // An arrow key goes on from the present pattern; from one of the user's own to the first of the list.
  m_field->setCurrentIndex(m_field->findText(ToQt(contents.present)));
  m_field->setEditText(ToQt(contents.present));
  m_preview->setMinimumHeight(m_preview->fontMetrics().lineSpacing() * kPreviewLines);

  auto* letters = new LetterList(strings, contents.letters, moment);
  letters->setAccessibleName(ToQt(strings.Text(contents.helpKey)));
  letters->setAccessibleDescription(ToQt(strings.Text("strPatternInsertHelp")));
  letters->setToolTip(letters->accessibleDescription());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(label);
  column->addWidget(m_field);
  column->addWidget(m_preview);
  column->addWidget(letters, 1);
  connect(m_field, &QComboBox::editTextChanged, this, [this] { ShowPreview(); });
  // Later, for the line of a refused pattern takes its own description away when the field is changed.
  connect(m_field, &QComboBox::editTextChanged, this, &PatternBox::DescribeField, Qt::QueuedConnection);
  connect(letters, &LetterList::Chosen, this, [this](const QString& chosen) { InsertLetters(chosen); });
  ShowPreview();
  DescribeField();
}

std::string PatternBox::Pattern() const {
  return FromQt(m_field->currentText());
}

QWidget* PatternBox::field() const {
  return m_field;
}

void PatternBox::Begin() {
  m_field->setFocus();
  m_field->lineEdit()->selectAll();
}

void PatternBox::AddCommon(std::span<const std::string_view> patterns) {
  auto* delegate = new CommonPatterns(m_field, m_moment);
  m_field->setItemDelegate(delegate);
  for (const std::string_view pattern : patterns) {
    m_field->addItem(ToQt(pattern));
    m_field->setItemData(m_field->count() - 1, delegate->displayText(ToQt(pattern), {}),
                         Qt::AccessibleTextRole);
  }
  m_field->view()->setMinimumWidth(m_field->view()->sizeHintForColumn(0));
  // Else the field is as wide as its longest pattern.
  m_field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_field->setMinimumContentsLength(20);
}

void PatternBox::ShowPreview() {
  const tools::PatternCheck check = tools::CheckDatePattern(Pattern(), m_moment);
  QStringList lines;
  if (!check.text.empty()) {
    lines += ToQt(m_strings.Format("strPatternPreview", {FromQt(Shortened(ToQt(check.text)))}));
  }
  if (const QString problem = ProblemText(check); !problem.isEmpty()) lines += problem;
  m_preview->setText(lines.join(u'\n'));
}

void PatternBox::DescribeField() {
  m_field->setAccessibleDescription(m_preview->text());
}

QString PatternBox::ProblemText(const tools::PatternCheck& check) const {
  switch (check.problem) {
    case tools::PatternProblem::UnknownLetter:
      return ToQt(m_strings.Format("strPatternUnknownLetter", {std::string(1, Pattern()[check.position])}));
    case tools::PatternProblem::OpenQuote:
      return ToQt(m_strings.Text("strPatternOpenQuote"));
    case tools::PatternProblem::NothingWritten:
      return ToQt(m_strings.Text("strPatternNothing"));
    case tools::PatternProblem::None:
    case tools::PatternProblem::Empty:
      break;
  }
  return {};
}

void PatternBox::InsertLetters(const QString& letters) {
  QLineEdit& edit = *m_field->lineEdit();
  // A field that the keyboard came to is selected as a whole; that is not meant to be replaced.
  edit.deselect();
  m_field->setFocus(Qt::OtherFocusReason);
  const qsizetype gap = letters.indexOf(u'…');
  edit.insert(gap < 0 ? letters : letters.left(gap) + letters.mid(gap + 1));
  if (gap >= 0) edit.cursorBackward(false, static_cast<int>(letters.size() - gap - 1));
}

}  // namespace quill::ui
