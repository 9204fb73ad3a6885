#include "shell/log.h"

#include <gtest/gtest.h>

#include <string>

namespace quill::shell {
namespace {

std::string Logged(bool pageContents) {
  std::string lines;
  Log log({.toSyslog = false, .toStderr = false, .pageContents = pageContents},
          [&lines](std::string_view line) { lines.append(line).append("|"); });
  log.Write("first {}\r\nsec\x1Bond");
  log.WriteContent("page", "<p>private</p>");
  return lines;
}

// Pages are the user's: the system log, which others can read, gets them only when the user asks for it.
TEST(Log, KeepsPagesOutUnlessTheyAreAskedFor) {
  EXPECT_EQ(Logged(false), "--- first {} |--- sec ond|--- page: 14 bytes|");
  EXPECT_EQ(Logged(true), "--- first {} |--- sec ond|--- <p>private</p>|");
}

}  // namespace
}  // namespace quill::shell
