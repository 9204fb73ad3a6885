#include "ui/windows/variable_link/link_preview.h"

#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include "files/links/risky_file.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

struct Meaning {
  std::string_view key;
  std::string path;
};

std::string_view KeyFor(const files::VariableTarget& target) {
  switch (target.state) {
    case files::LinkState::Found:
      if (files::IsRiskyFile(target.path)) return "strVarLinkAsks";
      return std::filesystem::is_directory(target.path) ? "strVarLinkFolder" : "strVarLinkFile";
    case files::LinkState::Missing:
      return "strVarLinkMissing";
    case files::LinkState::NoVariable:
      return "strVarLinkNoVariable";
    case files::LinkState::NoRoot:
      return "strVarLinkNoRoot";
    case files::LinkState::Refused:
      break;
  }
  return "strVarLinkRefused";
}

Meaning LookAt(const std::string& link, const files::VariableRoots& roots) {
  // The link's address stands in apostrophes.
  if (link.find('\'') != std::string::npos) return {"strVarLinkApostrophe", {}};
  files::VariableTarget target = files::FindVariableTarget(link, roots);
  const std::string_view key = KeyFor(target);
  return {key, std::move(target.path)};
}

}  // namespace

LinkPreview::LinkPreview(const shell::StringTable& strings, files::VariableRoots roots)
    : m_strings(strings), m_roots(std::move(roots)), m_words(new QLabel), m_path(new ElidedLabel) {
  m_words->setTextFormat(Qt::PlainText);
  m_words->setWordWrap(true);
  m_words->setAlignment(Qt::AlignLeading | Qt::AlignTop);
  m_path->setLayoutDirection(Qt::LeftToRight);
  m_path->setObjectName(QStringLiteral("path"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(fontMetrics().lineSpacing() / 4);
  column->addWidget(m_words);
  column->addWidget(m_path);
  column->addStretch(1);
  // Enough for the longest words, so that the window does not jump while one types.
  setMinimumHeight(fontMetrics().lineSpacing() * 3 + column->spacing());
}

void LinkPreview::Show(const std::string& link) {
  if (link.empty()) {
    m_look.Cancel();
    return Tell("strVarLinkNothing");
  }
  m_look.Run([link, roots = m_roots](const LatestJob::IsCancelled&) { return LookAt(link, roots); },
             [this](const Meaning& meaning) { Tell(meaning.key, meaning.path); });
}

QString LinkPreview::words() const {
  return m_words->text();
}

void LinkPreview::Tell(std::string_view key, const std::string& path) {
  m_words->setText(ToQt(m_strings.Text(key)));
  m_path->SetText(ToQt(path));
  emit Changed();
}

}  // namespace quill::ui
