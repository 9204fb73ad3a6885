#pragma once
#include <filesystem>
#include <vector>

#include "shell/folders.h"

namespace quill::shell {

struct CommandContext;
struct CommandRow;

// Handlers of the command table for packages of local notebooks, and for what is restored into OneNote's
// local store. Command thread.

/// The Library folders that may hold OneNote's local store, in the order in which they are looked at.
std::vector<std::filesystem::path> OneNoteLibraries(const FolderRoots& roots);

/// Asks for a folder of OneNote's version folder to restore into; empty when there is no version folder, or
/// the user chooses none.
std::filesystem::path ChooseBackupFolder(CommandContext& context, const CommandRow& row);

/// Asks which local notebooks to pack and where to, packs them, and tells what became of it.
void PackageNotebooksClick(CommandContext& context, const CommandRow& row);

/// Asks for a package and unpacks it into OneNote's cache folder, then has OneNote open it.
void RestoreQuillpkgFile(CommandContext& context, const CommandRow& row);
void RestoreOnepkgFile(CommandContext& context, const CommandRow& row);

/// Asks for a .onepkg file and a folder, extracts the one into the other and opens the folder.
void ExtractOnepkgFile(CommandContext& context, const CommandRow& row);

/// Puts the blank section with A4 pages, or a section file that the user chooses, into OneNote's cache
/// folder, then has OneNote open it.
void RestoreA4OneNoteTemplate(CommandContext& context, const CommandRow& row);
void RestoreOneSectionFile(CommandContext& context, const CommandRow& row);

}  // namespace quill::shell
