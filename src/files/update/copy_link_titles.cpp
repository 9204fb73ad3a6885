#include "files/update/copy_link_titles.h"

#include <algorithm>

namespace quill::files {
namespace {

struct Title {
  std::string_view language;  ///< what the language's name begins with
  std::string_view text;
};

/// The first that fits counts. The first row is also for everybody else.
constexpr Title kTitles[] = {
    {"en", "Copy Link to Page"},           {"da", "Kopiér link for side"},
    {"de", "Link zu Seite kopieren"},      {"es", "Copiar vínculo a la página"},
    {"fr", "Copier le lien vers la page"}, {"it", "Copia collegamento della pagina"},
    {"nb", "Kopier kobling til side"},     {"nl", "Koppeling naar pagina kopiëren"},
    {"pl", "Kopiuj link do strony"},       {"pt-PT", "Copiar Ligação Para a Página"},
    {"sv", "Kopiera länk till sida"},      {"ru", "Копировать ссылку на страницу"},
    {"ja", "ページへのリンクをコピー"},    {"ko", "페이지에 대한 링크 복사"},
    {"zh-Hans", "复制指向页面的链接"},     {"zh-Hant", "複製頁面連結"},
};

constexpr std::string_view kTraditionalChinese[] = {"TW", "HK", "MO"};

}  // namespace

std::string LanguageWithScript(std::string_view name) {
  std::string tag(name.substr(0, name.find_first_of(".@")));
  std::ranges::replace(tag, '_', '-');
  if (tag != "zh" && !tag.starts_with("zh-")) return tag;
  if (tag.starts_with("zh-Han")) return tag;
  const std::string region = tag.size() > 3 ? tag.substr(3) : std::string();
  const bool isTraditional = std::ranges::find(kTraditionalChinese, region) != std::end(kTraditionalChinese);
  return std::string(isTraditional ? "zh-Hant" : "zh-Hans") + (region.empty() ? "" : "-" + region);
}

std::string_view CopyLinkTitle(std::string_view language) {
  const auto* found = std::ranges::find_if(
      kTitles, [language](const Title& title) { return language.starts_with(title.language); });
  return found != std::end(kTitles) ? found->text : kTitles[0].text;
}

std::string_view CopyLinkTitle(const std::vector<std::string>& languages) {
  return CopyLinkTitle(languages.empty() ? std::string() : LanguageWithScript(languages.front()));
}

}  // namespace quill::files
