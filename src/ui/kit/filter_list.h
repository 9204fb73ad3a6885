#pragma once
#include <QWidget>

#include "ui/kit/filtered_model.h"

class QAbstractItemDelegate;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListView;
class QStackedLayout;

namespace quill::ui {

/// A field and the list that it filters while one types.
///
/// The keyboard is in the field: Up, Down, Page Up and Page Down move in the list, and so do Home and End
/// with Control or in an empty field; Return chooses. With the keyboard in the list, letters go to the field.
/// GUI thread.
class FilterList final : public QWidget {
  Q_OBJECT

 public:
  struct Texts {
    QString filter;    ///< what the field is for
    QString list;      ///< what is in the list
    QString nothing;   ///< shown when there are no rows
    QString notFound;  ///< shown when the filter leaves none
  };
  /// What a mouse chooses with.
  enum class Click { Single, Double };

  /// The model outlives the list. Rows are drawn by `delegate`, which the list takes; all are of one height.
  FilterList(FilteredModel& model, QAbstractItemDelegate* delegate, Click click, const Texts& texts);

  /// The current row; −1 when there is none.
  int Current() const;

  /// Makes this row the current one, or the first when it is filtered out.
  void SetCurrent(int row);

  /// The row that is gone back to whenever the filter is empty again; −1 for the one where the user was.
  void SetHome(int row) { m_home = row; }

  /// Empties the field. False when it was empty.
  bool ClearFilter();

  /// Looks at the model again, whose rows were exchanged.
  void Refresh(int current);

  /// Tells a screen reader about the current row again: what it says has changed.
  void TellCurrent();

  QListView& view() { return *m_view; }

 signals:
  void Chosen(int row);
  void CurrentChanged();
  /// The menu key, or a click with the right button on a row, which is the current one by then.
  void MenuWanted(const QPoint& where);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildView(QAbstractItemDelegate* delegate, Click click);
  void Lay(const Texts& texts);
  void Filter();
  void ShowListOrReason();
  bool TakeFieldKey(const QKeyEvent& key);
  bool TakeViewKey(QKeyEvent& key);
  bool TakeMenuKey(QObject* watched, QEvent& event);
  void MoveTo(int place);
  void Choose(const QModelIndex& index);

  FilteredModel& m_model;
  QLineEdit* m_field;
  QListView* m_view;
  QLabel* m_reason;
  QStackedLayout* m_stack = nullptr;
  QString m_nothing, m_notFound;
  int m_home = -1;
  int m_before = -1;  ///< the current row when filtering began
  bool m_filtered = false;
};

}  // namespace quill::ui
