#include "ui/windows/syntax/suggestion_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <string>

#include "ui/kit/qt_text.h"

namespace quill::ui {

SuggestionLine::SuggestionLine(const shell::StringTable& strings)
    : m_strings(strings), m_label(new QLabel), m_use(new QPushButton(ToQt(strings.Text("strSyntaxUseIt")))) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(m_label, 1);
  row->addWidget(m_use);
  m_label->setTextFormat(Qt::PlainText);
  m_use->setObjectName(QStringLiteral("useSuggestion"));
  m_use->setAutoDefault(false);
  connect(m_use, &QPushButton::clicked, this, [this] { emit Taken(m_name); });
  hide();
}

void SuggestionLine::Suggest(std::optional<std::string_view> name) {
  if (name) {
    m_name = ToQt(*name);
    m_label->setText(ToQt(m_strings.Format("strSyntaxLooksLike", {std::string(*name)})));
    m_use->setAccessibleDescription(m_label->text());
  }
  setVisible(name.has_value());
}

}  // namespace quill::ui
