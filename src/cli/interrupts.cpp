#include "cli/interrupts.h"

#include <csignal>
#include <initializer_list>

namespace quill::cli {
namespace {

volatile std::sig_atomic_t s_wasInterrupted = 0;

}  // namespace

void WatchInterrupts() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, [](int) { s_wasInterrupted = 1; });
}

bool WasInterrupted() {
  return s_wasInterrupted != 0;
}

}  // namespace quill::cli
