#include "practice/service/added_content.h"

#include <string_view>
#include <vector>

#include "practice/service/page_elements.h"

namespace quill::practice {
namespace {

using std::string_view;

std::vector<pugi::xml_node> ChildrenOf(pugi::xml_node parent) {
  return {parent.children().begin(), parent.children().end()};
}

bool IsBlank(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata &&
         string_view(node.value()).find_first_not_of(" \t\r\n") == string_view::npos;
}

bool IsList(pugi::xml_node node) {
  return string_view(node.name()) == "ul" || string_view(node.name()) == "ol";
}

void MoveChildren(pugi::xml_node from, pugi::xml_node to) {
  for (const pugi::xml_node child : ChildrenOf(from)) to.append_move(child);
}

/// Moves the nodes behind `node` to a copy of its parent behind that one; the copy names no target.
void SplitBehind(pugi::xml_node node) {
  if (!node.next_sibling()) return;
  pugi::xml_node parent = node.parent();
  pugi::xml_node right = parent.parent().insert_child_after(parent.name(), parent);
  for (const pugi::xml_attribute attribute : parent.attributes()) right.append_copy(attribute);
  right.remove_attribute("data-id");
  while (node.next_sibling()) right.append_move(node.next_sibling());
}

}  // namespace

void MakeBlocks(pugi::xml_node added) {
  pugi::xml_node paragraph;
  for (pugi::xml_node node : ChildrenOf(added)) {
    if (IsBlockElement(node.name())) {
      paragraph = {};
    } else if (!paragraph && IsBlank(node)) {
      added.remove_child(node);
    } else {
      if (!paragraph) paragraph = added.insert_child_before("p", node);
      paragraph.append_move(node);
    }
  }
}

void MakeItems(pugi::xml_node added, bool flat) {
  MakeBlocks(added);
  for (const pugi::xml_node block : ChildrenOf(added)) {
    if (string_view(block.name()) == "li") continue;
    if (IsList(block)) {
      if (!flat) continue;
      for (const pugi::xml_node item : ChildrenOf(block)) {
        if (!IsBlank(item)) added.insert_move_before(item, block);
      }
      added.remove_child(block);
      continue;
    }
    pugi::xml_node item = added.insert_child_before("li", block);
    if (string_view(block.name()) != "p") {
      item.append_move(block);
      continue;
    }
    MoveChildren(block, item);
    added.remove_child(block);
  }
}

bool HasBlocks(pugi::xml_node added) {
  for (const pugi::xml_node child : added.children()) {
    if (IsBlockElement(child.name())) return true;
  }
  return false;
}

void LiftOutOfParagraph(pugi::xml_node node, pugi::xml_node gone) {
  for (pugi::xml_node parent = node.parent(); !HoldsBlocks(parent.name()); parent = node.parent()) {
    SplitBehind(node);
    parent.parent().insert_move_after(node, parent);
    if (!parent.first_child()) gone.append_move(parent);
  }
}

}  // namespace quill::practice
