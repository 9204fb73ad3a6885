#pragma once
#include <vector>

namespace quill::ui {

/// A new order of a list's rows: for each place from the top, the row that stood elsewhere before.
using RowOrder = std::vector<int>;

enum class RowStep { Up, Down };

/// The rows, wherever they stand, gathered in front of the row `before` (`count`: at the end), in the order
/// in which they stand. Every row from 0 to `count`. O(count + rows log rows).
RowOrder RowsGatheredAt(int count, std::vector<int> rows, int before);

/// Each of the rows one place up or down; those that have reached the end stay and hold up the ones behind
/// them. O(count).
RowOrder RowsShifted(int count, const std::vector<int>& rows, RowStep step);

/// Whether the order leaves every row where it is.
bool IsUnchanged(const RowOrder& order);

}  // namespace quill::ui
