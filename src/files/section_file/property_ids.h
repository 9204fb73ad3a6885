#pragma once
#include <cstdint>

namespace quill::section_file {

/// The kinds of object in a section and a page ([MS-ONE] 2.1.13).
namespace jcid {
inline constexpr std::uint32_t kAuthor = 0x00120001;
inline constexpr std::uint32_t kSection = 0x00060007;
inline constexpr std::uint32_t kPageSeries = 0x00060008;
inline constexpr std::uint32_t kPage = 0x0006000B;
inline constexpr std::uint32_t kOutline = 0x0006000C;
inline constexpr std::uint32_t kOutlineElement = 0x0006000D;
inline constexpr std::uint32_t kRichText = 0x0006000E;
inline constexpr std::uint32_t kTitle = 0x0006002C;
inline constexpr std::uint32_t kPageMetadata = 0x00020030;
inline constexpr std::uint32_t kSectionMetadata = 0x00020031;
inline constexpr std::uint32_t kPageManifest = 0x00060037;
inline constexpr std::uint32_t kRevisionMetadata = 0x00020044;
inline constexpr std::uint32_t kParagraphStyle = 0x0012004D;
}  // namespace jcid

/// Their properties ([MS-ONE] 2.1.12), by the names that they have there.
namespace property {
inline constexpr std::uint32_t kPageWidth = 0x14001C01;
inline constexpr std::uint32_t kPageHeight = 0x14001C02;
inline constexpr std::uint32_t kOutlineElementChildLevel = 0x0C001C03;
inline constexpr std::uint32_t kFont = 0x1C001C0A;
inline constexpr std::uint32_t kFontSize = 0x10001C0B;
inline constexpr std::uint32_t kOffsetFromParentHoriz = 0x14001C14;
inline constexpr std::uint32_t kOffsetFromParentVert = 0x14001C15;
inline constexpr std::uint32_t kLayoutMaxWidth = 0x14001C1B;
inline constexpr std::uint32_t kContentChildNodes = 0x24001C1F;
inline constexpr std::uint32_t kElementChildNodes = 0x24001C20;
inline constexpr std::uint32_t kRichEditTextUnicode = 0x1C001C22;
inline constexpr std::uint32_t kNotebookManagementEntityGuid = 0x1C001C30;
inline constexpr std::uint32_t kPageMarginTop = 0x14001C4C;
inline constexpr std::uint32_t kPageMarginBottom = 0x14001C4D;
inline constexpr std::uint32_t kPageMarginLeft = 0x14001C4E;
inline constexpr std::uint32_t kPageMarginRight = 0x14001C4F;
inline constexpr std::uint32_t kTopologyCreationTimeStamp = 0x18001C65;
inline constexpr std::uint32_t kPageSize = 0x14001C8B;
inline constexpr std::uint32_t kPortraitPage = 0x08001C8E;
inline constexpr std::uint32_t kIsTitleText = 0x08001CB4;
inline constexpr std::uint32_t kCachedTitleString = 0x1C001CF3;
inline constexpr std::uint32_t kCreationTimeStamp = 0x14001D09;
inline constexpr std::uint32_t kCachedTitleStringFromPage = 0x1C001D3C;
inline constexpr std::uint32_t kStructureElementChildNodes = 0x24001D5F;
inline constexpr std::uint32_t kChildGraphSpaceElementNodes = 0x2C001D63;
inline constexpr std::uint32_t kAuthor = 0x1C001D75;
inline constexpr std::uint32_t kLastModifiedTimeStamp = 0x18001D77;
inline constexpr std::uint32_t kAuthorMostRecent = 0x20001D79;
inline constexpr std::uint32_t kLastModifiedTime = 0x14001D7A;
inline constexpr std::uint32_t kPageLevel = 0x14001DFF;
inline constexpr std::uint32_t kParagraphStyle = 0x2000342C;
inline constexpr std::uint32_t kMetaDataObjectsAboveGraphSpace = 0x24003442;
inline constexpr std::uint32_t kParagraphStyleId = 0x1C00345A;
inline constexpr std::uint32_t kNextStyle = 0x1C00348A;
inline constexpr std::uint32_t kSectionDisplayName = 0x1C00349B;
}  // namespace property

}  // namespace quill::section_file
