#include <gtest/gtest.h>

#include "platform/x11/x11_idle.h"
#include "platform/x11/x11_key_map.h"
#include "x11/x11_world.h"

namespace quill::x11_test {
namespace {

using platform::script::Modifiers;
using platform::x11::KeyChord;
using platform::x11::X11KeyMap;

constexpr xcb_keysym_t kAlt = 0xffe9, kNumLock = 0xff7f, kCapsLock = 0xffe5, kNextLayout = 0xfe08;

// Key codes of a US keyboard, as the X server numbers them.
constexpr int kCodeOfC = 54, kCodeOfQ = 24, kCodeOf1 = 10, kCodeOfShift = 50, kCodeOfControl = 37,
              kCodeOfAlt = 64;

class X11KeysTest : public testing::Test {
 protected:
  void SetLayout(const std::string& words) {
    const auto setter = world.Start({"sh", "-c", "setxkbmap " + words + "; echo done"});
    ASSERT_EQ(setter->WaitForLine("done"), "");
  }

  X11World world;
};

// Users of other alphabets have no "c" on their keyboard, others have it elsewhere: Control+C must still
// copy.
TEST_F(X11KeysTest, FindsTheKeyInEveryLayout) {
  const struct {
    const char* layout;
    bool secondInUse;
    char character;
    Modifiers modifiers;
    int key;
    std::vector<int> held;
  } cases[] = {
      {"us", false, 'c', {.command = true}, kCodeOfC, {kCodeOfControl}},
      {"us", false, 'p', {.command = true, .control = true}, 33, {kCodeOfControl, kCodeOfAlt}},
      {"us", false, 'T', {.command = true, .shift = true}, 28, {kCodeOfControl, kCodeOfShift}},
      {"us", false, ' ', {}, 65, {}},
      {"fr", false, 'a', {.command = true}, kCodeOfQ, {kCodeOfControl}},
      {"fr", false, '1', {}, kCodeOf1, {kCodeOfShift}},
      {"us dvorak", false, 'c', {.command = true}, 31, {kCodeOfControl}},
      {"ru", false, 'c', {.command = true}, kCodeOfC, {kCodeOfControl}},
      {"us,ru -option grp:caps_toggle", true, 'c', {.command = true}, kCodeOfC, {kCodeOfControl}},
      {"us,ru -option grp:caps_toggle", true, ' ', {}, 65, {}},
  };
  for (const auto& c : cases) {
    SetLayout(c.layout);
    if (c.secondInUse) world.Press(kNextLayout), world.Release(kNextLayout);
    const std::optional<KeyChord> chord =
        X11KeyMap(world.connection()).ForCharacter(c.character, c.modifiers);
    if (c.secondInUse) world.Press(kNextLayout), world.Release(kNextLayout);
    ASSERT_TRUE(chord.has_value()) << c.layout << " " << c.character;
    EXPECT_EQ(chord->key, c.key) << c.layout << " " << c.character;
    EXPECT_EQ(std::vector<int>(chord->held.begin(), chord->held.end()), c.held)
        << c.layout << " " << c.character;
  }
}

// Caps Lock and Num Lock are on for days: they are no held modifiers. A sticky or held Alt is one.
TEST_F(X11KeysTest, TellsHeldModifiersFromLocks) {
  for (const xcb_keysym_t lock : {kCapsLock, kNumLock}) world.Press(lock), world.Release(lock);
  const X11KeyMap keys(world.connection());
  EXPECT_TRUE(keys.HeldModifiers().empty());
  world.Press(kAlt);
  EXPECT_EQ(keys.HeldModifiers(), std::vector<std::string>{"Alt"});
  world.Release(kAlt);
  EXPECT_TRUE(keys.HeldModifiers().empty());
  EXPECT_EQ(platform::x11::GetIdleSeconds(world.connection()), 0);
}

}  // namespace
}  // namespace quill::x11_test
