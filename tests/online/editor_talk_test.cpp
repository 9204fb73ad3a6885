#include "online/editor_talk.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace quill::online {
namespace {

using std::chrono::seconds;

/// A command that waits for one wish on a thread of its own.
std::future<std::optional<EditorWish>> Waiting(const std::shared_ptr<EditorTalk>& talk) {
  return std::async(std::launch::async, [talk] { return talk->Next(); });
}

// A command must never wait for a window that is gone: closed, dropped with its request, or never shown.
TEST(EditorTalk, EndsWithItsWindow) {
  const auto talk = std::make_shared<EditorTalk>();
  auto request = std::make_unique<FindReplaceRequest>();
  request->seat = std::make_shared<EditorSeat>(talk);
  auto waiting = Waiting(talk);
  request->seat->talk().Wish({EditorWish::Kind::Save, "[]"});
  ASSERT_EQ(waiting.wait_for(seconds(5)), std::future_status::ready);
  EXPECT_EQ(waiting.get()->json, "[]");
  waiting = Waiting(talk);
  request.reset();
  ASSERT_EQ(waiting.wait_for(seconds(5)), std::future_status::ready);
  EXPECT_FALSE(waiting.get());
  EXPECT_FALSE(talk->Next());
}

// A wish that nobody has taken is dropped with the window: its user has closed it without waiting.
TEST(EditorTalk, DropsAWishOfAClosedWindow) {
  EditorTalk talk;
  talk.Wish({EditorWish::Kind::Undo, {}});
  talk.Close();
  EXPECT_FALSE(talk.Next());
}

// After `Close` the window may be destroyed: no answer reaches it, however the two threads meet.
TEST(EditorTalk, TellsNothingAfterItsEnd) {
  for (int round = 0; round < 300; ++round) {
    EditorTalk talk;
    auto window = std::make_unique<std::atomic<int>>(0);
    std::atomic<bool> isClosed = false;
    std::atomic<bool> wasToldLate = false;
    talk.OnAnswer([&, told = window.get()](const EditorAnswer&) {
      wasToldLate = wasToldLate || isClosed;
      ++*told;
    });
    std::thread command([&talk] {
      while (talk.Next()) talk.Answer({true, {}, {}, true});
    });
    talk.Wish({EditorWish::Kind::Save, {}});
    if (round % 3 == 0) std::this_thread::yield();
    talk.Close();
    isClosed = true;
    command.join();
    talk.Answer({});
    EXPECT_FALSE(wasToldLate);
    EXPECT_LE(*window, 1);
  }
}

}  // namespace
}  // namespace quill::online
