#include "online/page_html.h"

#include <string>
#include <vector>

#include "online/protected_ampersands.h"

namespace quill::online {
namespace {

/// The wanted elements of a tree, each as a piece of one text that holds what is inside any of them.
class WantedElements {
 public:
  explicit WantedElements(ElementTest isWanted) : m_isWanted(isWanted) {}

  void Collect(pugi::xml_node top) {
    pugi::xml_node node = top.first_child();
    while (node) {
      Enter(node);
      if (node.first_child()) {
        node = node.first_child();
        continue;
      }
      Leave(node);
      while (!node.next_sibling() && node.parent() != top) {
        node = node.parent();
        Leave(node);
      }
      node = node.next_sibling();
    }
  }

  void Visit(const ElementVisitor& visit) const {
    const std::string_view text = m_text;
    for (const Piece& piece : m_pieces)
      visit(piece.element, text.substr(piece.begin, piece.end - piece.begin));
  }

 private:
  struct Piece {
    pugi::xml_node element;
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  void Enter(pugi::xml_node node) {
    const pugi::xml_node_type type = node.type();
    if (type == pugi::node_element) {
      if (!m_isWanted(node)) return;
      m_open.push_back(m_pieces.size());
      m_pieces.push_back({node, m_text.size(), m_text.size()});
    } else if (!m_open.empty() && (type == pugi::node_pcdata || type == pugi::node_cdata)) {
      m_text += node.value();
    }
  }

  void Leave(pugi::xml_node node) {
    if (m_open.empty() || m_pieces[m_open.back()].element != node) return;
    m_pieces[m_open.back()].end = m_text.size();
    m_open.pop_back();
  }

  const ElementTest m_isWanted;
  std::string m_text;
  std::vector<Piece> m_pieces;
  std::vector<std::size_t> m_open;  ///< the pieces that the walk is inside of
};

}  // namespace

Result<content::WorkingDocument> ParsePageHtml(std::string_view html) {
  return content::WorkingDocument::Parse(ProtectAmpersands(html));
}

void VisitElements(const content::WorkingDocument& page, ElementTest isWanted, const ElementVisitor& visit) {
  WantedElements elements(isWanted);
  elements.Collect(page.tree());
  elements.Visit(visit);
}

std::string_view AttributeText(pugi::xml_node element, const char* name) {
  return element.attribute(name).value();
}

}  // namespace quill::online
