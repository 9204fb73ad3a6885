#pragma once
#include <optional>

namespace quill::platform::mac {

/// What can be seen of the pasteboard without asking its owner for data.
struct PasteboardGlance {
  long changes = -1;    ///< how often it has changed hands; −1 when the system did not say
  bool filled = false;  ///< it holds at least one form
};

/// Tells this program's doings on the pasteboard from those of others, by the change count.
class PasteboardHistory {
 public:
  /// This program wants to see only what comes after `changes`. Where that is unknown (−1) it sees nothing:
  /// the user's old contents must not pass for a copy.
  void Marked(long changes) {
    m_known = changes;
    m_marked = true;
    m_pasted = false;
  }

  /// True, and from then on known, when somebody has put something there since. An owner that has emptied
  /// the pasteboard and has yet to fill it does not count.
  bool Arrived(PasteboardGlance now) {
    if (!now.filled || now.changes < 0 || !Readable(now.changes) || now.changes == m_known) return false;
    m_known = now.changes;
    m_touched = true;
    m_marked = false;
    m_pasted = false;
    return true;
  }

  /// False for what was there before the mark.
  bool Readable(long changes) const {
    return !m_marked || (m_known >= 0 && changes >= 0 && changes != m_known);
  }

  /// This program has written.
  void Written(long changes, bool complete) {
    m_known = changes;
    m_touched = true;
    m_marked = false;
    m_pasted = complete;
  }

  /// True when what is there is this program's and perhaps not yet taken by the target.
  bool Pasted() const { return m_pasted; }

  /// The change count at which a saved state may be put back; nothing when this program and the copies that
  /// it waited for have changed nothing. Ends the loan: a second call yields nothing.
  std::optional<long> EndLoan() {
    const bool touched = m_touched;
    m_touched = m_marked = m_pasted = false;
    return touched ? std::optional(m_known) : std::nullopt;
  }

 private:
  long m_known = -1;       ///< the change count after the last mark, write or awaited copy
  bool m_touched = false;  ///< this program, or a copy that it waited for, has changed the contents
  bool m_marked = false;   ///< what is there is from before the mark
  bool m_pasted = false;
};

}  // namespace quill::platform::mac
