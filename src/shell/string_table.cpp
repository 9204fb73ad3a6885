#include "shell/string_table.h"

#include <nlohmann/json.hpp>

#include "shell/embedded_strings.h"

namespace quill::shell {

StringTable::StringTable(std::string_view language) {
  for (const std::string_view wanted : {std::string_view("en"), language}) {
    for (int i = 0; i < kEmbeddedStringsCount; ++i) {
      if (kEmbeddedStrings[i].language == wanted) Load(kEmbeddedStrings[i].json);
    }
  }
}

void StringTable::Load(std::string_view json) {
  const nlohmann::json texts = nlohmann::json::parse(json, nullptr, false);
  for (const auto& [key, text] : texts.items()) m_texts.insert_or_assign(key, text.get<std::string>());
}

bool StringTable::Has(std::string_view key) const {
  return m_texts.find(key) != m_texts.end();
}

std::string_view StringTable::Text(std::string_view key) const {
  const auto found = m_texts.find(key);
  return found == m_texts.end() ? key : std::string_view(found->second);
}

std::string StringTable::Format(std::string_view key, const std::vector<std::string>& arguments) const {
  std::string_view format = Text(key);
  std::string result;
  while (!format.empty()) {
    const std::size_t open = format.find('{');
    result.append(format.substr(0, open));
    if (open == std::string_view::npos) break;
    format.remove_prefix(open);
    const bool isNumber = format.size() >= 3 && format[1] >= '0' && format[1] <= '9' && format[2] == '}';
    if (!isNumber) {
      result += format.front();
      format.remove_prefix(1);
      continue;
    }
    const std::size_t index = static_cast<std::size_t>(format[1] - '0');
    if (index < arguments.size()) result += arguments[index];
    format.remove_prefix(3);
  }
  return result;
}

}  // namespace quill::shell
