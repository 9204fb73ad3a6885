// Random pages and random changes, held against a page that is a plain list of blocks.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "practice/service/online_page.h"
#include "practice_pages/online_ids_of.h"

namespace quill::practice {
namespace {

using nlohmann::json;

constexpr std::string_view kGuid = "{3C7E1D00-5A1E-4C0D-8F00-9A2B6C4D1E00}";

/// A block of the naive page: its HTML, and how many elements with ids it has.
struct Block {
  std::string html;
  std::size_t ids;
  bool isList = false;
};

class Dice {
 public:
  explicit Dice(unsigned seed) : m_random(seed) {}
  std::size_t Below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(m_random); }

  /// Few different texts, so that many blocks are alike.
  std::string Text() {
    static const char* const kTexts[] = {"",
                                         "a",
                                         "a b",
                                         "&nbsp;",
                                         "x &amp; &lt;y&gt;",
                                         "\xE4\xBB\x8A",
                                         "<br>",
                                         "<span style=\"font-weight:bold\">b</span>c"};
    return kTexts[Below(std::size(kTexts))];
  }

  Block NewBlock() {
    switch (Below(6)) {
      case 0:
        return {"<h2>" + Text() + "</h2>", 1};
      case 1:
        return {"<ul><li>" + Text() + "</li></ul>", 2, true};
      case 2:
        return {"<ol><li>" + Text() + "</li><li><p>" + Text() + "</p></li></ol>", 4, true};
      case 3:
        return {"<table border=\"1\"><tr><td>" + Text() + "</td><td><p>" + Text() + "</p></td></tr></table>",
                5};
      default:
        return {"<p data-tag=\"to-do\">" + Text() + "</p>", 1};
    }
  }

 private:
  std::mt19937 m_random;
};

std::string Html(const std::vector<Block>& blocks) {
  std::string html;
  for (const Block& block : blocks) html += block.html;
  return html;
}

/// Makes a change of the naive page and returns how it is asked for; `ids` and `origins` (the block's place
/// on the page before the first change, or −1) tell what may be named.
json ChangeOne(Dice& dice, std::vector<Block>& blocks, std::vector<int>& origins,
               const std::vector<std::string>& idOfOrigin) {
  const std::size_t at = dice.Below(blocks.size());
  const Block added = dice.NewBlock();
  const bool before = dice.Below(2) == 0;
  json change = {{"content", added.html}, {"position", before ? "before" : "after"}};
  const auto place = static_cast<std::ptrdiff_t>(at);
  if (origins[at] < 0) {  // put there by an earlier change, so it has no id that is known
    change["target"] = "body";
    change["action"] = "append";
    blocks.insert(before ? blocks.begin() : blocks.end(), added);
    origins.insert(before ? origins.begin() : origins.end(), -1);
    return change;
  }
  change["target"] = idOfOrigin[static_cast<std::size_t>(origins[at])];
  const std::size_t kind = dice.Below(blocks[at].isList ? 3 : 2);
  if (kind == 0) {
    change["action"] = "replace";
    blocks[at] = added;
    origins[at] = -1;
  } else if (kind == 1) {
    change["action"] = "insert";
    blocks.insert(blocks.begin() + place + (before ? 0 : 1), added);
    origins.insert(origins.begin() + place + (before ? 0 : 1), -1);
  } else {
    change["action"] = before ? "prepend" : "append";
    change["content"] = "<li>item</li>";
    std::string& html = blocks[at].html;
    html.insert(before ? std::size_t{4} : html.size() - 5, "<li>item</li>");
  }
  return change;
}

// Whatever is changed, everything that was no target stays as it was, in its place.
TEST(RandomChanges, KeepEverythingElse) {
  for (unsigned seed = 0; seed < 400; ++seed) {
    Dice dice(seed);
    std::vector<Block> blocks(1 + dice.Below(12));
    for (Block& block : blocks) block = dice.NewBlock();
    const LibraryContent page{"T", Html(blocks)};
    const std::vector<std::string> ids = IdsOf(page, kGuid);
    std::vector<std::string> idOfOrigin;
    std::vector<int> origins;
    std::size_t next = 1;  // behind the outline's
    for (const Block& block : blocks) {
      origins.push_back(static_cast<int>(idOfOrigin.size()));
      idOfOrigin.push_back(ids.at(next));
      next += block.ids;
    }
    ASSERT_EQ(next, ids.size());
    json changes = json::array();
    for (std::size_t n = 1 + dice.Below(8); n > 0; --n) {
      changes.push_back(ChangeOne(dice, blocks, origins, idOfOrigin));
    }
    const auto changed = ApplyChanges(page, kGuid, changes.dump());
    ASSERT_TRUE(changed.ok()) << changed.error().message << "\nseed " << seed;
    ASSERT_EQ(changed->body, Html(blocks)) << "seed " << seed << "\n" << page.body << "\n" << changes.dump(1);
  }
}

}  // namespace
}  // namespace quill::practice
