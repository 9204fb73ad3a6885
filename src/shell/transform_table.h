#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "content/working_document.h"
#include "shell/globals.h"
#include "shell/selection_bridge.h"
#include "shell/services.h"

namespace quill::shell {

/// What a transform works on and with.
struct TransformContext {
  Services& services;
  Globals& globals;
  SelectionBridge& bridge;
  std::int64_t command;                ///< the number it was called by
  std::string_view whole;              ///< the whole copied pasteboard document
  std::string& fragment;               ///< the fragment; a fragment transform leaves its result here
  content::WorkingDocument* document;  ///< the parsed fragment; null for fragment and whole transforms
};

/// What a transform is given.
enum class TransformInput { Document, Fragment, Whole };

/// Whether a positive result is pasted back over the selection.
enum class PasteBack { WhenPositive, Never };

/// One numbered command of `NSOneNoteMain::Run`.
struct TransformRow {
  std::int64_t number;
  std::string_view operation;
  TransformInput input;
  PasteBack pasteBack;
  std::int64_t (*run)(TransformContext& context);
  /// What happens instead of an alert when the copy brought no HTML (a picture alone, say); null: the alert.
  void (*whenNothingCopied)(TransformContext& context) = nullptr;
};

/// All numbered transforms.
std::span<const TransformRow> TransformTable();

/// The row of a number, or null.
const TransformRow* FindTransform(std::int64_t number);

}  // namespace quill::shell
