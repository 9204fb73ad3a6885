#include "files/section_file/a4_page.h"

#include "files/section_file/fixed_values.h"
#include "files/section_file/property_ids.h"

namespace quill::section_file {
namespace {

constexpr ExtendedGuid kManifest{kPageObjects, 1};
constexpr ExtendedGuid kPage{kPageObjects, 2};
constexpr ExtendedGuid kTitle{kPageObjects, 3};
constexpr ExtendedGuid kTitleOutline{kPageObjects, 4};
constexpr ExtendedGuid kTitleElement{kPageObjects, 5};
constexpr ExtendedGuid kTitleText{kPageObjects, 6};
constexpr ExtendedGuid kTitleStyle{kPageObjects, 7};
constexpr ExtendedGuid kMetadata{kPageObjects, 8};
constexpr ExtendedGuid kRevisionMetadata{kPageObjects, 9};
constexpr ExtendedGuid kAuthor{kPageObjects, 10};

/// Lengths on a page are counted in half inches.
constexpr float Inches(float inches) {
  return inches * 2;
}
constexpr float kWidth = 8.27F;
constexpr float kHeight = 11.69F;
constexpr float kUpperMargin = 0.5F;
constexpr float kSideMargin = 1;

PropertySet Page() {
  constexpr std::uint32_t kIsoA4 = 6;
  PropertySet page;
  page.U32(property::kLastModifiedTime, kTime).U64(property::kTopologyCreationTimeStamp, kFileTime);
  page.U32(property::kPageSize, kIsoA4).Flag(property::kPortraitPage, true);
  page.Number(property::kPageWidth, Inches(kWidth)).Number(property::kPageHeight, Inches(kHeight));
  page.Number(property::kPageMarginTop, Inches(kUpperMargin));
  page.Number(property::kPageMarginBottom, Inches(kUpperMargin));
  page.Number(property::kPageMarginLeft, Inches(kSideMargin));
  page.Number(property::kPageMarginRight, Inches(kSideMargin));
  page.Text(property::kCachedTitleStringFromPage, u"");
  return page.Objects(property::kStructureElementChildNodes, {kTitle});
}

PropertySet Title() {
  PropertySet title;
  title.U32(property::kLastModifiedTime, kTime);
  title.Number(property::kOffsetFromParentHoriz, Inches(kSideMargin));
  title.Number(property::kOffsetFromParentVert, Inches(kUpperMargin));
  return title.Objects(property::kElementChildNodes, {kTitleOutline});
}

PropertySet TitleOutline() {
  PropertySet outline;
  outline.U32(property::kLastModifiedTime, kTime);
  outline.Number(property::kLayoutMaxWidth, Inches(kWidth - 2 * kSideMargin));
  return outline.Objects(property::kElementChildNodes, {kTitleElement});
}

PropertySet TitleElement() {
  PropertySet element;
  element.U32(property::kCreationTimeStamp, kTime).U32(property::kLastModifiedTime, kTime);
  element.U8(property::kOutlineElementChildLevel, 1);
  return element.Objects(property::kContentChildNodes, {kTitleText});
}

PropertySet TitleText() {
  PropertySet text;
  text.U32(property::kLastModifiedTime, kTime).Flag(property::kIsTitleText, true);
  text.Text(property::kRichEditTextUnicode, u"");
  return text.Object(property::kParagraphStyle, kTitleStyle);
}

PropertySet TitleStyle() {
  constexpr std::uint16_t kHalfPoints = 40;
  PropertySet style;
  style.Text(property::kParagraphStyleId, u"PageTitle").Text(property::kNextStyle, u"p");
  return style.Text(property::kFont, u"Calibri Light").U16(property::kFontSize, kHalfPoints);
}

}  // namespace

PropertySet PageMetadata() {
  PropertySet metadata;
  metadata.Data(property::kNotebookManagementEntityGuid, kPageEntityGuid);
  metadata.U64(property::kTopologyCreationTimeStamp, kFileTime);
  return metadata.Text(property::kCachedTitleString, u"").U32(property::kPageLevel, 1);
}

ObjectSpace A4Page() {
  ObjectSpace space{
      .id = kPageSpace, .revision = kPageRevision, .group = kPageGroup, .objects = {}, .roots = {}};
  space.objects = {
      {kAuthor, jcid::kAuthor, PropertySet().Text(property::kAuthor, u"Quill Menu")},
      {kRevisionMetadata, jcid::kRevisionMetadata,
       PropertySet()
           .U64(property::kLastModifiedTimeStamp, kFileTime)
           .Object(property::kAuthorMostRecent, kAuthor)},
      {kMetadata, jcid::kPageMetadata, PageMetadata()},
      {kTitleStyle, jcid::kParagraphStyle, TitleStyle()},
      {kTitleText, jcid::kRichText, TitleText()},
      {kTitleElement, jcid::kOutlineElement, TitleElement()},
      {kTitleOutline, jcid::kOutline, TitleOutline()},
      {kTitle, jcid::kTitle, Title()},
      {kPage, jcid::kPage, Page()},
      {kManifest, jcid::kPageManifest, PropertySet().Objects(property::kContentChildNodes, {kPage})},
  };
  space.roots = {{Root::Role::Contents, kManifest},
                 {Root::Role::Metadata, kMetadata},
                 {Root::Role::RevisionMetadata, kRevisionMetadata}};
  return space;
}

}  // namespace quill::section_file
