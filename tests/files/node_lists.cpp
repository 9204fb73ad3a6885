#include "node_lists.h"

#include <optional>

#include "store_checksums.h"

namespace quill::test {
namespace {

using namespace std::string_view_literals;

Place Place64x32(Cursor& from) {
  const std::uint64_t begin = from.Number(8);
  return {begin, from.Number(4)};
}

/// What nodes of a kind refer to: nothing, data, or another list.
unsigned TargetOf(unsigned kind) {
  if (kind == 0x0A4 || kind == 0x0C4) return 1;
  return kind == 0x008 || kind == 0x010 || kind == 0x0B0 ? 2 : 0;
}

/// A number of the width that a node's format field names; narrow ones count in eights.
std::uint64_t Packed(Cursor& from, std::size_t size, bool inEights) {
  return from.Number(size) * (inEights ? 8 : 1);
}

StoredNode ReadNode(Cursor& from) {
  const std::uint64_t header = Cursor(from.rest()).Number(4), size = header >> 10 & 0x1FFF;
  Need(size >= 4 && header >> 31 == 1, "the header of a node");
  StoredNode node{static_cast<unsigned>(header & 0x3FF), {}, Cursor(from.Take(size))};
  node.data.Take(4);
  const std::uint64_t placeForm = header >> 23 & 3, sizeForm = header >> 25 & 3, target = header >> 27 & 15;
  Need(target == TargetOf(node.kind), "the target of a node");
  if (target == 0) {
    Need(placeForm == 0 && sizeForm == 0, "forms without a reference");
    return node;
  }
  const std::size_t placeSizes[] = {8, 4, 2, 4}, sizeSizes[] = {4, 8, 1, 2};
  const std::uint64_t begin = Packed(node.data, placeSizes[placeForm], placeForm >= 2);
  node.place = Place{begin, Packed(node.data, sizeSizes[sizeForm], sizeForm >= 2)};
  return node;
}

}  // namespace

NodeLists::NodeLists(std::string_view file) : m_file(file) {
  ReadLog(ReadHeader());
}

Place NodeLists::ReadHeader() {
  Cursor header(Chunk({0, 1024}));
  Need(header.Take(16) == "\xE4\x52\x5C\x7B\x8C\xD8\xA7\x4D\xAE\xB1\x53\x78\xD0\x29\x96\xD3"sv,
       "no section file");
  header.Take(16);
  Need(header.Take(16) == std::string(16, '\0'), "a legacy version");
  Need(header.Take(16) == "\x3F\xDD\x9A\x10\x1B\x91\xF5\x49\xA5\xD0\x17\x91\xED\xC8\xAE\xD8"sv,
       "no such format");
  for (int i = 0; i < 4; ++i) Need(header.Number(4) == 0x2A, "a version");
  Need(header.Number(8) == 0 && header.Number(8) == 0xFFFFFFFF, "legacy lists");
  m_transactions = header.Number(4);
  Need(header.Number(4) == 0 && header.Number(8) == 0 && header.Number(8) == 0xFFFFFFFF, "legacy fields");
  Need(header.Number(8) == 0, "legacy free space, flags");
  Need(header.Take(16) == std::string(16, '\0'), "a table of contents that does not exist");
  Need(header.Number(4) == Crc32c("a\0004\0.\0o\0n\0e\0\0\0"sv), "the sum of the name");
  Need(Place64x32(header).IsNil(), "a list of hashes");
  const Place log = Place64x32(header);
  m_root = Place64x32(header);
  Need(Place64x32(header).IsNil(), "a free list");
  Need(header.Number(8) == m_file.size() && header.Number(8) == 0, "the length of the file");
  header.Take(16);
  Need(header.Number(8) == 1, "the generation");
  header.Take(16);
  header.EndOfZeros();
  return log;
}

void NodeLists::ReadLog(Place place) {
  std::string transaction;
  while (m_transactions > 0) {
    Need(place.size >= 12, "the log is too short");
    Cursor fragment(Chunk(place));
    while (fragment.rest().size() >= 20 && m_transactions > 0) {
      const std::string_view entry = fragment.Take(8);
      Cursor fields(entry);
      const std::uint64_t list = fields.Number(4), value = fields.Number(4);
      if (list != 1) {
        transaction += entry;
        m_counts[list] = value;
        continue;
      }
      Need(value == Crc32c(transaction), "the sum of a transaction");
      transaction.clear();
      --m_transactions;
    }
    Cursor(fragment.Take(fragment.rest().size() - 12)).EndOfZeros();
    place = Place64x32(fragment);
  }
}

std::vector<StoredNode> NodeLists::Read(Place place) {
  std::vector<StoredNode> nodes;
  std::optional<std::uint64_t> list, left;
  for (std::uint64_t sequence = 0; !place.IsNil(); ++sequence) {
    Need(place.size >= 36, "a fragment is too short");
    const std::string_view bytes = Chunk(place);
    Cursor fragment(bytes.substr(0, bytes.size() - 20)), end(bytes.substr(bytes.size() - 20));
    Need(fragment.Number(8) == 0xA4567AB1F5F7F4C4, "the mark of a fragment");
    const std::uint64_t number = fragment.Number(4);
    Need(number >= 16 && number == list.value_or(number), "the number of a list");
    if (!list) left = TakeCount(*(list = number));
    Need(fragment.Number(4) == sequence, "the order of fragments");
    while (*left > 0 && fragment.rest().size() >= 4) {
      StoredNode node = ReadNode(fragment);
      if (node.kind == 0x0FF) break;
      nodes.push_back(node);
      --*left;
    }
    fragment.EndOfZeros();
    place = Place64x32(end);
    Need(end.Number(8) == 0x8BC215C38233BA4B, "the mark at a fragment's end");
  }
  Need(left.value_or(1) == 0, "a list has fewer nodes than the log counts");
  return nodes;
}

std::uint64_t NodeLists::TakeCount(std::uint64_t list) {
  const auto found = m_counts.find(list);
  Need(found != m_counts.end(), "a list that the log does not count, or counted twice");
  const std::uint64_t count = found->second;
  m_counts.erase(found);
  return count;
}

std::string_view NodeLists::Chunk(const Place& place) {
  Need(place.size > 0 && place.begin <= m_file.size() && place.size <= m_file.size() - place.begin,
       "a reference leaves the file");
  const auto next = m_chunks.lower_bound(place.begin);
  Need(next == m_chunks.end() || place.begin + place.size <= next->first, "chunks overlap");
  Need(next == m_chunks.begin() || std::prev(next)->second <= place.begin, "chunks overlap");
  m_chunks[place.begin] = place.begin + place.size;
  return m_file.substr(place.begin, place.size);
}

void NodeLists::CheckAllIsRead() const {
  Need(m_counts.empty(), "the log counts a list that is not there");
  std::uint64_t end = 0;
  for (const auto& [begin, next] : m_chunks) {
    Cursor(m_file.substr(end, begin - end)).EndOfZeros();
    end = next;
  }
  Cursor(m_file.substr(end)).EndOfZeros();
}

}  // namespace quill::test
