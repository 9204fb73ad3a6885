// A window that behaves well or badly on request; see Manners. Ends with its standard input.
#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

#include "adversary_window.h"

namespace {

using quill::x11_test::AdversaryWindow;
using quill::x11_test::Manners;

Manners FromArguments(int count, char** arguments) {
  Manners manners;
  const std::pair<std::string_view, std::string*> known[] = {
      {"title=", &manners.title}, {"copy=", &manners.copy},   {"answer=", &manners.answer},
      {"paste=", &manners.paste}, {"watch=", &manners.watch}, {"html=", &manners.html}};
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    for (const auto& [name, value] : known) {
      if (argument.substr(0, name.size()) == name) *value = argument.substr(name.size());
    }
    if (argument.substr(0, 5) == "size=") manners.size = std::stoul(std::string(argument.substr(5)));
  }
  return manners;
}

/// Reads standard input; false at its end or when the window is to close.
bool ObeyInput(AdversaryWindow& window, std::string& partial) {
  char buffer[65536];
  const ssize_t got = read(STDIN_FILENO, buffer, sizeof buffer);
  if (got <= 0) return false;
  partial.append(buffer, static_cast<std::size_t>(got));
  for (std::size_t end = 0; (end = partial.find('\n')) != std::string::npos;) {
    if (!window.Obey(partial.substr(0, end))) return false;
    partial.erase(0, end + 1);
  }
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  const auto connection = quill::platform::x11::X11Connection::Open(nullptr);
  if (!connection.ok()) return 1;
  AdversaryWindow window(**connection, FromArguments(count, arguments));
  std::puts("ready");
  std::fflush(stdout);
  std::string partial;
  pollfd inputs[] = {{xcb_get_file_descriptor((*connection)->get()), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
  while (window.HandleEvents()) {
    window.Tick();
    poll(inputs, 2, 5);
    if (inputs[1].revents != 0 && !ObeyInput(window, partial)) break;
  }
  return 0;
}
