#include "shell/image_sources.h"

#include <fmt/format.h>

#include <array>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "base/atomic_file.h"
#include "content/base64.h"
#include "content/unicode_text.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
constexpr std::string_view kFileScheme = "file:///";
constexpr std::uintmax_t kLargestPicture = 256u << 20;

/// True for bytes that begin as the common picture formats do.
bool LooksLikePicture(std::string_view bytes) {
  using namespace std::string_view_literals;
  static constexpr std::array kBeginnings = {
      "\x89PNG"sv,    "\xFF\xD8\xFF"sv,     "GIF8"sv, "BM"sv,   "II*\0"sv, "MM\0*"sv,
      "\x01\0\0\0"sv, "\xD7\xCD\xC6\x9A"sv, "<svg"sv, "<?xml"sv};
  for (const std::string_view beginning : kBeginnings) {
    if (bytes.starts_with(beginning)) return true;
  }
  return bytes.starts_with("RIFF") && bytes.substr(0, 12).ends_with("WEBP");
}

/// The `img` elements below a node whose source is a local file, in document order.
std::vector<pugi::xml_attribute> LocalSources(pugi::xml_node element) {
  struct Walker final : pugi::xml_tree_walker {
    std::vector<pugi::xml_attribute> found;
    bool for_each(pugi::xml_node& node) override {
      if (node.type() != pugi::node_element || std::string_view(node.name()) != "img") return true;
      const pugi::xml_attribute source = node.attribute("src");
      if (std::string_view(source.value()).starts_with(kFileScheme)) found.push_back(source);
      return true;
    }
  } walker;
  element.traverse(walker);
  return walker.found;
}

/// True when the element has an `img` anywhere below it.
bool HasImages(pugi::xml_node element) {
  return !element.find_node([](pugi::xml_node node) { return std::string_view(node.name()) == "img"; })
              .empty();
}

/// The path behind a "file:///" source, from the root folder.
fs::path SourcePath(std::string_view source) {
  return fs::path("/") / content::PercentUnescape(source.substr(kFileScheme.size()));
}

/// The picture's bytes; nothing, with the problem told, when it cannot be read or is no picture.
std::optional<std::string> ReadPicture(const fs::path& file, const ImageProblem& problem) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) {
    problem(fmt::format("{}: not a file", file.string()));
    return std::nullopt;
  }
  Result<std::string> bytes = ReadFile(file, kLargestPicture);
  if (!bytes.ok()) {
    problem(bytes.error());
    return std::nullopt;
  }
  if (!LooksLikePicture(*bytes)) {
    problem(fmt::format("{}: not a picture", file.string()));
    return std::nullopt;
  }
  return std::move(*bytes);
}

bool WritePicture(const fs::path& file, std::string_view bytes, const ImageProblem& problem) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) problem(fmt::format("{}: could not be written", file.string()));
  return static_cast<bool>(out);
}

}  // namespace

void SaveAsHtml_SaveImage(pugi::xml_node element, const fs::path& page, const ImageProblem& problem) {
  if (!HasImages(element)) return;
  const std::string folderName = page.stem().string() + "_files";
  const fs::path folder = page.parent_path() / folderName;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) problem(fmt::format("{}: {}", folder.string(), error.message()));
  for (pugi::xml_attribute source : LocalSources(element)) {
    const fs::path file = SourcePath(source.value());
    const std::optional<std::string> bytes = ReadPicture(file, problem);
    if (!bytes || !WritePicture(folder / file.filename(), *bytes, problem)) continue;
    source.set_value(fmt::format("{}/{}", folderName, file.filename().string()).c_str());
  }
}

void ConverImages2Base64(pugi::xml_node element, const ImageProblem& problem) {
  for (pugi::xml_attribute source : LocalSources(element)) {
    const fs::path file = SourcePath(source.value());
    const std::optional<std::string> bytes = ReadPicture(file, problem);
    if (!bytes) continue;
    std::string extension = file.extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    source.set_value(
        fmt::format("data:image/{};base64,{}", extension, content::EncodeBase64(*bytes)).c_str());
  }
}

}  // namespace quill::shell
