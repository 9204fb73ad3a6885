#pragma once
#include <QTreeWidget>
#include <optional>
#include <vector>

#include "practice/page_store.h"
#include "shell/string_table.h"

namespace quill::practice {

/// The list of sections and pages beside the page.
class PageTree final : public QTreeWidget {
  Q_OBJECT
 public:
  PageTree(const shell::StringTable& strings, QWidget* parent = nullptr);

  /// Shows these pages and marks one of them as the open one; tells nobody.
  void ShowPages(const std::vector<PageEntry>& pages, const PageAddress& open);

  /// The section that is marked, or that of the marked page.
  std::optional<std::string> CurrentSection() const;

 signals:
  /// The user chose a page.
  void Chosen(QString section, QString name);

 private:
  const shell::StringTable& m_strings;
};

}  // namespace quill::practice
