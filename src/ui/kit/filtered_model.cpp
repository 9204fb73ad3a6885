#include "ui/kit/filtered_model.h"

#include <algorithm>

#include "shell/search_text.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

std::vector<std::u32string> WordsOf(const std::u32string& folded) {
  std::vector<std::u32string> words;
  for (std::size_t begin = 0; begin < folded.size();) {
    const std::size_t end = std::min(folded.find(U' ', begin), folded.size());
    if (end > begin) words.push_back(folded.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

}  // namespace

void FilteredModel::Filter(const QString& text) {
  std::vector<std::u32string> words = WordsOf(shell::FoldForSearch(FromQt(text)).letters);
  if (words == m_words) return;
  beginResetModel();
  m_words = std::move(words);
  Choose();
  endResetModel();
}

void FilteredModel::Exchange(const std::vector<std::string>& texts, const std::function<void()>& change) {
  beginResetModel();
  m_searched.clear();
  m_searched.reserve(texts.size());
  for (const std::string& text : texts) m_searched.push_back(shell::FoldForSearch(text).letters);
  change();
  Choose();
  endResetModel();
}

void FilteredModel::Choose() {
  m_shown.clear();
  for (int row = 0; row < AllRows(); ++row) {
    const std::u32string& text = m_searched[static_cast<std::size_t>(row)];
    const bool fits = std::ranges::all_of(
        m_words, [&](const std::u32string& word) { return text.find(word) != std::u32string::npos; });
    if (fits) m_shown.push_back(row);
  }
}

int FilteredModel::RowAt(const QModelIndex& index) const {
  const bool isShown = index.isValid() && index.row() < rowCount();
  return isShown ? m_shown[static_cast<std::size_t>(index.row())] : -1;
}

QModelIndex FilteredModel::IndexOf(int row) const {
  const auto found = std::ranges::lower_bound(m_shown, row);
  return found != m_shown.end() && *found == row ? index(static_cast<int>(found - m_shown.begin()))
                                                 : QModelIndex();
}

int FilteredModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

}  // namespace quill::ui
