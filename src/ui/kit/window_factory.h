#pragma once
#include <QWidget>
#include <any>
#include <functional>
#include <map>
#include <optional>
#include <typeindex>
#include <utility>

#include "shell/string_table.h"

namespace quill::ui {

/// Which window belongs to which request. Filled at start, used on the GUI thread.
///
/// Every window deletes itself when it is closed (`Qt::WA_DeleteOnClose`).
class WindowFactory {
 public:
  /// Takes the answer of a dialog; an empty one means cancelled. To be called at most once.
  using Answer = std::function<void(std::any)>;

  /// Names the function that makes the dialog of a request type; it calls `done` with the answer, or with
  /// nothing, when the user has closed it.
  template <class Request, class Make>
  void AddDialog(Make make) {
    m_makers[std::type_index(typeid(Request))] = [make](const std::any& request,
                                                        const Answer& answer) -> QWidget* {
      return make(std::any_cast<const Request&>(request),
                  [answer](std::optional<typename Request::Answer> given) {
                    answer(given ? std::any(std::move(*given)) : std::any());
                  });
    };
  }

  /// As above for a dialog that is made of its texts, its request and the taker of its answer.
  template <class Request, class Window>
  void AddPlainDialog(const shell::StringTable& strings) {
    AddDialog<Request>([&strings](const Request& request, typename Window::Done done) {
      return new Window(strings, request, std::move(done));
    });
  }

  /// Names the function that makes or finds the window of a request type that nobody waits for.
  template <class Request, class Make>
  void AddWindow(Make make) {
    m_makers[std::type_index(typeid(Request))] = [make](const std::any& request, const Answer&) -> QWidget* {
      return make(std::any_cast<const Request&>(request));
    };
  }

  /// Makes the window of a request and shows it in front. Null when there is none for its type, or when the
  /// request was carried out without one.
  QWidget* Show(const std::any& request, const Answer& answer = {}) const;

 private:
  std::map<std::type_index, std::function<QWidget*(const std::any&, const Answer&)>> m_makers;
};

}  // namespace quill::ui
