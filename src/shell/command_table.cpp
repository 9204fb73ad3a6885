#include "shell/command_table.h"

#include <algorithm>
#include <numeric>

#include "shell/backup_actions.h"
#include "shell/content_actions.h"
#include "shell/engine_commands.h"
#include "shell/favourite_actions.h"
#include "shell/onenote_main.h"
#include "shell/online_actions.h"
#include "shell/open_notebook.h"
#include "shell/package_actions.h"
#include "shell/program_actions.h"
#include "shell/template_actions.h"
#include "shell/transform_table.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

void RunTransform(CommandContext& context, const CommandRow& row) {
  NSOneNoteMain(context.services, context.globals).Run(row.number);
}

void InsertDateTime(CommandContext& context, const CommandRow& row) {
  NSOneNoteMain(context.services, context.globals).RunInsert(20, row.argument, 0, "");
}

void CalendarOfMonth(CommandContext& context, const CommandRow& row) {
  NSOneNoteMain(context.services, context.globals).InsertCalendarOfMonth(static_cast<int>(row.argument));
}

void NewPage(CommandContext& context, const CommandRow&) {
  NSOneNoteMain(context.services, context.globals).NewPage();
}

void CopyPlainText(CommandContext& context, const CommandRow&) {
  NSOneNoteMain(context.services, context.globals).RunOther(24, 0, 0);
}

void PageTitleTag(CommandContext& context, const CommandRow&) {
  NSOneNoteMain(context.services, context.globals).RunTitle(25, context.argument, 0);
}

void SetToPageTitle(CommandContext& context, const CommandRow&) {
  NSOneNoteMain(context.services, context.globals).SetToPageTitle();
}

/// Opens the window of a request that says everything by its type.
template <class Request>
void Show(platform::UserInterface& ui) {
  ui.ShowWindow(Request{});
}

using enum CommandGroup;
constexpr Needs kNothing = Needs::Nothing;
constexpr Needs kOneNote = Needs::OneNote;
constexpr Needs kSelection = Needs::OneNote | Needs::Selection;
constexpr Needs kWord = Needs::OneNote | Needs::Selection | Needs::Word;
constexpr Needs kSignedIn = Needs::SignedIn;
constexpr Needs kPageOnline = Needs::OneNote | Needs::PageLink | Needs::SignIn;

