#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "tools/equation_palette.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/equation/construct_grid.h"
#include "ui/windows/equation/equation_preview.h"
#include "ui/windows/equation/formula_field.h"
#include "ui/windows/equation/menu_button.h"
#include "ui/windows/equation/win_latex.h"

namespace quill::ui {
namespace {

/// A formula as one line of a menu, from left to right in every language.
QString MenuLine(const std::string& formula, const QFontMetrics& metrics) {
  const int width = metrics.averageCharWidth() * 60;
  QString line = metrics.elidedText(ToQt(formula).simplified(), Qt::ElideRight, width);
  line.replace(u'&', QLatin1String("&&"));
  return QChar(0x2066) + line + QChar(0x2069);
}

}  // namespace

QWidget* MWinLaTeX::NewFormulaPart(const std::vector<std::string>& recent) {
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  auto* label = new QLabel(Text("strEquationFormula"));
  label->setBuddy(m_field);
  m_field->setAccessibleName(label->text());
  auto* head = new QHBoxLayout;
  head->addWidget(label, 1);
  head->addWidget(m_delimit);
  head->addWidget(NewRecentButton(recent));
  column->addLayout(head);
  column->addWidget(m_field, 2);
  column->addWidget(m_note);
  column->addWidget(new QLabel(Text("strTablePreview")));
  column->addWidget(m_preview, 3);
  column->addWidget(NewFormRow());
  m_note->setObjectName(QStringLiteral("note"));
  m_note->setMinimumHeight(m_note->fontMetrics().lineSpacing());
  m_delimit->setAutoDefault(false);
  connect(m_delimit, &QPushButton::clicked, this, [this] {
    m_field->Begin("$$ " + m_field->Text() + " $$");
    m_field->setFocus();
  });
  return part;
}

QPushButton* MWinLaTeX::NewRecentButton(const std::vector<std::string>& recent) {
  auto* button = new MenuButton(Text("strEquationRecent"));
  for (const std::string& formula : recent) {
    const QAction* action = button->Menu().addAction(MenuLine(formula, fontMetrics()));
    connect(action, &QAction::triggered, this, [this, formula] {
      m_field->Begin(formula);
      m_field->setFocus();
    });
  }
  button->setEnabled(!recent.empty());
  return button;
}

QWidget* MWinLaTeX::NewFormRow() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins({});
  row->addWidget(new QLabel(Text("strEquationInsertAs")));
  row->addWidget(m_asEquation);
  row->addWidget(m_asPicture);
  row->addStretch(1);
  m_asEquation->setToolTip(Text("strEquationNativeHelp"));
  m_asPicture->setToolTip(Text("strEquationPictureHelp"));
  for (QRadioButton* button : {m_asEquation, m_asPicture})
    button->setAccessibleDescription(button->toolTip());
  return line;
}

QWidget* MWinLaTeX::NewConstructPart() {
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  auto* groups = new QComboBox;
  auto* grid = new ConstructGrid;
  auto* label = new QLabel(Text("strEquationSymbols"));
  label->setBuddy(groups);
  groups->setAccessibleName(label->text());
  for (const tools::EquationGroup& group : tools::EquationPalette()) groups->addItem(Text(group.titleKey));
  const auto showGroup = [groups, grid](int index) {
    grid->ShowGroup(tools::EquationPalette()[static_cast<std::size_t>(index)]);
    grid->setAccessibleName(groups->itemText(index));
  };
  connect(groups, &QComboBox::currentIndexChanged, this, showGroup);
  connect(grid, &ConstructGrid::Chosen, this, [this](const tools::EquationConstruct& construct) {
    m_field->Insert(construct);
    m_field->setFocus();
  });
  showGroup(0);
  auto* head = new QHBoxLayout;
  head->addWidget(label);
  head->addWidget(groups, 1);
  column->addLayout(head);
  column->addWidget(grid, 1);
  return part;
}

}  // namespace quill::ui
