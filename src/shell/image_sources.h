#pragma once
#include <filesystem>
#include <functional>
#include <string_view>

#include <pugixml.hpp>

namespace quill::shell {

/// Told about a picture that could not be read or copied; the document keeps its source then.
using ImageProblem = std::function<void(std::string_view)>;

/// Copies the file behind every `img` with a "file:///" source below `element` into the folder
/// "<name of `page` without extension>_files" beside `page`, and sets the source to the relative path.
/// The folder is made when there is an `img`. Only regular files of at most 256 MiB that begin like a
/// picture are copied: a page from elsewhere must not carry other files away.
void SaveAsHtml_SaveImage(pugi::xml_node element, const std::filesystem::path& page,
                          const ImageProblem& problem);

/// Puts the files behind "file:///" sources below `element` into the sources as
/// "data:image/<extension>;base64,…". What is not a readable picture keeps its source.
void ConverImages2Base64(pugi::xml_node element, const ImageProblem& problem);

}  // namespace quill::shell
