#include "files/links/variable_link.h"

#include <algorithm>
#include <optional>

#include "content/entities.h"
#include "content/unicode_text.h"
#include "files/onedrive/onedrive_app.h"
#include "files/onedrive/onedrive_settings.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

bool IsThere(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

/// What follows the root in a path; nothing when the path does not lie under it.
std::optional<std::string_view> Below(std::string_view path, std::string_view root) {
  if (!path.starts_with(root)) return std::nullopt;
  const std::string_view rest = path.substr(root.size());
  if (!rest.empty() && rest.front() != '/') return std::nullopt;
  return rest;
}

std::string Replaced(std::string_view text, std::string_view variable, std::string_view root) {
  std::string result;
  for (std::size_t at = text.find(variable); at != std::string_view::npos; at = text.find(variable)) {
    result.append(text.substr(0, at)).append(root);
    text.remove_prefix(at + variable.size());
  }
  return result.append(text);
}

std::string_view VariableOf(std::string_view variablePath) {
  for (const std::string_view variable : {kOneDrive, kOneDriveForBusiness, kUserProfile}) {
    if (variablePath.starts_with(variable)) return variable;
  }
  return {};
}

/// What is left of a text on its way through an address: entities and percent escapes are undone.
std::string Decoded(std::string_view text) {
  return content::PercentUnescape(content::DecodeHtmlEntities(text));
}

/// The roots that a variable stands for, in the order in which they are tried.
std::vector<std::string> RootsOf(std::string_view variable, const VariableRoots& roots) {
  if (variable == kOneDriveForBusiness) return roots.business;
  const std::string& root = variable == kOneDrive ? roots.personal : roots.home;
  return root.empty() ? std::vector<std::string>{} : std::vector<std::string>{root};
}

/// Whether what follows the variable stays below its root: links come from pages of other people too.
bool StaysBelow(std::string_view rest) {
  if (!rest.empty() && rest.front() != '/') return false;
  if (rest.find('\0') != std::string_view::npos) return false;
  return std::ranges::none_of(fs::path(rest), [](const fs::path& part) { return part == ".."; });
}

VariableTarget LookAt(std::string_view path, const VariableRoots& roots) {
  const std::string_view variable = VariableOf(path);
  if (variable.empty()) return {};
  const std::vector<std::string> here = RootsOf(variable, roots);
  if (here.empty()) return {LinkState::NoRoot, {}};
  if (!StaysBelow(path.substr(variable.size()))) return {LinkState::Refused, {}};
  const std::string full = ConvertQVarPathToFullName(path, roots);
  if (!full.empty() && IsThere(full)) return {LinkState::Found, full};
  return {LinkState::Missing, Replaced(path, variable, here.front())};
}

}  // namespace

VariableRoots FindVariableRoots(const fs::path& userLibrary, const fs::path& home) {
  VariableRoots roots;
  roots.home = home.string();
  while (roots.home.size() > 1 && roots.home.back() == '/') roots.home.pop_back();
  const std::optional<std::vector<MAOneDriveFolder>> folders =
      MOneDriveApp(userLibrary).GetOneDrivesUserFolders();
  roots.hasOneDrive = folders.has_value();
  for (const MAOneDriveFolder& folder : folders.value_or(std::vector<MAOneDriveFolder>())) {
    if (IsBusinessAccount(folder.OneDriveName)) {
      roots.business.push_back(folder.OneDriveUserFolder);
    } else {
      roots.personal = folder.OneDriveUserFolder;
    }
  }
  return roots;
}

std::string ConvertFullNameToQVarPath(std::string_view path, const VariableRoots& roots) {
  for (const std::string_view variable : {kOneDrive, kOneDriveForBusiness, kUserProfile}) {
    for (const std::string& root : RootsOf(variable, roots)) {
      if (const auto rest = Below(path, root)) return std::string(variable).append(*rest);
    }
  }
  return std::string(path);
}

std::string EscapeWhereMisread(std::string_view variablePath) {
  const std::string_view variable = VariableOf(variablePath);
  const std::string_view rest = variablePath.substr(variable.size());
  const std::string_view misread = Decoded(rest) == rest ? "'" : "'%&";
  std::string result(variable);
  for (const char c : rest) {
    if (misread.find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += c == '\'' ? "%27" : c == '%' ? "%25" : "%26";
    }
  }
  return result;
}

std::string ConvertQVarPathToFullName(std::string_view variablePath, const VariableRoots& roots) {
  const std::string_view variable = VariableOf(variablePath);
  if (variable.empty()) return {};
  for (const std::string& root : RootsOf(variable, roots)) {
    std::string path = Replaced(variablePath, variable, root);
    if (variable != kOneDriveForBusiness || IsThere(path)) return path;
  }
  return {};
}

VariableTarget FindVariableTarget(std::string_view url, const VariableRoots& roots) {
  if (url.starts_with(kVariableScheme)) url.remove_prefix(kVariableScheme.size());
  const std::string path = Decoded(url);
  VariableTarget target = LookAt(path, roots);
  // A program that has escaped the variable's own "%" has done so with the escapes behind it, too.
  if (target.state == LinkState::Missing && VariableOf(url).empty()) {
    VariableTarget inner = LookAt(Decoded(path), roots);
    if (inner.state == LinkState::Found) return inner;
  }
  return target;
}

}  // namespace quill::files
