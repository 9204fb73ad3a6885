#pragma once
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace quill::tools {

/// One colour scheme for a table. An empty colour means that its rule does not apply.
struct TableStyle {
  std::string_view icon;  ///< name of the list icon
  std::string_view headerRow;
  std::string_view firstColumn;
  std::string_view oddRows;  ///< rows count from 1, the header row included
  std::string_view evenRows;
};

// clang-format off
inline constexpr TableStyle kTableStyles[] = {
    {"TStyle1",           "",        "",        "white",   "#CCCCCC"},
    {"TStyle2",           "",        "",        "white",   "#DEEAF6"},
    {"TStyle3",           "",        "",        "white",   "#FBE4D5"},
    {"TStyle4",           "",        "",        "white",   "#EBF1DE"},
    {"TStyle5",           "",        "",        "white",   "#EDEDED"},
    {"TStyle6",           "",        "",        "white",   "#E4DFEC"},
    {"TStyle7",           "",        "",        "white",   "#FDE9D9"},
    {"TMStyle1",          "",        "",        "#A6A6A6", "#D9D9D9"},
    {"TMStyle2",          "",        "",        "#B8CCE4", "#DCE6F1"},
    {"TMStyle3",          "",        "",        "#E6B8B7", "#F2DCDB"},
    {"TMStyle4",          "",        "",        "#D8E4BC", "#EBF1DE"},
    {"TMStyle5",          "",        "",        "#CCC0DA", "#E4DFEC"},
    {"TMStyle6",          "",        "",        "#B7DEE8", "#DAEEF3"},
    {"TMStyle7",          "",        "",        "#FCD5B4", "#FDE9D9"},
    {"TStyleHeader1",     "black",   "",        "white",   "#D9D9D9"},
    {"TStyleHeader2",     "#4F81BD", "",        "white",   "#DCE6F1"},
    {"TStyleHeader3",     "#C0504D", "",        "white",   "#F2DCDB"},
    {"TStyleHeader4",     "#9BBB59", "",        "white",   "#EBF1DE"},
    {"TStyleHeader5",     "#8064A2", "",        "white",   "#E4DFEC"},
    {"TStyleHeader6",     "#4BACC6", "",        "white",   "#DAEEF3"},
    {"TStyleHeader7",     "#F79646", "",        "white",   "#FDE9D9"},
    {"TStyleHeaderLeft1", "black",   "black",   "white",   "#D9D9D9"},
    {"TStyleHeaderLeft2", "#4F81BD", "#4F81BD", "white",   "#DCE6F1"},
    {"TStyleHeaderLeft3", "#C0504D", "#C0504D", "white",   "#F2DCDB"},
    {"TStyleHeaderLeft4", "#9BBB59", "#9BBB59", "white",   "#EBF1DE"},
    {"TStyleHeaderLeft5", "#8064A2", "#8064A2", "white",   "#E4DFEC"},
    {"TStyleHeaderLeft6", "#4BACC6", "#4BACC6", "white",   "#DAEEF3"},
    {"TStyleHeaderLeft7", "#F79646", "#F79646", "white",   "#FDE9D9"},
    {"TStyleLeft1",       "",        "black",   "white",   "#D9D9D9"},
    {"TStyleLeft2",       "",        "#4F81BD", "white",   "#DCE6F1"},
    {"TStyleLeft3",       "",        "#C0504D", "white",   "#F2DCDB"},
    {"TStyleLeft4",       "",        "#9BBB59", "white",   "#EBF1DE"},
    {"TStyleLeft5",       "",        "#8064A2", "white",   "#E4DFEC"},
    {"TStyleLeft6",       "",        "#4BACC6", "white",   "#DAEEF3"},
    {"TStyleLeft7",       "",        "#F79646", "white",   "#FDE9D9"},
};
// clang-format on

/// The style of a row of the list, or null: a remembered row comes from a file and may be anything.
constexpr const TableStyle* FindTableStyle(std::int64_t row) {
  if (row < 0 || row >= std::ssize(kTableStyles)) return nullptr;
  return &kTableStyles[static_cast<std::size_t>(row)];
}

}  // namespace quill::tools