// clang-format off
constexpr CommandRow kCommands[] = {
    {"MenuItemNewPageClick", Page, 23, 0, "menuNewPage", 0, kOneNote, NewPage},
    {"MenuItemInsertDateClick", Page, 20, 1, "menuInsertDate", 'D', kOneNote, InsertDateTime},
    {"MenuItemInsertTimeClick", Page, 20, 2, "menuInsertTime", 'T', kOneNote, InsertDateTime},
    {"MenuItemInsertDateTimeClick", Page, 20, 0, "menuInsertDateTime", 0, kOneNote, InsertDateTime},
    {"MenuItemInsertDateTimeFormatClick", Page, 0, 0, "menuDateTimeFormat", 0, kNothing, DateTimeFormat},
    {"MenuItemLowerCaseClick", Text, 2, 0, "menuLowerCase", 0, kSelection, RunTransform},
    {"MenuItemUpperCaseClick", Text, 3, 0, "menuUpperCase", 0, kSelection, RunTransform},
    {"MenuItemToggleCaseClick", Text, 4, 0, "menuToggleCase", 0, kSelection, RunTransform},
    {"MenuItemCapitalizeEachWordClick", Text, 5, 0, "menuCapitalizeEachWord", 0, kSelection, RunTransform},
    {"MenuItemPhoneticsClick", Text, 10002, 0, "menuPhonetics", 0, kSelection, RunTransform},
    {"MenuItemWordCountClick", Text, 10, 0, "menuWordCount", 0, kSelection, RunTransform},
    {"MenuItemNavigationPaneClick", Text, 0, 3, "menuNavigationPane", 0, kPageOnline, RunOnline},
    {"MenuItemSetToPageTitle", Title, 0, 0, "menuSetToPageTitle", 'L', kSelection, SetToPageTitle},
    {"MenuItemPageTitleTagClick", Title, 25, 1, "menuPageTitleTag", 0, kOneNote, PageTitleTag},
    {"MenuItemCopyPlainTextClick", Title, 24, 0, "menuCopyPlainText", 'C', kSelection, CopyPlainText},
    {"MenuItemInsertCalendarThisMonth", Calendar, 0, 0, "menuCalendarThisMonth", 0, kOneNote, CalendarOfMonth},
    {"MenuItemInsertCalendarNextMonth", Calendar, 0, 1, "menuCalendarNextMonth", 0, kOneNote, CalendarOfMonth},
    {"MenuItemInsertCalendarPrevMonth", Calendar, 0, -1, "menuCalendarPrevMonth", 0, kOneNote, CalendarOfMonth},
    {"MenuItemInsertCalendarCustomize", Calendar, 0, 0, "menuCalendarCustomize", 0, kOneNote, CalendarOfChoice},
    {"MenuItemStartWithMondayClick", Calendar, 0, 0, "menuStartWithMonday", 0, kNothing, StartWithMonday},
    {"MenuItemOpenPictureClick", Image, 14, 0, "menuOpenPicture", 0, kSelection, RunTransform},
    {"MenuItemViewImageClick", Image, 13, 0, "menuViewImage", 0, kSelection, RunTransform},
    {"MenuItemImageOCRText", Image, 0, 0, "menuImageOCRText", 0, kSelection, ImageOCRText},
    {"MenuItemOpenCloudFileAttachmentClick", Links, 12, 0, "menuOpenCloudFileAttachment", 0, kSelection, RunTransform},
    {"MenuItemOpenLocalLinkClick", Links, 11, 0, "menuOpenLocalLink", 0, kSelection, RunTransform},
    {"MenuItemVarLinkClick", Links, 10003, 0, "menuVarLink", 0, kOneNote, RunTransform},
    {"MenuItemTableStyle", Table, 15, 0, "menuTableStyle", 0, kSelection, RunTransform},
    {"MenuItemTableInformationClick", Table, 16, 0, "menuTableInformation", 0, kSelection, RunTransform},
    {"MenuItemTable2TextClick", Table, 17, 0, "menuTable2Text", 0, kSelection, RunTransform},
    {"MenuItemText2TableClick", Table, 18, 0, "menuText2Table", 0, kSelection, RunTransform},
    {"MenuItemSaveTableAsCSVClick", Table, 19, 0, "menuSaveTableAsCSV", 0, kSelection, RunTransform},
    {"MenuItemImageTableClick", Table, 0, 0, "menuImageTable", 0, kOneNote, ImageTable},
    {"MenuItemTemplateClick", Templates, 0, 0, "menuTemplate", 0, kOneNote, Template},
    {"MenuItemSaveAsTemplateClick", Templates, 8, 0, "menuSaveAsTemplate", 0, kSelection, RunTransform},
    {"MenuItemFavoriteCurrentPageClick", Favourites, 0, 0, "menuFavoriteCurrentPage", 0, kOneNote, FavoriteCurrentPage},
    {"MenuItemFavoritePageItemClick", Favourites, 0, 0, "menuFavoritePageItem", 0, kOneNote, FavoritePageItem, nullptr, Place::Dynamic},
    {"MenuItemManagerFavoritePages", Favourites, 0, 0, "menuManagerFavoritePages", 0, kNothing, nullptr, ManagerFavoritePages},
    {"MenuItemFavoriteCurrentSectionClick", Favourites, 0, 0, "menuFavoriteCurrentSection", 0, kOneNote, FavoriteCurrentSection},
    {"MenuItemFavoriteSectionItemClick", Favourites, 0, 0, "menuFavoriteSectionItem", 0, kOneNote, FavoriteSectionItem, nullptr, Place::Dynamic},
    {"MenuItemManagerFavoriteSections", Favourites, 0, 0, "menuManagerFavoriteSections", 0, kNothing, nullptr, ManagerFavoriteSections},
    {"MenuItemTableOfContentsHeadingsClick", Online, 0, 2, "menuTableOfContentsHeadings", 0, kPageOnline, RunOnline},
    {"MenuItemTableOfContentsSectionPagesClick", Online, 0, 10000, "menuTableOfContentsSectionPages", 0, kPageOnline, RunOnline},
    {"MenuItemTableOfContentsNotebooksClick", Online, 0, 10001, "menuTableOfContentsNotebooks", 0, kPageOnline, RunOnline},
    {"MenuItemBreadcrumbClick", Online, 0, 10003, "menuBreadcrumb", 0, kPageOnline, RunOnline},
    {"MenuItemReplaceClick", Online, 0, 10002, "menuReplace", 0, kPageOnline, RunOnline},
    {"MenuItemExportTagsToCSVClick", Online, 0, 0, "menuExportTagsToCSV", 0, kPageOnline, RunOnline},
    {"MenuItemExportTagsToXMLClick", Online, 0, 1, "menuExportTagsToXML", 0, kPageOnline, RunOnline},
    {"MenuItemExportNotebookClick", Online, 0, 10004, "menuExportNotebook", 0, kPageOnline, RunOnline},
    {"MenuItemNotebooks", Online, 0, 10005, "menuNotebooks", 0, kPageOnline, RunOnline},
    {"MenuItemExportLogClick", Files, 10001, 0, "menuExportLog", 0, kSelection, RunTransform},
    {"MenuItemDiagnosticsClick", Files, 1, 0, "menuDiagnostics", 0, kSelection, RunTransform},
    {"MenuItemSaveAsClick", Files, 6, 0, "menuSaveAs", 0, kSelection, RunTransform},
    {"MenuItemSaveAsWordDocumentClick", Files, 7, 0, "menuSaveAsWordDocument", 0, kWord, RunTransform},
    {"MenuItemPackageNotebooksClick", Files, 0, 0, "menuPackageNotebooks", 0, kNothing, PackageNotebooksClick},
    {"MenuItemResoteQuillpkgFileClick", Files, 0, 0, "menuRestoreQuillpkg", 0, kNothing, RestoreQuillpkgFile},
    {"MenuItemExtractOnepkgFileClick", Files, 0, 0, "menuExtractOnepkg", 0, kNothing, ExtractOnepkgFile},
    {"MenuItemResoteOnepkgFileClick", Files, 0, 0, "menuRestoreOnepkg", 0, kNothing, RestoreOnepkgFile},
    {"MenuItemRestoreA4OneNoteTemplateClick", Files, 0, 0, "menuRestoreA4Template", 0, kNothing, RestoreA4OneNoteTemplate},
    {"MenuItemRestoreOneSectionFileClick", Files, 0, 0, "menuRestoreOneSection", 0, kNothing, RestoreOneSectionFile},
    {"MenuItemPagesNumberClick", Files, 0, 0, "menuPagesNumber", 0, kSignedIn, nullptr, Show<PagesNumberRequest>},
    {"MenuItemADayPagesClick", Files, 0, 0, "menuADayPages", 0, kSignedIn, nullptr, Show<ADayPagesRequest>},
    {"MenuItemSyntaxHighlightClick", Insert, 0, 0, "menuSyntaxHighlight", 0, kOneNote, SyntaxHighlight},
    {"MenuItemInsertHorizontalLine", Insert, 0, 0, "menuInsertHorizontalLine", 0, kOneNote, InsertHorizontalLine},
    {"MenuItemLaTeXEquation", Insert, 0, 0, "menuLaTeXEquation", 0, kOneNote, LaTeXEquation},
    {"MenuItemOptionsClick", Program, 0, 0, "menuOptions", 0, kNothing, nullptr, Show<OptionsRequest>},
    {"MenuItemRunOneNoteClick", Program, 0, 0, "menuRunOneNote", 0, kNothing, RunOneNote},
    {"MenuItemCacheFolderClick", Program, 0, 0, "menuCacheFolder", 0, kNothing, ShowCacheFolder},
    {"MenuItemImportNotebookClick", Program, 0, 0, "menuImportNotebook", 0, kNothing, ImportNotebook},
    {"MenuItemOpenNotebookByLink", Program, 0, 0, "menuOpenNotebookByLink", 0, kNothing, OpenNotebookByLink},
    {"MenuItemRulerClick", Program, 0, 0, "menuRuler", 0, kNothing, nullptr, Show<RulerRequest>},
    {"MenuItemAboutClick", Program, 0, 0, "menuAbout", 0, kNothing, nullptr, Show<AboutRequest>},
    {"MenuItemSignInClick", Program, 0, 0, "menuSignIn", 0, kNothing, SignIn, nullptr, Place::Palette},
    {"MenuItemSignOutClick", Program, 0, 0, "menuSignOut", 0, kSignedIn, SignOut, nullptr, Place::Palette},
    {"MenuItemBackupsClick", Program, 0, 0, "menuBackups", 0, kNothing, nullptr, Show<BackupsRequest>, Place::Palette},
    {"MenuItemTestCopyFromOneNoteClick", Program, 0, 0, "menuTestCopyFromOneNote", 0, kSelection, TestCopyFromOneNote, nullptr, Place::Nowhere},
    {"MenuItemTestCopyFromClipboardClick", Program, 0, 0, "menuTestCopyFromClipboard", 0, kNothing, TestCopyFromClipboard, nullptr, Place::Nowhere},
    {"MenuItemCommandPaletteClick", Top, 0, 0, "menuCommandPalette", 'P', kNothing, nullptr, Show<PaletteRequest>},
    {"MenuItemPracticeNotebookClick", Top, 0, 0, "menuPracticeNotebook", 0, kNothing, nullptr, Show<PracticeRequest>},
    {"MenuItemShowMenuClick", Top, 0, 0, "menuShowMenu", 0, kNothing, nullptr, Show<MenuRequest>, Place::Nowhere},
    {"MenuItemQuitClick", Top, 0, 0, "menuQuit", 0, kNothing, nullptr, Show<QuitRequest>},
};
// clang-format on

