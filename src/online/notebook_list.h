#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace quill::online {

enum class NotebookKind { Default, Ordinary, Deleted };

/// A row of the notebook list.
struct NotebookRow {
  std::string name;
  std::string clientLink;
  std::string webLink;
  NotebookKind kind = NotebookKind::Ordinary;

  bool operator==(const NotebookRow&) const = default;
};

/// The name of the icon in front of a row.
std::string_view NotebookIcon(NotebookKind kind);

/// The notebooks of an account and behind them the recently used ones that are gone, each in the service's
/// order.
///
/// Both bodies are lists of the service; one that is none yields no rows. A recent notebook is gone when no
/// notebook has its client link: escapes and case do not count. O(bodies).
std::vector<NotebookRow> Json2NotebookListView(std::string_view notebooksBody, std::string_view recentBody);

}  // namespace quill::online
