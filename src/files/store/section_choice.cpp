#include "files/store/section_choice.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "content/text_between.h"

namespace quill::files {
namespace {

using Moment = std::chrono::system_clock::time_point;

constexpr std::string_view kExtension = ".one";

/// The entries whose names begin with a section's name. No entry is in two groups: the name of a section goes
/// up to the first ".one", so no section's name begins with that of another.
struct Group {
  std::vector<std::size_t> members;
  bool hasVersion = false;
};

bool IsVersion(const FolderEntry& entry) {
  return !entry.isFolder && entry.name.find(").one") != std::string::npos;
}

/// The first of the newest members, if that is a version.
std::optional<std::size_t> Newest(const Group& group, const std::filesystem::path& folder,
                                  const std::vector<FolderEntry>& entries, const platform::FileDates& dates) {
  if (group.members.size() == 1) return group.members.front();
  std::vector<Moment> created;
  for (const std::size_t member : group.members)
    created.push_back(dates.Created(folder / entries[member].name).value_or(Moment::min()));
  const Moment newest = *std::ranges::max_element(created);
  for (std::size_t i = 0; i < created.size(); ++i) {
    if (created[i] == newest && IsVersion(entries[group.members[i]])) return group.members[i];
  }
  return std::nullopt;
}

}  // namespace

std::vector<ChosenSection> ChooseSections(const std::filesystem::path& folder,
                                          const std::vector<FolderEntry>& entries,
                                          const platform::FileDates& dates) {
  std::unordered_map<std::string_view, Group> groups;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::string_view base = content::TextBetween(entries[i].name, "", kExtension);
    if (base.empty()) continue;
    Group& group = groups[base];
    group.members.push_back(i);
    group.hasVersion = group.hasVersion || IsVersion(entries[i]);
  }
  std::vector<ChosenSection> chosen;
  for (const auto& [base, group] : groups) {
    if (!group.hasVersion) continue;
    const auto newest = Newest(group, folder, entries, dates);
    if (newest) chosen.push_back({*newest, std::string(base).append(kExtension)});
  }
  std::ranges::sort(chosen, {}, &ChosenSection::entry);
  return chosen;
}

}  // namespace quill::files
