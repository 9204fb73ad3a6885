#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "online/page_totals.h"

namespace quill::shell {

// The windows that commands ask for through `UserInterface`. A request with an `Answer` is a dialog that the
// command waits for; the others are shown and left alone.

/// The menu of all actions, at the pointer or at the tray icon.
struct MenuRequest {};

/// The search field over all actions.
struct PaletteRequest {};

/// The practice notebook.
struct PracticeRequest {};

/// An alert that nobody waits for.
struct NoticeRequest {
  std::string text;
};

/// Ends the program.
struct QuitRequest {};

/// `MWinOptions`, and the page that it opens with.
struct OptionsRequest {
  enum class Page { General, Pages, Tools, HotKeys, Account };
  Page page = Page::General;
};

/// `MWinAbout`.
struct AboutRequest {};

/// `MWinTest`: a text to be looked at and copied.
struct TextRequest {
  std::string title;
  std::string text;  ///< UTF-8, kept as it is whatever the view shows
};

/// The image viewer on a picture file. Pasting a part back is a command of its own.
struct ImageRequest {
  std::filesystem::path file;
};

/// One more `MWinRuler`.
struct RulerRequest {};

/// `MWinPagesNumber`, with a warning when too many pages are gone.
struct PagesNumberRequest {
  std::optional<online::LostPages> lost;
};

/// `MWinADayPages`.
struct ADayPagesRequest {};

/// A message of the desktop beside the tray, where there is one.
struct NotifyRequest {
  std::string title;
  std::string text;
};

}  // namespace quill::shell
