#include "ui/windows/notebooks/readable_facts.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

enum class Kind { Text, Time, YesNo };

struct KnownFact {
  std::string_view name;
  std::string_view titleKey;
  Kind kind = Kind::Text;
};

/// In the order in which they are shown. The service has two names for some, for its two lists.
constexpr KnownFact kKnown[] = {
    {"displayName", "strFactName"},
    {"isDefault", "strFactDefault", Kind::YesNo},
    {"isShared", "strFactShared", Kind::YesNo},
    {"userRole", "strFactRole"},
    {"createdDateTime", "strFactCreated", Kind::Time},
    {"createdTime", "strFactCreated", Kind::Time},
    {"createdBy.user.displayName", "strFactCreatedBy"},
    {"lastModifiedDateTime", "strFactChanged", Kind::Time},
    {"lastModifiedTime", "strFactChanged", Kind::Time},
    {"lastModifiedBy.user.displayName", "strFactChangedBy"},
    {"lastAccessedTime", "strFactOpened", Kind::Time},
    {"sourceService", "strFactStored"},
    {"links.oneNoteClientUrl.href", "strFactClientLink"},
    {"links.oneNoteWebUrl.href", "strFactWebLink"},
    {"sectionsUrl", "strFactSections"},
    {"sectionGroupsUrl", "strFactSectionGroups"},
    {"self", "strFactAddress"},
    {"id", "strFactId"},
};

const KnownFact* Find(std::string_view name) {
  const auto* found = std::ranges::find(kKnown, name, &KnownFact::name);
  return found == std::end(kKnown) ? nullptr : found;
}

/// A time that cannot be read stays as it came.
QString ReadableTime(const QString& value) {
  const QDateTime time = QDateTime::fromString(value, Qt::ISODateWithMs);
  if (!time.isValid()) return value;
  const QDateTime local = time.toLocalTime();
  const QLocale locale;
  return locale.toString(local.date(), QLocale::LongFormat) + QStringLiteral(", ") +
         locale.toString(local.time(), QLocale::ShortFormat);
}

QString ReadableValue(const shell::StringTable& strings, Kind kind, const QString& value) {
  switch (kind) {
    case Kind::Time:
      return ReadableTime(value);
    case Kind::YesNo:
      if (value == QLatin1String("true")) return ToQt(strings.Text("strFactYes"));
      if (value == QLatin1String("false")) return ToQt(strings.Text("strFactNo"));
      return value;
    case Kind::Text:
      break;
  }
  return value;
}

bool IsLink(const QString& value) {
  const auto begins = [&](const char* scheme) {
    return value.startsWith(QLatin1String(scheme), Qt::CaseInsensitive);
  };
  return begins("https://") || begins("http://") || begins("onenote:");
}

}  // namespace

std::vector<ReadableFact> ReadableFacts(const shell::StringTable& strings,
                                        const std::vector<online::NotebookFact>& facts) {
  // An unknown one has the end of the table for its place: they follow in their own order.
  std::vector<std::pair<const KnownFact*, const online::NotebookFact*>> ordered;
  for (const online::NotebookFact& fact : facts) {
    const KnownFact* known = Find(fact.name);
    ordered.emplace_back(known != nullptr ? known : std::end(kKnown), &fact);
  }
  std::ranges::stable_sort(ordered, {}, [](const auto& fact) { return fact.first; });
  std::vector<ReadableFact> readable;
  for (const auto& [known, fact] : ordered) {
    const bool isKnown = known != std::end(kKnown);
    const QString value = ToQt(fact->value);
    readable.push_back({isKnown ? ToQt(strings.Text(known->titleKey)) : ToQt(fact->name),
                        isKnown ? ReadableValue(strings, known->kind, value) : value, IsLink(value)});
  }
  return readable;
}

}  // namespace quill::ui
