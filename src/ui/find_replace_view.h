#pragma once
#include <QString>
#include <functional>
#include <vector>

class QWidget;

namespace quill::ui {

/// What is looked for in a page.
struct PageSearch {
  QString text;  ///< nothing is found when it is empty
  bool matchesCase = false;
};

enum class SearchDirection { Forwards, Backwards };

/// How a page stands after it was searched or changed.
struct PageState {
  bool isFound = false;  ///< false: there was nothing (more) to be found or replaced
  int matchCount = 0;
  int currentMatch = 0;  ///< which of them, from 1 on; 0 for none
  int changeCount = 0;   ///< texts that are not what they were when the page was shown
};

/// A text of the page that was changed.
struct PageChange {
  QString kind;  ///< "cell", "item", "heading", "paragraph" or "text"
  QString before;
  QString after;
};

/// A page of the service, shown for finding and replacing. It is drawn from its HTML without running, loading
/// or following anything in it. Everything on the GUI thread; every method returns at once, and callbacks
/// come later, in the order of the calls. What is still open when another page is shown, or the page is lost,
/// is never called; neither is anything after the view's end.
class FindReplaceView {
 public:
  using Answered = std::function<void(const PageState& state)>;
  using GotChanges = std::function<void(const std::vector<PageChange>& changes)>;
  using GotJson = std::function<void(const QString& json)>;

  virtual ~FindReplaceView() = default;

  /// The page, named for screen readers. Belongs to the view: whoever puts it into a window destroys the view
  /// before that widget.
  virtual QWidget& Widget() = 0;

  /// Called when the page's process has ended or does not answer any more, so that all changes are gone. The
  /// next `Show` works again.
  virtual void OnLost(std::function<void()> lost) = 0;

  /// Shows a page, well-formed and with an id on its elements, in place of the one before. Nothing is marked.
  virtual void Show(const QString& pageHtml, Answered done) = 0;

  /// Marks every match and stays where the page is.
  virtual void Mark(const PageSearch& search, Answered done) = 0;

  /// Goes to the match behind the current one, or before it. After the last one the search begins anew.
  virtual void Find(const PageSearch& search, SearchDirection direction, Answered done) = 0;

  /// Replaces the current match and goes to the next; without one only goes there.
  virtual void Replace(const PageSearch& search, const QString& replacement, Answered done) = 0;

  /// Replaces every match.
  virtual void ReplaceAll(const PageSearch& search, const QString& replacement, Answered done) = 0;

  /// Brings the current match into view.
  virtual void GoToHighlightPosition() = 0;

  /// The changed texts in the page's order, and a way to bring one of them into view.
  virtual void Changes(GotChanges got) = 0;
  virtual void ShowChange(int number) = 0;

  /// The changes as the service takes them; "" when there are none.
  virtual void GetJson(GotJson got) = 0;
};

}  // namespace quill::ui
