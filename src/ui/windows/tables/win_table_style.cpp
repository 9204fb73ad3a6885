#include "ui/windows/tables/win_table_style.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "content/xml_serializer.h"
#include "tools/table_style.h"
#include "ui/kit/labelled_part.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/tables/table_style_icon.h"
#include "ui/windows/tables/table_style_name.h"

namespace quill::ui {
namespace {

constexpr int kStylesInRow = 7;  ///< the styles come in kinds of seven colours

/// Fills the whole field of a selected style: its number alone would be hard to see among so many.
class StyleDelegate final : public QStyledItemDelegate {
 public:
  StyleDelegate(QSize size, QObject* parent) : QStyledItemDelegate(parent), m_size(size) {}

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return m_size; }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->showDecorationSelected = true;
    if (option->state.testFlag(QStyle::State_Selected)) option->state &= ~QStyle::State_HasFocus;
  }

 private:
  QSize m_size;
};

/// A grid that wants to be just as large as all styles need, and scrolls where there is less room.
class StyleGrid final : public QListWidget {
 public:
  StyleGrid() {
    const int line = fontMetrics().lineSpacing();
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setIconSize(QSize(line * 7 / 2, line * 5 / 2));
    const QSize field(line * 9 / 2, line * 4);
    setItemDelegate(new StyleDelegate(field, this));
    setGridSize(field + QSize(line / 4, line / 4));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  }

  QSize sizeHint() const override {
    const int rows = (count() + kStylesInRow - 1) / kStylesInRow;
    const int frame = 2 * frameWidth() + 2;
    return QSize(gridSize().width() * kStylesInRow + frame + verticalScrollBar()->sizeHint().width(),
                 gridSize().height() * rows + frame);
  }
  QSize minimumSizeHint() const override { return gridSize() * 2; }

 protected:
  /// The arrow keys go where they point in a mirrored window, too.
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override {
    if (isRightToLeft() && action == MoveLeft) return QListWidget::moveCursor(MoveRight, modifiers);
    if (isRightToLeft() && action == MoveRight) return QListWidget::moveCursor(MoveLeft, modifiers);
    return QListWidget::moveCursor(action, modifiers);
  }
};

}  // namespace

MWinTableStyle::MWinTableStyle(const shell::StringTable& strings, const shell::TableStyleRequest& request,
                               Done done)
    : AnswerWindow(strings, "titleTableStyle", std::move(done)),
      m_table(request.table),
      m_styles(new StyleGrid),
      m_preview(new PagePreview) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins({});
  row->addWidget(NewStylesPart(strings));
  row->addWidget(NewPreviewPart(), 1);
  content().addWidget(page, 1);
  AssignMnemonics(*page, {});
  if (tools::FindTableStyle(request.selected) != nullptr) {
    m_styles->setCurrentRow(static_cast<int>(request.selected));
  }
  m_styles->setFocus();
  ShowPreview();
  // A window that chooses its size itself would take no more than two thirds of a small screen.
  resize(sizeHint() + QSize(fontMetrics().averageCharWidth() * 8, 0));
  connect(m_styles, &QListWidget::itemSelectionChanged, this, [this] {
    ClearProblem();
    ShowPreview();
  });
  connect(m_styles, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

void MWinTableStyle::showEvent(QShowEvent* event) {
  AnswerWindow::showEvent(event);
  if (m_styles->currentItem() != nullptr) m_styles->scrollToItem(m_styles->currentItem());
}

QWidget* MWinTableStyle::NewStylesPart(const shell::StringTable& strings) {
  int number = 0;
  for (const tools::TableStyle& style : tools::kTableStyles) {
    ++number;
    auto* item = new QListWidgetItem(TableStyleIcon(style), QString::number(number), m_styles);
    const QString name = ToQt(TableStyleName(strings, number, style));
    item->setData(Qt::AccessibleTextRole, name);
    item->setToolTip(name);
  }
  return new LabelledPart(Text("strTableStyles"), m_styles);
}

QWidget* MWinTableStyle::NewPreviewPart() {
  m_preview->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
  return new LabelledPart(Text("strTablePreview"), m_preview);
}

std::int64_t MWinTableStyle::Selected() const {
  const QList<QListWidgetItem*> selected = m_styles->selectedItems();
  return selected.isEmpty() ? -1 : m_styles->row(selected.front());
}

void MWinTableStyle::ShowPreview() {
  pugi::xml_document styled;
  styled.reset(*m_table);
  if (const tools::TableStyle* style = tools::FindTableStyle(Selected())) {
    tools::ChangeStyle(styled.document_element(), *style);
  }
  std::string html;
  content::AppendXml(html, styled);
  m_preview->ShowHtml(html);
}

Result<std::int64_t, Problem> MWinTableStyle::Read() {
  const std::int64_t selected = Selected();
  if (selected < 0) return Refuse(m_styles, "errTableStyleNone");
  return selected;
}

}  // namespace quill::ui
