#include "shell/string_table.h"

#include <nlohmann/json.hpp>

#include "shell/embedded_strings.h"

namespace quill::shell {

StringTable::StringTable(std::string_view language) : m_english(&Load("en")), m_current(m_english) {
  UseLanguage(language);
}

const StringTable::Texts& StringTable::Load(std::string_view language) {
  const auto known = m_loaded.find(language);
  if (known != m_loaded.end()) return known->second;
  Texts& texts = m_loaded[std::string(language)];
  for (int i = 0; i < kEmbeddedStringsCount; ++i) {
    if (kEmbeddedStrings[i].language != language) continue;
    const nlohmann::json json = nlohmann::json::parse(kEmbeddedStrings[i].json, nullptr, false);
    for (const auto& [key, text] : json.items()) texts.insert_or_assign(key, text.get<std::string>());
  }
  return texts;
}

void StringTable::UseLanguage(std::string_view language) {
  const std::lock_guard lock(m_mutex);
  m_current = &Load(language);
}

const std::string* StringTable::Find(std::string_view key) const {
  const Texts* current = m_current;
  for (const Texts* texts : {current, m_english}) {
    const auto found = texts->find(key);
    if (found != texts->end()) return &found->second;
  }
  return nullptr;
}

bool StringTable::Has(std::string_view key) const {
  return Find(key) != nullptr;
}

std::string_view StringTable::Text(std::string_view key) const {
  const std::string* text = Find(key);
  return text != nullptr ? std::string_view(*text) : key;
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
