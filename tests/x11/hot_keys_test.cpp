#include "platform/x11/x11_hot_keys.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "x11/x11_world.h"

namespace quill::x11_test {
namespace {

using platform::HotKey;
using platform::HotKeyProblem;
using platform::HotKeyResult;
using platform::KeyCombination;
using platform::x11::X11HotKeys;

constexpr xcb_keysym_t kShift = 0xffe1, kControl = 0xffe3, kAlt = 0xffe9, kSuper = 0xffeb, kNumLock = 0xff7f,
                       kCapsLock = 0xffe5, kNextLayout = 0xfe08, kF9 = 0xffc6;
constexpr int kCodeOfD = 40, kCodeOfF9 = 75;

KeyCombination Keys(std::string_view text) {
  return platform::ParseKeyCombination(text).value();
}

xcb_keysym_t SymbolOf(const KeyCombination& keys) {
  if (keys.key == "Space") return ' ';
  if (keys.key.size() > 1) return kF9 + static_cast<xcb_keysym_t>(std::stoi(keys.key.substr(1))) - 9;
  return static_cast<xcb_keysym_t>(std::tolower(keys.key.front()));
}

/// A program with hot keys, and what it was told.
struct Program {
  explicit Program(const X11World& world) : keys(std::move(*X11HotKeys::Open(world.display().c_str()))) {
    keys->OnPressed([this](std::uint32_t identifier) { pressed.push_back(identifier); });
  }

  /// Binds combinations with the identifiers 0, 1, … and returns what became of them.
  std::vector<HotKeyProblem> Bind(const std::vector<std::string>& combinations) {
    std::vector<HotKey> set;
    for (const std::string& text : combinations)
      set.push_back({Keys(text), static_cast<std::uint32_t>(set.size()), "a test"});
    keys->Bind(std::move(set), [this](const std::vector<HotKeyResult>& results) {
      problems.clear();
      for (const HotKeyResult& result : results) problems.push_back(result.problem);
    });
    return problems;
  }

  bool Hears(const std::vector<std::uint32_t>& expected) {
    return Eventually([&] { return keys->Dispatch(), pressed == expected; });
  }

  std::unique_ptr<X11HotKeys> keys;
  std::vector<std::uint32_t> pressed;
  std::vector<HotKeyProblem> problems;
};

using Problems = std::vector<HotKeyProblem>;
using Pressed = std::vector<std::uint32_t>;

class X11HotKeysTest : public testing::Test {
 protected:
  void SetLayout(const std::string& words) {
    const auto setter = world.Start({"sh", "-c", "setxkbmap " + words + "; echo done"});
    ASSERT_EQ(setter->WaitForLine("done"), "");
  }

  /// Presses a key and lets it go, no faster than fingers can: the next press has a later time.
  void Tap(xcb_keysym_t symbol) {
    world.Press(symbol);
    LetGo(symbol);
  }
  void LetGo(xcb_keysym_t symbol) {
    world.Release(symbol);
    const xcb_timestamp_t released = world.connection().ServerTime();
    ASSERT_TRUE(Eventually([&] { return world.connection().ServerTime() != released; }));
  }

  void HoldModifiers(const KeyCombination& keys, void (X11World::*act)(xcb_keysym_t)) {
    if (keys.control) (world.*act)(kControl);
    if (keys.option) (world.*act)(kAlt);
    if (keys.shift) (world.*act)(kShift);
    if (keys.command) (world.*act)(kSuper);
  }

  /// What the user does for a combination such as "Control+F9".
  void Type(std::string_view text) {
    const KeyCombination keys = Keys(text);
    HoldModifiers(keys, &X11World::Press);
    Tap(SymbolOf(keys));
    HoldModifiers(keys, &X11World::Release);
  }

