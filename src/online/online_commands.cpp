#include <algorithm>

#include "online/online_main.h"

namespace quill::online {

const MOnlineOneNoteMain::Command* MOnlineOneNoteMain::FindCommand(std::int64_t number) {
  using M = MOnlineOneNoteMain;
  static constexpr Command kCommands[] = {
      {0, true, &M::ExportTagsAsCsv},
      {1, true, &M::ExportTagsAsXml},
      {2, true, &M::CreateTOCHeadings},
      {3, true, &M::NavigatePane},
      {10000, false, &M::CreateTOCSectionPages},
      {10001, false, &M::CreateTOCNotebooks},
      {10002, true, &M::FindReplace},
      {10003, false, &M::InsertBreadcrumb},
      {10004, false, &M::ExportPersonalNotobook},
      {10005, false, &M::ListNotebooks},
  };
  const auto* row = std::ranges::find(kCommands, number, &Command::number);
  return row == std::end(kCommands) ? nullptr : row;
}

}  // namespace quill::online
