#pragma once
#include <any>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "shell/favourites.h"

namespace quill::shell {

// The windows of favourites and templates.

/// `MWinFavoritePages`. What it wishes is done by commands of its own, so that one can go on working with it
/// open.
struct FavouritesRequest {
  FavoriteType type = FavoriteType::Pages;
};

/// What the templates' window wants done.
struct TemplateWish {
  enum class Kind {
    Insert,  ///< the window has closed itself
    Delete,
    AskAndDelete,  ///< for a key, which is easily pressed by mistake
    Export,
    Import
  };
  Kind kind;
  std::string name;  ///< of a template; "" for Export and Import
  bool operator==(const TemplateWish&) const = default;
};

/// `MWinTemplates`. It stays open while its wish is carried out, and is asked again with the same request;
/// only cancelling and Insert close it.
struct TemplatesRequest {
  using Answer = TemplateWish;
  std::filesystem::path folder;
  /// A template as it would be inserted now. Any thread.
  std::function<std::string(std::string_view html)> fill;
  /// Where the screen keeps the window between two wishes.
  std::shared_ptr<std::any> window = std::make_shared<std::any>();
};

}  // namespace quill::shell
