#include <QDialog>
#include <QImage>
#include <QListView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <memory>

#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/tour.h"
#include "ui/windows/equation/equation_preview.h"
#include "ui/windows/equation/formula_field.h"
#include "ui/windows/image_table/win_image_table.h"
#include "ui/windows/text/exact_text_edit.h"

namespace quill::ui {
namespace {

constexpr int kBlueHeader = 15;  // the row of the table style

const std::function<bool()> kAtOnce = [] { return true; };

void ChooseStyle(QDialog& dialog, int row) {
  auto* styles = dialog.findChild<QListView*>();
  if (styles != nullptr) styles->setCurrentIndex(styles->model()->index(row, 0));
}

/// A small landscape in a file of its own.
std::string PaintLandscape(const QString& file, const QColor& sky, const QColor& hill) {
  QImage picture(360, 160, QImage::Format_RGB32);
  picture.fill(sky);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xff, 0xe0, 0x82));
  painter.drawEllipse(270, 24, 44, 44);
  painter.setBrush(hill);
  painter.drawEllipse(-60, 90, 300, 180);
  painter.setBrush(hill.darker(120));
  painter.drawEllipse(140, 108, 300, 160);
  painter.end();
  picture.save(file);
  return FromQt(file);
}

std::function<bool()> TypeCode(QDialog& dialog) {
  auto* code = dialog.findChild<ExactTextEdit*>();
  auto* preview = dialog.findChild<PagePreview*>();
  if (code == nullptr || preview == nullptr) return kAtOnce;
  code->setPlainText(
      "#import <Foundation/Foundation.h>\n\n// Greets whoever is there.\nint main(void) {\n"
      "    NSString *name = @\"world\";\n    NSLog(@\"Hello, %@!\", name);\n    return 0;\n}\n");
  return [preview] { return preview->toPlainText().contains(QLatin1String("NSLog")); };
}

std::function<bool()> TypeFormula(QDialog& dialog) {
  auto* field = dialog.findChild<FormulaField*>();
  auto* preview = dialog.findChild<EquationPreview*>();
  if (field == nullptr || preview == nullptr) return kAtOnce;
  for (QRadioButton* form : dialog.findChildren<QRadioButton*>())
    form->setChecked(true);  // the last: a picture
  auto isShown = std::make_shared<bool>(false);
  QObject::connect(preview, &EquationPreview::Told, preview, [isShown] { *isShown = true; });
  field->Begin("$$x_{1,2} = \\frac{-b \\pm \\sqrt{b^2 - 4ac}}{2a}$$");
  return [isShown] { return *isShown; };
}

std::function<bool()> AwaitPhonetic(QDialog& dialog) {
  auto* phonetic = dialog.findChild<QPlainTextEdit*>();
  if (phonetic == nullptr) return kAtOnce;
  return [phonetic] { return !phonetic->toPlainText().isEmpty(); };
}

}  // namespace

void Tour::Plan() {
  Tell("Quill Menu: a tour with the practice notebook");
  PlanFirstSteps();
  PlanTables();
  PlanCalendarAndPictures();
  PlanEngines();
  Tell("That was the tour. Start ./dev run on a machine with a display to try it yourself.");
}

void Tour::PlanFirstSteps() {
  OpenNotebook();
  OpenPage("Welcome");
  TakePicture("01-notebook");
  Tell("1. Select some words on the page, open the tray menu, choose UPPER CASE.");
  Select("The quick brown fox jumps over the lazy dog.");
  ShowSelection("before");
  TakePicture("02-selected");
  ChooseFromMenu("MenuItemUpperCaseClick", "03-menu");
  Expect("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG.");
  Select("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG.");
  ShowSelection("after");
  TakePicture("04-upper-case");
  Tell("2. The date at the caret, and a tag in front of the page's title.");
  CaretToEnd();
  ChooseFromMenu("MenuItemInsertDateClick", "");
  ChooseFromMenu("MenuItemPageTitleTagClick", "");
  TakePicture("05-date-and-tag");
}

void Tour::PlanTables() {
  Tell("3. A whole table, each word capitalised: borders and widths stay.");
  OpenPage("Table");
  SelectBlock("table");
  ChooseFromMenu("MenuItemCapitalizeEachWordClick", "");
  TakePicture("06-table");
  Tell("4. The same table in another style, chosen by sight.");
  SelectBlock("table");
  AnswerDialog("MenuItemTableStyle", "07-table-style", [](QDialog& dialog) {
    ChooseStyle(dialog, kBlueHeader);
    return kAtOnce;
  });
  TakePicture("08-restyled");
}

void Tour::PlanCalendarAndPictures() {
  Tell("5. A calendar with room to write in.");
  OpenPage("Lists");
  Select("A list inside a list keeps its shape when a tool changes its text.");
  ChooseFromMenu("MenuItemInsertCalendarThisMonth", "");
  TakePicture("09-calendar");
  Tell("6. Pictures from files, as a table with their names.");
  OpenPage("Headings");
  CaretToEnd();
  AnswerDialog("MenuItemImageTableClick", "10-image-table", [this](QDialog& dialog) {
    const auto file = [this](const char* name) { return m_pictures.filePath(QLatin1String(name)); };
    auto* window = dynamic_cast<MWinImageTable*>(&dialog);
    if (window == nullptr) return kAtOnce;
    window->Add({PaintLandscape(file("Morning.png"), {0xbb, 0xde, 0xfb}, {0x66, 0xbb, 0x6a}),
                 PaintLandscape(file("Evening.png"), {0xff, 0xcc, 0xbc}, {0x8d, 0x6e, 0x63})});
    return kAtOnce;
  });
  TakePicture("11-pictures");
}

void Tour::PlanEngines() {
  Tell("7. Source code in colours.");
  OpenPage("Source code");
  CaretToEnd();
  AnswerDialog("MenuItemSyntaxHighlightClick", "12-source-code", TypeCode);
  TakePicture("13-coloured");
  Tell("8. An equation from LaTeX, as a picture.");
  OpenPage("Asian text");
  CaretToEnd();
  AnswerDialog("MenuItemLaTeXEquation", "14-equation", TypeFormula);
  TakePicture("15-equation-on-the-page");
  Tell("9. How a word is spoken.");
  OpenPage("Picture");
  Select("Hills");
  AnswerDialog("MenuItemPhoneticsClick", "16-phonetics", AwaitPhonetic);
  TakePicture("17-phonetics-on-the-page");
}

}  // namespace quill::ui
