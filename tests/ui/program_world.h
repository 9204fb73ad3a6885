#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "x11/x11_world.h"

namespace quill::ui {

/// Keys of the test's keyboard, by keysym.
inline constexpr xcb_keysym_t kReturn = 0xff0d, kEscape = 0xff1b, kUp = 0xff52, kRight = 0xff53,
                              kDown = 0xff54, kShift = 0xffe1, kControl = 0xffe3, kAlt = 0xffe9;

/// What the program's boxes are titled.
inline constexpr const char* kBoxTitle = "Quill Menu for Mac OneNote";

/// The tray program on a display of the test's own, with folders of the test's own and no session bus, and
/// what its user does with mouse and keyboard.
class ProgramTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Starts the program and waits until it answers.
  void StartMenu(std::vector<std::string> more = {});

  /// Runs `quill` and returns its exit status; its words are in `said`.
  int Quill(const std::string& words);

  /// Waits until no command runs: what was pasted is seen before the command that did it is over. Changes
  /// the day with which weeks start.
  bool CommandEnds();

  /// Runs `quillmenu` and returns its exit status; −1 when it has not ended in time.
  int StartAgain(const std::vector<std::string>& more = {});

  /// Starts a tray at the screen's lower edge, as small desktops have it.
  std::unique_ptr<x11_test::ChildProcess> StartTray() const;

  /// Where the program's icon is within the tray: its middle, once it is there.
  std::optional<xcb_point_t> TrayIcon();
  void Click(xcb_point_t place, std::uint8_t button);
  /// A click on the icon, as soon as it is there. True when the menu opens.
  bool OpensMenu(std::uint8_t button);

  /// How many menus and submenus are on the screen; none before the keyboard is theirs.
  std::size_t OpenMenus();
  bool MenusBecome(std::size_t count);

  /// Whether a window of this title is on the screen.
  bool IsThere(const std::string& title);
  bool Appears(const std::string& title);
  bool Disappears(const std::string& title);

  void Tap(xcb_keysym_t key);
  /// Small letters and blanks.
  void Type(const std::string& letters);
  /// Presses a key with these held, and lets go of all.
  void PressChord(const std::vector<xcb_keysym_t>& held, xcb_keysym_t key);
  /// Whether a program, not this one, has a system-wide key such as "Control+Option+U".
  bool SomebodyHas(const std::string& keys);
  /// Control, Alt, Shift and a letter, as soon as the program has that key.
  void PressHotKey(char letter);

  /// The text of the box that comes up, which is closed then; empty when none does.
  std::string TextOfBox();

  std::filesystem::path Channel() const;
  std::string Maps() const;

  x11_test::X11World world;
  std::filesystem::path folder;
  std::unique_ptr<x11_test::ChildProcess> menu;
  std::string said;

 private:
  bool KeyboardIsTaken();
  bool IsMenu(xcb_window_t window);
};

}  // namespace quill::ui
