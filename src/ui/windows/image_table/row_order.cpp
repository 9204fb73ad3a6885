#include "ui/windows/image_table/row_order.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quill::ui {
namespace {

RowOrder Present(int count) {
  RowOrder order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 0);
  return order;
}

std::vector<bool> Marked(int count, const std::vector<int>& rows) {
  std::vector<bool> marked(static_cast<std::size_t>(count), false);
  for (const int row : rows) marked[static_cast<std::size_t>(row)] = true;
  return marked;
}

}  // namespace

RowOrder RowsGatheredAt(int count, std::vector<int> rows, int before) {
  const std::vector<bool> moves = Marked(count, rows);
  std::ranges::sort(rows);
  RowOrder order;
  order.reserve(static_cast<std::size_t>(count));
  for (int row = 0; row <= count; ++row) {
    if (row == before) order.insert(order.end(), rows.begin(), rows.end());
    if (row < count && !moves[static_cast<std::size_t>(row)]) order.push_back(row);
  }
  return order;
}

RowOrder RowsShifted(int count, const std::vector<int>& rows, RowStep step) {
  RowOrder order = Present(count);
  std::vector<bool> moves = Marked(count, rows);
  const bool isUp = step == RowStep::Up;
  if (!isUp) {
    std::ranges::reverse(order);
    std::reverse(moves.begin(), moves.end());
  }
  for (std::size_t place = 1; place < order.size(); ++place) {
    if (!moves[place] || moves[place - 1]) continue;
    std::swap(order[place - 1], order[place]);
    moves[place - 1] = true;
    moves[place] = false;
  }
  if (!isUp) std::ranges::reverse(order);
  return order;
}

bool IsUnchanged(const RowOrder& order) {
  return std::ranges::is_sorted(order);
}

}  // namespace quill::ui
