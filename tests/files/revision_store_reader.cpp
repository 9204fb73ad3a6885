#include "revision_store_reader.h"

#include <algorithm>
#include <set>

#include "node_lists.h"
#include "store_checksums.h"

namespace quill::test {
namespace {

class Reader {
 public:
  explicit Reader(std::string_view file) : m_lists(file) {}

  RevisionStore Read() {
    std::vector<StoredNode> nodes = m_lists.Read(m_lists.Root());
    RevisionStore store;
    for (StoredNode& node : nodes) {
      std::string id = node.data.Id();
      node.data.End();
      if (node.kind == 0x004) {
        Need(store.rootSpace.empty(), "two root spaces");
        store.rootSpace = id;
      } else {
        Need(node.kind == 0x008 && !store.spaces.contains(id), "no reference to a new space");
        store.spaces[id] = ReadSpace(node.place, id);
      }
    }
    Need(store.spaces.contains(store.rootSpace), "the root space is missing");
    for (const std::string& space : m_spacesReferred)
      Need(store.spaces.contains(space), "a space is missing");
    m_lists.CheckAllIsRead();
    return store;
  }

 private:
  StoredSpace ReadSpace(const Place& place, const std::string& id) {
    std::vector<StoredNode> nodes = m_lists.Read(place);
    Need(nodes.size() == 2 && nodes[0].kind == 0x00C && nodes[0].data.Id() == id, "the manifests of a space");
    nodes[0].data.End();
    Need(nodes[1].kind == 0x010, "no revisions");
    nodes[1].data.End();
    return ReadRevision(nodes[1].place, id);
  }

  StoredSpace ReadRevision(const Place& place, const std::string& id) {
    std::vector<StoredNode> nodes = m_lists.Read(place);
    Need(nodes.size() >= 3 && nodes[0].kind == 0x014 && nodes[0].data.Id() == id, "the list of revisions");
    Need(nodes[0].data.Number(4) == 0 && nodes[1].kind == 0x01E, "no revision");
    Need(nodes[1].data.Id() != std::string(20, '\0'), "a revision without a name");
    Need(nodes[1].data.Id() == std::string(20, '\0'), "depends on a revision that is not there");
    Need(nodes[1].data.Number(4) == 1 && nodes[1].data.Number(2) == 0, "not active, or encrypted");
    nodes[1].data.End();
    StoredSpace space;
    std::size_t at = 2;
    for (; at < nodes.size() && nodes[at].kind == 0x0B0; ++at) {
      ReadGroup(nodes[at].place, nodes[at].data.Id(), space);
      nodes[at].data.End();
    }
    if (at < nodes.size() && nodes[at].kind == 0x022) ReadTable(nodes, at);
    for (; at < nodes.size() && nodes[at].kind == 0x05A; ++at) {
      const std::string root = nodes[at].data.Id();
      Need(space.objects.contains(root), "a root that is not declared");
      const auto role = static_cast<std::uint32_t>(nodes[at].data.Number(4));
      Need(role == 1 || role == 2 || role == 4, "a role that is not known");
      Need(space.roots.emplace(role, root).second, "two roots of one role");
      nodes[at].data.End();
    }
    Need(space.roots.contains(1) && space.roots.contains(2), "no root for the contents or the metadata");
    Need(at + 1 == nodes.size() && nodes[at].kind == 0x01C, "the end of a revision");
    CheckReferenceCounts(space);
    return space;
  }

  static std::map<std::uint64_t, std::string> ReadTable(std::vector<StoredNode>& nodes, std::size_t& at) {
    std::map<std::uint64_t, std::string> table;
    nodes[at++].data.End();
    for (; at < nodes.size() && nodes[at].kind == 0x024; ++at) {
      const std::uint64_t index = nodes[at].data.Number(4);
      const std::string guid(nodes[at].data.Take(16));
      Need(std::ranges::none_of(table, [&](const auto& row) { return row.second == guid; }), "a GUID twice");
      Need(index < 0xFFFFFF && table.emplace(index, guid).second, "an index twice");
      nodes[at].data.End();
    }
    Need(at < nodes.size() && nodes[at].kind == 0x028, "the end of a table");
    nodes[at++].data.End();
    return table;
  }

  void ReadGroup(const Place& place, const std::string& id, StoredSpace& space) {
    std::vector<StoredNode> nodes = m_lists.Read(place);
    Need(nodes.size() >= 4 && nodes[0].kind == 0x0B4 && nodes[0].data.Id() == id, "the name of a group");
    std::size_t at = 1;
    Need(nodes[at].kind == 0x022, "a group without a table");
    m_table = ReadTable(nodes, at);
    for (; at < nodes.size() && (nodes[at].kind == 0x0A4 || nodes[at].kind == 0x0C4); ++at)
      ReadObject(nodes[at], space);
    Need(at + 1 == nodes.size() && nodes[at].kind == 0x0B8, "the end of a group");
  }