  /// True when another program could take exactly this key, without any lock key; takes it.
  bool Takes(int code, int modifiers) {
    xcb_connection_t* c = world.connection().get();
    const auto cookie =
        xcb_grab_key_checked(c, 0, world.connection().root(), static_cast<std::uint16_t>(modifiers),
                             static_cast<xcb_keycode_t>(code), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !platform::x11::XcbPointer<xcb_generic_error_t>{xcb_request_check(c, cookie)};
  }
  bool CanTake(int code, int modifiers) {
    return Eventually([&] { return Takes(code, modifiers); });
  }

  /// Changes what a key types; every program is told about the new keyboard.
  void Map(int code, xcb_keysym_t symbol) {
    xcb_change_keyboard_mapping(world.connection().get(), 1, static_cast<xcb_keycode_t>(code), 1, &symbol);
    world.connection().ServerTime();
  }

  X11World world;
};

// The user may choose any kind of key, and lock keys that have been on for days must not switch it off.
TEST_F(X11HotKeysTest, AnyCombinationWorksWhateverTheLockKeysAre) {
  const std::vector<std::string> combinations = {
      "Control+Option+Shift+D", "Command+5", "F9", "Control+Space", "Option+Shift+Q", "Control+Command+F10"};
  Program program(world);
  ASSERT_EQ(program.Bind(combinations), Problems(combinations.size(), HotKeyProblem::None));
  Pressed expected;
  for (const bool locked : {false, true}) {
    if (locked) Tap(kCapsLock), Tap(kNumLock);
    for (std::uint32_t i = 0; i < combinations.size(); ++i) {
      Type(combinations[i]);
      expected.push_back(i);
      EXPECT_TRUE(program.Hears(expected)) << combinations[i] << (locked ? " with lock keys" : "");
    }
  }
}

// D with two sets of modifiers is two keys, and D with a third set belongs to whoever has the focus.
TEST_F(X11HotKeysTest, OneKeyWithOtherModifiersIsAnotherHotKey) {
  Program program(world);
  program.Bind({"Control+Option+D", "Control+Option+Shift+D", "Control+F9"});
  Type("Control+Option+Shift+D");
  Type("Control+Option+D");
  Type("Control+Option+Command+D");
  Type("Control+F9");
  EXPECT_TRUE(program.Hears({1, 0, 2}));
}

// A key held a little long must not insert ten dates.
TEST_F(X11HotKeysTest, AHeldKeyFiresOnce) {
  const auto faster = world.Start({"sh", "-c", "xset r rate 100 100; echo done"});
  ASSERT_EQ(faster->WaitForLine("done"), "");
  const auto repeats = [&](ChildProcess& window) {
    const std::vector<std::string>& lines = window.Lines();
    return std::count_if(lines.begin(), lines.end(),
                         [](const auto& line) { return line.rfind("key ", 0) == 0; });
  };
  const auto heldAt = [&] { return world.connection().ServerTime(); };
  // How long it takes here until a window has seen a held key four times.
  const auto window = world.Adversary();
  xcb_timestamp_t start = heldAt();
  world.Press('x');
  ASSERT_TRUE(Eventually([&] { return repeats(*window) >= 4; })) << "this server does not repeat keys";
  world.Release('x');
  const xcb_timestamp_t longEnough = 2 * (heldAt() - start);

  Program program(world);
  program.Bind({"F9"});
  start = heldAt();
  world.Press(kF9);
  ASSERT_TRUE(Eventually([&] { return program.keys->Dispatch(), heldAt() - start > longEnough; }));
  LetGo(kF9);
  EXPECT_TRUE(program.Hears({0}));
  Tap(kF9);
  Tap(kF9);
  EXPECT_TRUE(program.Hears({0, 0, 0}));
}

// Two programs cannot have one key: the second must be told, and must not keep half of it.
TEST_F(X11HotKeysTest, ATakenKeyIsReportedAndLeftAlone) {
  Program first(world), second(world);
  EXPECT_EQ(first.Bind({"Control+Option+Shift+D"}), Problems{HotKeyProblem::None});
  EXPECT_EQ(second.Bind({"Control+Option+Shift+D", "Control+Option+Shift+C"}),
            (Problems{HotKeyProblem::Taken, HotKeyProblem::None}));
  first.Bind({});

  const int modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
  ASSERT_TRUE(CanTake(kCodeOfD, modifiers | XCB_MOD_MASK_LOCK));
  EXPECT_EQ(second.Bind({"Control+Option+D"}), Problems{HotKeyProblem::Taken});
  EXPECT_TRUE(CanTake(kCodeOfD, modifiers));
}

// One press must not do two things when a set names a key twice.
TEST_F(X11HotKeysTest, AKeyNamedTwiceBelongsToTheFirst) {
  Program program(world);
  EXPECT_EQ(program.Bind({"Control+Option+D", "Option+Control+D"}),
            (Problems{HotKeyProblem::None, HotKeyProblem::Taken}));
  Type("Control+Option+D");
  Type("Control+Option+D");
  EXPECT_TRUE(program.Hears({0, 0}));
}

// A key that the user has taken out of the options is free for other programs at once.
TEST_F(X11HotKeysTest, BindingAnewFreesTheKeysBefore) {
  Program program(world), other(world);
  program.Bind({"Control+Option+D", "F9"});
  EXPECT_EQ(program.Bind({"F9"}), Problems{HotKeyProblem::None});
  EXPECT_EQ(other.Bind({"Control+Option+D"}), Problems{HotKeyProblem::None});
  Type("Control+Option+D");
  Type("F9");
  EXPECT_TRUE(program.Hears({0}));
  EXPECT_TRUE(other.Hears({0}));
}

// Who changes the keyboard layout, or switches between two, keeps the hot keys.
TEST_F(X11HotKeysTest, KeysSurviveALayoutChange) {
  Program program(world);
  program.Bind({"Control+Option+Shift+D"});
  SetLayout("us dvorak");
  const auto heard = [&](std::size_t count) {
    return Eventually([&] {
      if (program.pressed.size() < count) Type("Control+Option+Shift+D");
      program.keys->Dispatch();
      return program.pressed.size() >= count;
    });
  };
  EXPECT_TRUE(heard(1));
  SetLayout("us,ru -option grp:caps_toggle");
  Tap(kNextLayout);
  EXPECT_TRUE(heard(program.pressed.size() + 1));
}

// A keyboard that loses the key (another one is plugged in) is told, and so is the key's return.
TEST_F(X11HotKeysTest, ChangesOfTheKeyboardAreReported) {
  Program program(world);
  EXPECT_EQ(program.Bind({"F9", "F10"}), Problems(2, HotKeyProblem::None));
  const auto becomes = [&](HotKeyProblem problem) {
    return Eventually([&] {
      return program.keys->Dispatch(), program.problems == Problems{problem, HotKeyProblem::None};
    });
  };
  Map(kCodeOfF9, XCB_NO_SYMBOL);
  EXPECT_TRUE(becomes(HotKeyProblem::NoSuchKey));
  Map(kCodeOfF9, kF9);
  EXPECT_TRUE(becomes(HotKeyProblem::None));
  Type("F9");
  EXPECT_TRUE(program.Hears({0}));
}

}  // namespace
}  // namespace quill::x11_test
