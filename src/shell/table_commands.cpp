#include "shell/table_commands.h"

#include <initializer_list>
#include <string_view>

#include "content/element_lookup.h"
#include "shell/content_requests.h"
#include "shell/save_notice.h"
#include "shell/transform_table.h"
#include "tools/table_copy.h"
#include "tools/table_style.h"
#include "tools/table_styles.h"

namespace quill::shell {
namespace {

constexpr std::int64_t kTableInformation = 16;

void SayNoTable(TransformContext& context) {
  context.bridge.ShowMessage(context.services.strings.Text("msgLoadTableError"));
}

/// Keeps what a dialog shall begin with the next time.
void Remember(TransformContext& context, std::initializer_list<std::string_view> keys) {
  SayUnlessSaved(context.services, SaveSettingRows(context.globals, keys));
}

/// The style that the user gives this table; null when they do not want to.
const tools::TableStyle* AskStyle(TransformContext& context, pugi::xml_node table) {
  std::int64_t& remembered = context.globals.settings.TableStyle_SelectIndex;
  const auto chosen = platform::RunDialog(context.services.ui,
                                          TableStyleRequest{tools::CopyTableBeginning(table), remembered});
  const tools::TableStyle* style = chosen ? tools::FindTableStyle(*chosen) : nullptr;
  if (style == nullptr) return nullptr;
  remembered = *chosen;
  Remember(context, {"TableStyle_SelectIndex"});
  return style;
}

}  // namespace

std::int64_t ChangeTableStyle(TransformContext& context) {
  const tools::TableStyleOutcome outcome = tools::ChangeTableStyle_Recurse(
      context.document->tree(), [&](pugi::xml_node table) { return AskStyle(context, table); });
  if (!outcome.tableMet) SayNoTable(context);
  return outcome.value;
}

std::int64_t Table2Text(TransformContext& context) {
  const pugi::xml_node table = content::FindElementNamed(context.document->Root(), "table");
  if (!table) {
    SayNoTable(context);
    return 0;
  }
  Settings& settings = context.globals.settings;
  const auto chosen = platform::RunDialog(
      context.services.ui, Table2TextRequest{tools::CopyTable(table),
                                             {static_cast<tools::TableTextMode>(settings.Table2Text_Index),
                                              settings.Table2Text_Seperator}});
  if (!chosen) return 0;
  settings.Table2Text_Index = static_cast<std::int64_t>(chosen->mode);
  settings.Table2Text_Seperator = chosen->separator;
  Remember(context, {"Table2Text_Index", "Table2Text_Seperator"});
  context.bridge.LeaveTextOnClipboard(tools::TableToText(table, chosen->mode, chosen->separator));
  return 0;
}

std::int64_t Text2Table(TransformContext& context) {
  const std::string copied = context.bridge.ReadCopiedText();
  const std::string text(tools::TextToTableSource(copied));
  Settings& settings = context.globals.settings;
  const auto mode = static_cast<tools::TextTableMode>(settings.Text2Table_Index);
  const auto chosen = platform::RunDialog(
      context.services.ui, Text2TableRequest{text, {mode, settings.Text2Table_Seperator, "", ""}});
  if (!chosen) return 0;
  settings.Text2Table_Index = static_cast<std::int64_t>(chosen->mode);
  settings.Text2Table_Seperator = chosen->separator;
  const tools::TextTable table =
      tools::CreateTable(text, {chosen->mode, chosen->separator}, chosen->columns, chosen->rows);
  context.bridge.PasteHtml(table.html, PasteMode::AtCaret);
  Remember(context, {"Text2Table_Index", "Text2Table_Seperator"});
  if (table.isClamped) {
    context.bridge.ShowMessage(
        context.services.strings.Format("msgTableClamped", {std::to_string(tools::kMostTableCells)}));
  }
  return 0;
}

std::int64_t WordCount(TransformContext& context) {
  const pugi::xml_node root = context.document->Root();
  const bool ofTable = context.command == kTableInformation;
  CountRequest request{
      ofTable ? "titleTableInformation" : "titleWordCount",
      ofTable ? tools::RowsOf(tools::CountTable(root)) : tools::RowsOf(tools::CountWords(root))};
  platform::RunDialog(context.services.ui, std::move(request));
  return 0;
}

}  // namespace quill::shell
