#include "practice/page_store.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "base/atomic_file.h"
#include "practice/guid_hash.h"

namespace quill::practice {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".htm";
constexpr std::uintmax_t kLargestPage = std::uintmax_t{64} << 20;

bool IsSafe(const PageAddress& address) {
  return IsSafeName(address.section) && IsSafeName(address.name);
}

Failure<std::string> BadName(const PageAddress& address) {
  return Failure{"“" + address.section + "/" + address.name + "” cannot be the name of a page"};
}

Status<> MakeFolder(const fs::path& folder) {
  std::error_code problem;
  fs::create_directories(folder, problem);
  if (problem) return Failure{folder.string() + ": " + problem.message()};
  return Done();
}

/// The entries of a folder that are neither hidden nor links, in no order; none when it cannot be read.
std::vector<fs::directory_entry> PlainEntries(const fs::path& folder) {
  std::vector<fs::directory_entry> entries;
  std::error_code problem;
  for (fs::directory_iterator i(folder, problem), end; !problem && i != end; i.increment(problem)) {
    if (i->is_symlink() || !IsSafeName(i->path().filename().string())) continue;
    entries.push_back(*i);
  }
  return entries;
}

}  // namespace

PageStore::PageStore(fs::path folder, std::vector<BuiltInPage> builtIn)
    : m_folder(std::move(folder)), m_builtIn(std::move(builtIn)) {}

Result<PageStore> PageStore::Open(fs::path folder, std::vector<BuiltInPage> builtIn) {
  if (Status<> made = MakeFolder(folder); !made.ok()) return Failure{made.error()};
  PageStore store(std::move(folder), std::move(builtIn));
  if (store.Pages().empty()) {
    if (Status<> reset = store.Reset(); !reset.ok()) return Failure{reset.error()};
  }
  return store;
}

fs::path PageStore::FileOf(const PageAddress& address) const {
  return m_folder / address.section / (address.name + std::string(kExtension));
}

std::vector<PageEntry> PageStore::Pages() const {
  std::vector<PageEntry> pages;
  for (const fs::directory_entry& section : PlainEntries(m_folder)) {
    std::error_code ignored;
    if (!section.is_directory(ignored)) continue;
    for (const fs::directory_entry& file : PlainEntries(section.path())) {
      if (file.path().extension() != kExtension) continue;
      const PageAddress address{section.path().filename().string(), file.path().stem().string()};
      const Result<Page> page = Load(address);
      if (page.ok()) pages.push_back({address, page->id, page->title, page->order});
    }
  }
  std::map<std::string, int> firstOrder;
  for (const PageEntry& page : pages) {
    const auto [place, isNew] = firstOrder.try_emplace(page.address.section, page.order);
    if (!isNew) place->second = std::min(place->second, page.order);
  }
  const auto key = [&](const PageEntry& page) {
    return std::tie(firstOrder.at(page.address.section), page.address.section, page.order, page.title);
  };
  std::sort(pages.begin(), pages.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
  return pages;
}

Result<Page> PageStore::Load(const PageAddress& address) const {
  if (!IsSafe(address)) return BadName(address);
  const fs::path file = FileOf(address);
  std::error_code ignored;
  if (fs::is_symlink(file, ignored)) return BadName(address);
  Result<std::string> text = ReadFile(file, kLargestPage);
  if (!text.ok()) return Failure{text.error()};
  Result<Page> page = ParsePageFile(*text);
  if (page.ok() && page->id.empty()) page->id = GuidOf({"page", address.section, address.name});
  return page;
}

Result<PageAddress> PageStore::Find(std::string_view id, const PageAddress& guess) const {
  const Result<Page> guessed = Load(guess);
  if (guessed.ok() && guessed->id == id) return guess;
  for (const PageEntry& entry : Pages()) {
    if (entry.id == id) return entry.address;
  }
  return Failure{"there is no page " + std::string(id)};
}

Result<PageAddress> PageStore::Save(const PageAddress& address, const Page& page) {
  if (!IsSafe(address)) return BadName(address);
  PageAddress target = address;
  const bool renamed = FileNameForTitle(page.title) != address.name;
  if (renamed) {
    // "Table 2" is already the name of a second page called "Table": numbers do not count as a change.
    const std::string wanted = FileNameForTitle(page.title);
    const bool numbered =
        address.name.starts_with(wanted + " ") &&
        address.name.find_first_not_of("0123456789", wanted.size() + 1) == std::string::npos;
    if (!numbered) target.name = FreeName(address.section, page.title);
  }
  if (Status<> made = MakeFolder(m_folder / target.section); !made.ok()) return Failure{made.error()};
  Status<> written = WriteFileAtomically(FileOf(target), PageFileText(page));
  if (!written.ok()) return Failure{written.error()};
  std::error_code ignored;  // an old file that stays is a second copy, not a loss
  if (!(target == address)) fs::remove(FileOf(address), ignored);
  return target;
}

std::string PageStore::FreeName(const std::string& section, const std::string& title) const {
  const std::string wanted = FileNameForTitle(title);
  std::string name = wanted;
  for (int number = 2; fs::exists(fs::symlink_status(FileOf({section, name}))); ++number) {
    name = wanted + " " + std::to_string(number);
  }
  return name;
}

Result<PageAddress> PageStore::Create(const std::string& section, const std::string& title) {
  if (!IsSafeName(section)) return BadName({section, title});
  int order = 0;
  for (const PageEntry& page : Pages()) {
    if (page.address.section == section) order = std::max(order, page.order);
  }
  const PageAddress address{section, FreeName(section, title)};
  return Save(address, Page{NewPageId(), title, "<p><br></p>", order + 1});
}

Status<> PageStore::Delete(const PageAddress& address) {
  if (!IsSafe(address)) return BadName(address);
  std::error_code problem;
  if (!fs::remove(FileOf(address), problem) || problem) {
    return Failure{address.name + ": " + (problem ? problem.message() : "there is no such page")};
  }
  fs::remove(m_folder / address.section, problem);  // only goes when it is empty
  return Done();
}

Status<> PageStore::Reset() {
  const std::vector<PageEntry> pages = Pages();
  for (const BuiltInPage& builtIn : m_builtIn) {
    PageAddress address{builtIn.section, FileNameForTitle(builtIn.page.title)};
    const auto known = std::find_if(pages.begin(), pages.end(),
                                    [&](const PageEntry& page) { return page.id == builtIn.page.id; });
    if (known != pages.end()) address = known->address;
    if (Result<PageAddress> saved = Save(address, builtIn.page); !saved.ok()) return Failure{saved.error()};
  }
  return Done();
}

}  // namespace quill::practice
