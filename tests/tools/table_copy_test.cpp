#include <gtest/gtest.h>

#include <sstream>

#include "tools/parsed_selection.h"
#include "tools/table_copy.h"

namespace quill::tools {
namespace {

std::string Beginning(const std::string& table, const ExcerptLimits& limits) {
  content::WorkingDocument document = test::Parse(table);
  std::ostringstream out;
  CopyTableBeginning(test::FirstTable(document), limits)
      ->save(out, "", pugi::format_raw | pugi::format_no_declaration);
  return out.str();
}

// A preview shows the table's beginning as it is: in groups of rows too, without the rest.
TEST(TableCopy, TakesTheFirstRowsAndCells) {
  const std::string row = "<tr a=\"1\"><td>x<b>y</b></td><td/><td/></tr>";
  EXPECT_EQ(
      Beginning("<table b=\"2\">" + row + "text<tbody c=\"3\">" + row + row + "</tbody>" + row + "</table>",
                {2, 2, 1000, 1000, 100}),
      "<table b=\"2\"><tr a=\"1\"><td>x<b>y</b></td><td/></tr><tbody c=\"3\"><tr a=\"1\"><td>x<b>y</b></td>"
      "<td/></tr></tbody></table>");
}

// One cell can hold a whole page: the excerpt ends where it is full, and stays a table.
TEST(TableCopy, EndsWithinACell) {
  const std::string cell = "<td><p>one</p><p>two</p></td>";
  EXPECT_EQ(Beginning("<table><tr>" + cell + cell + "</tr></table>", {9, 9, 6, 1000, 100}),
            "<table><tr><td><p>one</p><p/></td></tr></table>");
  EXPECT_EQ(Beginning("<table><tr>" + cell + cell + "</tr></table>", {9, 9, 1000, 4, 100}),
            "<table><tr><td><p>one</p><p>two</p></td></tr></table>");
}

// A picture of many megabytes is no use in a preview, and slow.
TEST(TableCopy, LeavesLargePicturesOut) {
  const std::string large(200, 'x');
  EXPECT_EQ(Beginning("<table><tr><td><p><img src=\"" + large +
                          "\" alt=\"a\"/></p><img src=\"b\"/></td></tr></table>",
                      {9, 9, 1000, 1000, 100}),
            "<table><tr><td><p><img alt=\"a\"/></p><img src=\"b\"/></td></tr></table>");
}

}  // namespace
}  // namespace quill::tools