  void ReadObject(StoredNode& node, StoredSpace& space) {
    const std::string id = LongId(node.data.Number(4));
    StoredObject object;
    object.kind = static_cast<std::uint32_t>(node.data.Number(4));
    const std::uint64_t refers = node.data.Number(1);
    object.references = static_cast<unsigned>(node.data.Number(1));
    Need(node.place.begin % 8 == 0 && node.place.size % 8 == 0, "the place of an object");
    const std::string_view data = m_lists.Chunk(node.place);
    Need((object.kind >> 20 & 1) == (node.kind == 0x0C4), "a read-only kind declared otherwise");
    if (node.kind == 0x0C4) Need(node.data.Take(16) == Md5Digest(data), "the digest of an object");
    node.data.End();
    Need(object.kind >> 17 & 1, "an object without properties");
    Need(refers == ReadProperties(data, object, space), "what an object is said to refer to");
    Need(space.objects.emplace(id, object).second, "an object declared twice");
  }

  /// Returns 1 for references to objects, 2 for references to spaces, or both.
  std::uint64_t ReadProperties(std::string_view bytes, StoredObject& object, const StoredSpace& space) {
    Cursor data(bytes);
    const std::uint64_t head = data.Number(4);
    Need((head >> 24 & 0x7F) == 0, "more streams than expected");
    Cursor objects(data.Take((head & 0xFFFFFF) * 4)), spaces("");
    if (head >> 31 == 0) spaces = Cursor(data.Take(data.Number(4) * 4));
    const std::uint64_t refers = (objects.rest().empty() ? 0 : 1) | (spaces.rest().empty() ? 0 : 2);
    Cursor ids(data.Take(data.Number(2) * 4));
    while (!ids.rest().empty()) {
      const std::uint64_t id = ids.Number(4);
      StoredProperty value = ReadValue(id, data, objects, spaces);
      const bool isSpace = (id >> 26 & 0x1E) == 0xA;
      for (const std::string& other : value.identifiers) {
        if (isSpace)
          m_spacesReferred.insert(other);
        else
          Need(space.objects.contains(other), "refers to an object that is not declared yet");
      }
      Need(object.properties.emplace(id & 0x7FFFFFFF, value).second, "a property twice");
    }
    objects.End();
    spaces.End();
    Need(data.rest().size() < 8, "more than padding behind the properties");
    data.EndOfZeros();
    return refers;
  }

  StoredProperty ReadValue(std::uint64_t id, Cursor& data, Cursor& objects, Cursor& spaces) const {
    const std::uint64_t type = id >> 26 & 0x1F;
    StoredProperty value;
    Need(type == 2 || id >> 31 == 0, "a truth value at another type");
    Need(type >= 2 && type <= 0xB, "a type of property that is not expected");
    if (type == 2) value.number = id >> 31;
    if (type >= 3 && type <= 6) value.number = data.Number(std::size_t{1} << (type - 3));
    if (type == 7) value.bytes = data.Take(data.Number(4));
    if (type <= 7) return value;
    Cursor& stream = type < 0xA ? objects : spaces;
    for (std::uint64_t left = type % 2 == 1 ? data.Number(4) : 1; left > 0; --left)
      value.identifiers.push_back(LongId(stream.Number(4)));
    return value;
  }

  std::string LongId(std::uint64_t compact) const {
    const auto found = m_table.find(compact >> 8);
    Need(found != m_table.end(), "an identifier whose GUID is not in the table");
    return found->second + static_cast<char>(compact & 0xFF) + std::string(3, '\0');
  }

  static void CheckReferenceCounts(const StoredSpace& space) {
    std::map<std::string, unsigned> counts;
    for (const auto& [id, object] : space.objects) {
      std::set<std::string> others;
      for (const auto& [key, value] : object.properties)
        if (key >> 26 < 0xA) others.insert(value.identifiers.begin(), value.identifiers.end());
      for (const std::string& other : others) ++counts[other];
    }
    for (const auto& [role, root] : space.roots) Need(!counts.contains(root), "a root below another object");
    for (const auto& [id, object] : space.objects) {
      Need(object.references == counts[id], "the count of references");
      const bool isRoot =
          std::ranges::count(space.roots, id, [](const auto& root) { return root.second; }) > 0;
      Need(isRoot || object.references > 0, "an object that nothing leads to");
    }
  }

  NodeLists m_lists;
  std::map<std::uint64_t, std::string> m_table;  ///< of the group that is being read
  std::set<std::string> m_spacesReferred;
};

}  // namespace

Result<RevisionStore> ReadRevisionStore(std::string_view file) try {
  return Reader(file).Read();
} catch (const Damage& damage) {
  return Failure{std::string(damage.what())};
}

}  // namespace quill::test
