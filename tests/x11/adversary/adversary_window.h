#pragma once
#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <string>

#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_selection_answer.h"

namespace quill::x11_test {

/// How the window behaves; all given as name=value on the command line.
struct Manners {
  std::string title = "OneNote";
  std::string copy = "at-once";    ///< at-once, late (400 ms), never, close, hang
  std::string answer = "at-once";  ///< at-once, late (400 ms), never: to who wants what it owns
  std::string paste = "reads";     ///< reads, ignores
  std::string watch = "no";        ///< no, same, other: what becomes of a clipboard that somebody else takes
  std::string html = "<p>copied</p>";
  std::size_t size = 0;  ///< the copied HTML is made up to this length
};

/// A window that stands for the application, or for anybody who disturbs. It reports on standard output what
/// it gets: "key …", "focus", "pasted N FIRST…", "ready".
class AdversaryWindow {
 public:
  AdversaryWindow(platform::x11::X11Connection& connection, Manners manners);

  /// Handles what has arrived; false when the window is to close.
  bool HandleEvents();
  /// Does one line from standard input: "own MIME TEXT", "activate", "grab", "close".
  bool Obey(const std::string& line);
  /// Does what was put off for later.
  void Tick();

 private:
  bool OnKey(const xcb_key_press_event_t& key);
  bool OnCopy();
  void OnRequest(const xcb_selection_request_event_t& request);
  void OnMessage(const xcb_client_message_event_t& message);
  void OnAnswer(const xcb_selection_notify_event_t& answer);
  void OnProperty(const xcb_property_notify_event_t& change);
  void OnOwner(xcb_window_t owner);
  void Offer(std::map<std::string, std::string> forms);
  void AskFor(const char* target);
  void Collected();
  std::string TakeProperty(xcb_atom_t& type);

  platform::x11::X11Connection& m_connection;
  Manners m_manners;
  xcb_window_t m_window;
  platform::x11::SelectionAnswerer m_answerer;
  std::uint8_t m_fixesEvent = 0;
  bool m_hung = false;
  bool m_taking = false;
  bool m_inPortions = false;
  std::string m_collected;
  std::map<std::string, std::string> m_forms;
  std::optional<std::chrono::steady_clock::time_point> m_copyAt;
  using Due = std::chrono::steady_clock::time_point;
  std::deque<std::pair<Due, xcb_selection_request_event_t>> m_lateAnswers;
};

}  // namespace quill::x11_test
