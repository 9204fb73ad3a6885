#pragma once
#include <QAbstractListModel>
#include <functional>
#include <string>
#include <vector>

namespace quill::ui {

/// Rows of which only those are in the model that have every word of what was typed, in their own order.
/// Case, accents, width and punctuation do not count. Rows are known by their number among all of them, which
/// a filter does not change. Derive to hold the rows and to answer `data`. GUI thread.
class FilteredModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  /// Shows what has the words of this text; all for one without words. O(all texts).
  void Filter(const QString& text);

  /// How many rows there are, shown or not.
  int AllRows() const { return static_cast<int>(m_searched.size()); }

  /// The row behind an index of the model; −1 for an invalid one.
  int RowAt(const QModelIndex& index) const;

  /// Where a row is in the model; invalid when it is filtered out.
  QModelIndex IndexOf(int row) const;

  int rowCount(const QModelIndex& parent = {}) const final;

 protected:
  /// Exchanges all rows: `texts` is what is searched in, `change` has the derived class take its own data.
  /// The filter stays.
  void Exchange(const std::vector<std::string>& texts, const std::function<void()>& change);

 private:
  void Choose();

  std::vector<std::u32string> m_searched;  ///< of all rows
  std::vector<std::u32string> m_words;     ///< of the filter
  std::vector<int> m_shown;                ///< rows, ascending
};

}  // namespace quill::ui
