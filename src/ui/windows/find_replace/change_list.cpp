#include "ui/windows/find_replace/change_list.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/qt_text.h"
#include "ui/windows/plain_text_view.h"

namespace quill::ui {
namespace {

struct NamedKind {
  const char* kind;
  const char* key;
};

constexpr NamedKind kKinds[] = {{"cell", "strFindReplaceCell"},
                                {"heading", "strFindReplaceHeading"},
                                {"item", "strFindReplaceItem"},
                                {"paragraph", "strFindReplaceParagraph"},
                                {"text", "strFindReplaceText"}};

/// Where two texts begin to differ.
qsizetype FirstDifference(const QString& a, const QString& b) {
  const auto found = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  return found.first - a.begin();
}

/// A text from shortly before a place on, so that what differs there is seen in a narrow column.
QString Excerpt(const QString& text, qsizetype at) {
  constexpr qsizetype kBefore = 12;
  constexpr qsizetype kLongest = 300;
  const bool isCut = at > 2 * kBefore;
  const QString part = isCut ? u'…' + text.mid(at - kBefore) : text;
  return part.size() <= kLongest ? part : part.left(kLongest) + u'…';
}

/// Long texts are told as a tool tip only as far as a screen has room for.
QString ToolTip(const QString& text) {
  constexpr qsizetype kLongest = 2'000;
  return text.size() <= kLongest ? text : text.left(kLongest) + u'…';
}

}  // namespace

ChangeList::ChangeList(const shell::StringTable& strings)
    : m_strings(strings),
      m_title(new QLabel),
      m_asJson(new QCheckBox(Text("strFindReplaceJson"))),
      m_texts(new QTreeWidget),
      m_json(new PlainTextView({})),
      m_stack(new QStackedWidget) {
  auto* row = new QHBoxLayout;
  row->addWidget(m_title);
  row->addStretch(1);
  row->addWidget(m_asJson);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addLayout(row);
  column->addWidget(m_stack, 1);
  m_title->setObjectName(QStringLiteral("changes"));
  m_asJson->setObjectName(QStringLiteral("asJson"));
  m_json->setAccessibleName(Text("strFindReplaceJsonName"));
  m_json->setTabChangesFocus(true);
  m_stack->addWidget(NewTexts());
  m_stack->addWidget(m_json);
  connect(m_asJson, &QCheckBox::toggled, this, [this](bool isOn) {
    m_stack->setCurrentWidget(isOn ? static_cast<QWidget*>(m_json) : m_texts);
    if (isOn) emit JsonWanted();
  });
  SetChanges({});
}

QWidget* ChangeList::NewTexts() {
  m_texts->setHeaderLabels(
      {Text("strFindReplaceWhere"), Text("strFindReplaceBefore"), Text("strFindReplaceAfter")});
  m_texts->setAccessibleName(Text("strFindReplaceChanges"));
  m_texts->setRootIsDecorated(false);
  m_texts->setUniformRowHeights(true);
  m_texts->setAlternatingRowColors(true);
  m_texts->setTabKeyNavigation(false);
  QHeaderView* header = m_texts->header();
  header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(1, QHeaderView::Stretch);
  header->setSectionResizeMode(2, QHeaderView::Stretch);
  header->setStretchLastSection(false);
  header->setResizeContentsPrecision(100);
  connect(m_texts, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item != nullptr) emit Chosen(m_texts->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item)));
  });
  return m_texts;
}

void ChangeList::SetChanges(const std::vector<PageChange>& changes) {
  m_title->setText(changes.empty() ? Text("strFindReplaceNoChanges")
                                   : ToQt(m_strings.Format("strFindReplaceChangeCount",
                                                           {std::to_string(changes.size())})));
  const QSignalBlocker quiet(m_texts);  // a new list is nothing that the user has chosen from
  QList<QTreeWidgetItem*> rows;
  for (const PageChange& change : changes) {
    const qsizetype at = FirstDifference(change.before, change.after);
    auto* row =
        new QTreeWidgetItem({KindText(change.kind), Excerpt(change.before, at), Excerpt(change.after, at)});
    row->setToolTip(1, ToolTip(change.before));
    row->setToolTip(2, ToolTip(change.after));
    rows += row;
  }
  m_texts->clear();
  m_texts->addTopLevelItems(rows);
}

bool ChangeList::ShowsJson() const {
  return m_asJson->isChecked();
}

void ChangeList::SetJson(const QString& json) {
  constexpr qsizetype kMostShown = 200'000;  // the rest could be copied, but not laid out in time
  m_json->SetText(json, kMostShown);
}

QString ChangeList::Text(const char* key) const {
  return ToQt(m_strings.Text(key));
}

QString ChangeList::KindText(const QString& kind) const {
  const auto* row = std::ranges::find_if(kKinds, [&](const NamedKind& each) { return kind == each.kind; });
  return Text(row == std::end(kKinds) ? "strFindReplaceText" : row->key);
}

}  // namespace quill::ui
