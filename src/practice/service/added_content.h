#pragma once
#include <pugixml.hpp>

namespace quill::practice {

// Brings the children of `added`, content that is to be put somewhere on a page, into a form that may stand
// there.

/// For places between blocks: runs of text between them become paragraphs, blanks between them go.
void MakeBlocks(pugi::xml_node added);

/// For places in a list: paragraphs and text become items. Lists give their items when `flat`, and otherwise
/// stay as lists within the list.
void MakeItems(pugi::xml_node added, bool flat);

bool HasBlocks(pugi::xml_node added);

/// Takes `node` out of the paragraph, and of whatever else holds no blocks, that it stands in: these are
/// split into what was before and what was behind it. A half with nothing in it is moved to `gone`.
void LiftOutOfParagraph(pugi::xml_node node, pugi::xml_node gone);

}  // namespace quill::practice
