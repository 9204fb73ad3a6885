#pragma once
#include <filesystem>
#include <functional>

namespace quill::practice {

class PageView;

/// What became of a copy, a cut or a paste.
enum class ClipboardOutcome { Done, Nothing, NoAnswer };

/// Carries content between a page and the system's clipboard. GUI thread; every method returns at once and
/// calls `done` when the clipboard or the page has what it should have.
class PageClipboard {
 public:
  using Done = std::function<void(ClipboardOutcome)>;

  /// Pictures of copies are kept below `pictureFolder`, which is emptied now.
  PageClipboard(PageView& view, std::filesystem::path pictureFolder);

  /// Puts the selection there: "text/html" in OneNote's application form and "text/plain". `Nothing` when
  /// nothing is selected; the clipboard is then as it was.
  void Copy(Done done);
  void Cut(Done done);

  /// Inserts what is there: HTML, else a PNG picture, else text. `Nothing` when there is none of them.
  void Paste(Done done);

 private:
  void CopyThen(std::function<void()> then, Done done);

  PageView& m_view;
  std::filesystem::path m_pictureFolder;
};

}  // namespace quill::practice