/// Lower case without the words that every action name carries, for comparing what a user typed.
std::string Simplified(std::string_view name) {
  std::string result;
  for (const char c : name) {
    if (c >= 'A' && c <= 'Z') {
      result += static_cast<char>(c + 32);
    } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
      result += c;
    }
  }
  if (result.starts_with("menuitem")) result.erase(0, 8);
  if (result.ends_with("click")) result.erase(result.size() - 5);
  return result;
}

/// The number of single-character edits between two texts.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

/// In the order of `CommandGroup`.
constexpr std::string_view kGroupTitles[] = {
    "menuGroupPage",  "menuGroupText",   "menuGroupTitle",     "menuGroupCalendar",   "menuGroupImage",
    "menuGroupLinks", "menuGroupTable",  "menuGroupTemplates", "menuGroupFavourites", "menuGroupOnline",
    "menuGroupFiles", "menuGroupInsert", "menuGroupProgram",   "menuGroupProgram"};

}  // namespace

std::string_view GroupTitleKey(CommandGroup group) {
  return kGroupTitles[static_cast<std::size_t>(group)];
}

std::span<const CommandRow> CommandTable() {
  return kCommands;
}

const CommandRow* FindCommand(std::string_view action) {
  constexpr std::size_t kLongestName = 100;
  if (action.size() > kLongestName) return nullptr;
  const std::string wanted = Simplified(action);
  for (const CommandRow& row : kCommands) {
    if (Simplified(row.action) == wanted) return &row;
  }
  return nullptr;
}

const CommandRow* FindCommandByNumber(std::int64_t number) {
  if (number == 0) return nullptr;
  for (const CommandRow& row : kCommands) {
    if (row.number == number) return &row;
  }
  return nullptr;
}

std::vector<std::string> NearestActions(std::string_view name, std::size_t most) {
  constexpr std::size_t kComparedPrefix = 60;
  const std::string wanted = Simplified(name.substr(0, kComparedPrefix));
  std::vector<std::pair<std::size_t, std::string_view>> candidates;
  for (const CommandRow& row : kCommands) {
    const std::string known = Simplified(row.action);
    const bool contains = !wanted.empty() && known.find(wanted) != std::string::npos;
    candidates.emplace_back(contains ? 0 : EditDistance(wanted, known), row.action);
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (std::size_t i = 0; i < std::min(most, candidates.size()); ++i)
    names.emplace_back(candidates[i].second);
  return names;
}

}  // namespace quill::shell
