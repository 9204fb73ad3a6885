#pragma once
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace quill::online {

/// What the editor of a page wants of the command that opened it.
struct EditorWish {
  enum class Kind {
    Save,  ///< send these changes
    Undo   ///< put the page back to what it was before the last save
  };
  Kind kind = Kind::Save;
  std::string json;  ///< of a save: the array of changes
};

/// What came of a wish.
struct EditorAnswer {
  bool isDone = false;
  std::string problem;   ///< for the user, when it is not done
  std::string pageHtml;  ///< the page as it is now, with its new ids; "" when it could not be read again
  bool canUndo = false;
};

/// The talk between an editor's window and its command, which waits for wishes until the window is closed.
/// Each side calls its own half, on its own thread.
class EditorTalk {
 public:
  // The command's half.

  /// The next wish, waited for; nothing once the window is closed.
  std::optional<EditorWish> Next();

  /// Hands the answer to the window, unless it is closed. `onAnswer` runs on the command's thread.
  void Answer(EditorAnswer answer);

  // The window's half.

  /// Told each answer, on the command's thread: it passes it on to its own. Set before the first wish.
  void OnAnswer(std::function<void(EditorAnswer)> onAnswer);
  void Wish(EditorWish wish);
  /// No more wishes; nothing is told from here on.
  void Close();

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::optional<EditorWish> m_wish;
  std::function<void(EditorAnswer)> m_onAnswer;
  bool m_isClosed = false;
};

/// The window's hold on a talk: whoever drops it, without ever having shown a window even, ends the talk.
class EditorSeat {
 public:
  explicit EditorSeat(std::shared_ptr<EditorTalk> talk) : m_talk(std::move(talk)) {}
  ~EditorSeat() { m_talk->Close(); }
  EditorSeat(const EditorSeat&) = delete;
  EditorSeat& operator=(const EditorSeat&) = delete;

  EditorTalk& talk() { return *m_talk; }

 private:
  std::shared_ptr<EditorTalk> m_talk;
};

/// `MWinOneNoteOnline`: find and replace in a page as the service keeps it.
struct FindReplaceRequest {
  std::string pageTitle;
  std::string pageHtml;              ///< with an id on every element
  std::shared_ptr<EditorSeat> seat;  ///< the window's alone
};

}  // namespace quill::online
