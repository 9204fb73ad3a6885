#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/globals.h"
#include "shell/services.h"

namespace quill::shell {

/// The part of the menu that an action belongs to, in the menu's order.
enum class CommandGroup {
  Page,
  Text,
  Title,
  Calendar,
  Image,
  Links,
  Table,
  Templates,
  Favourites,
  Online,
  Files,
  Insert,
  Program,
  Top  ///< beside the groups, at the menu's top level
};

/// The string-table key of a group's title.
std::string_view GroupTitleKey(CommandGroup group);

/// What must be there before an action can run; several may be joined by |.
enum class Needs : unsigned {
  Nothing = 0,
  OneNote = 1,
  Selection = 2,
  PageLink = 4,
  SignIn = 8,  ///< a signed-in user; without one the action itself asks for a sign-in
  Word = 16,
  SignedIn = 32  ///< a signed-in user from the start
};
constexpr Needs operator|(Needs a, Needs b) {
  return static_cast<Needs>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
constexpr bool Has(Needs all, Needs one) {
  return (static_cast<unsigned>(all) & static_cast<unsigned>(one)) != 0;
}

/// What an action works with, on the command thread.
struct CommandContext {
  Services& services;
  Globals& globals;
  std::int64_t argument = 0;  ///< the row's own argument, or the one the caller gave (a tag's index)
};

struct CommandRow;
using CommandHandler = void (*)(CommandContext& context, const CommandRow& row);

/// Asks for the window of an action that is nothing but a window. Runs on any thread, whatever command runs.
using WindowOpener = void (*)(platform::UserInterface& ui);

/// Where an action is found besides the command line.
enum class Place {
  Menu,     ///< in the menu and in the palette
  Palette,  ///< in the palette
  Dynamic,  ///< in the menu and in the palette, one entry for each of the user's favourites
  Nowhere   ///< a test item, or one that only makes sense from outside
};

/// One thing the user can do. The menu, the command line, the hot keys and the reference are read from
/// the table of these.
struct CommandRow {
  std::string_view action;  ///< the menu action's name, without the colon
  CommandGroup group;
  std::int64_t number;    ///< the numbered command behind it; 0 when it has none
  std::int64_t argument;  ///< its first argument
  std::string_view titleKey;
  char hotKey;  ///< letter pressed with Control + Option + Shift; 0 for none
  Needs needs;
  CommandHandler handler;         ///< null when the action is a window
  WindowOpener window = nullptr;  ///< the window, for an action without a handler
  Place place = Place::Menu;
};

/// Every action, in the menu's order.
std::span<const CommandRow> CommandTable();

/// The row of an action name (a trailing colon is allowed), or null.
const CommandRow* FindCommand(std::string_view action);

/// The row with this command number, or null. Numbers of online commands are not looked at.
const CommandRow* FindCommandByNumber(std::int64_t number);

/// Up to `most` action names close to a name that was not found, nearest first.
std::vector<std::string> NearestActions(std::string_view name, std::size_t most = 3);

}  // namespace quill::shell
