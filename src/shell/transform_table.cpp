#include "shell/transform_table.h"

#include "shell/engine_commands.h"
#include "shell/exports.h"
#include "shell/link_actions.h"
#include "shell/onedrive_actions.h"
#include "shell/picture_commands.h"
#include "shell/table_commands.h"
#include "shell/template_actions.h"
#include "tools/letter_case.h"

namespace quill::shell {
namespace {

std::int64_t ChangeCaseOfSelection(TransformContext& context) {
  return tools::ChangeCase(context.document->tree(), static_cast<tools::CaseType>(context.command));
}

using enum TransformInput;
using enum PasteBack;

constexpr TransformRow kTransforms[] = {
    {1, "SaveDiagnostics", Fragment, Never, SaveDiagnostics},
    {2, "ChangeCase", Document, WhenPositive, ChangeCaseOfSelection},
    {3, "ChangeCase", Document, WhenPositive, ChangeCaseOfSelection},
    {4, "ChangeCase", Document, WhenPositive, ChangeCaseOfSelection},
    {5, "ChangeCase", Document, WhenPositive, ChangeCaseOfSelection},
    {6, "SaveAsHtml", Document, WhenPositive, SaveAsHtml},
    {7, "SaveAsWordDocument", Document, WhenPositive, SaveAsWordDocument},
    {8, "SaveAsTemplate", Document, WhenPositive, SaveAsTemplate},
    {9, "ConvertToPPT", Document, Never, ConvertToPPT},
    {10, "WordCount", Document, Never, WordCount},
    {11, "OpenLocalLink", Fragment, Never, OpenLocalLink},
    {12, "OpenCloudFileAttachmentLink", Fragment, Never, OpenCloudFileAttachmentLink},
    {13, "ImageCrop", Document, Never, ImageCrop, ImageCropViaImageFormat},
    {14, "OpenPicture", Document, Never, OpenPicture, OpenPictureViaImageFormat},
    {15, "ChangeTableStyle", Document, WhenPositive, ChangeTableStyle},
    {16, "WordCount", Document, Never, WordCount},
    {17, "Table2Text", Document, WhenPositive, Table2Text},
    {18, "Text2Table", Document, WhenPositive, Text2Table},
    {19, "SaveTableAsCSV", Document, WhenPositive, SaveTableAsCSV},
    {10001, "ExportLog", Whole, WhenPositive, ExportLog},
    {10002, "InsertPhonetics", Fragment, WhenPositive, InsertPhonetics},
    // The link's text and target are in the selection itself, not in the head around it.
    {10003, "VarLink", Fragment, Never, VarLink, VarLinkWithoutSelection},
};

}  // namespace

std::span<const TransformRow> TransformTable() {
  return kTransforms;
}

const TransformRow* FindTransform(std::int64_t number) {
  for (const TransformRow& row : kTransforms) {
    if (row.number == number) return &row;
  }
  return nullptr;
}

}  // namespace quill::shell
