#pragma once
#include <cstdint>
#include <string_view>

#include "shell/globals.h"
#include "shell/services.h"

namespace quill::shell {

struct TransformContext;

/// Opens the selection's first link, a file of this machine or any other address. Returns 1.
std::int64_t OpenLocalLink(TransformContext& context);

/// Asks for text and path of a variable link, beginning with the selection's own, and pastes it. Returns 0.
std::int64_t VarLink(TransformContext& context);

/// The same when nothing was selected.
void VarLinkWithoutSelection(TransformContext& context);

/// Opens what a variable link means on this machine; nothing happens when nothing is there. Command thread.
void OpenVariableLink(Services& services, const Globals& globals, std::string_view url);

}  // namespace quill::shell
