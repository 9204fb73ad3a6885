#include "ui/windows/win_about.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

#include "base/version.h"
#include "ui/kit/dark.h"
#include "ui/kit/qt_text.h"
#include "ui/quill_icon.h"
#include "ui/windows/plain_text_view.h"

/// The resources of a static library are only there when somebody asks for them; not possible in a namespace.
static void LoadLegalResources() {
  Q_INIT_RESOURCE(legal);
}

namespace quill::ui {
namespace {

QString ResourceText(const QString& name) {
  LoadLegalResources();
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A line that can be selected and copied, with the mouse and the keyboard.
QLabel* NewFact(const QString& text, const QString& name) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setAccessibleName(name + QStringLiteral(": ") + text);
  return label;
}

/// A text whose lines were broken for a terminal, with one line for each paragraph: the view breaks them
/// again.
QString Flowing(const QString& text) {
  QStringList paragraphs = text.trimmed().split(QStringLiteral("\n\n"));
  for (QString& paragraph : paragraphs) paragraph.replace(u'\n', u' ');
  return paragraphs.join(QStringLiteral("\n\n"));
}

/// Single lines around the cells of a document's tables, and room in them.
void TidyTables(QTextDocument& document, const QColor& lines) {
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderBrush(lines);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setCellSpacing(0);
    format.setCellPadding(4);
    table->setFormat(format);
  }
}

}  // namespace

QString LicenseText() {
  return ResourceText(QStringLiteral(":/legal/LICENSE"));
}

QString ThirdPartyNotices() {
  return ResourceText(QStringLiteral(":/legal/THIRD-PARTY-NOTICES.md"));
}

MWinAbout::MWinAbout(const shell::StringTable& strings, AboutFacts facts)
    : ToolWindow(strings, "titleAbout"), m_facts(std::move(facts)) {
  auto* tabs = new QTabWidget;
  tabs->addTab(NewSystemPage(), Text("strAboutThisSystem"));
  tabs->addTab(NewLicensePage(), Text("strAboutLicense"));
  tabs->addTab(NewNoticesPage(), Text("strAboutNotices"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setText(Text("strClose"));
  close->setDefault(true);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(NewHead());
  column->addWidget(tabs, 1);
  column->addWidget(buttons);
  close->setFocus();
  resize(fontMetrics().averageCharWidth() * 84, fontMetrics().lineSpacing() * 28);
}

QWidget* MWinAbout::NewHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins({});
  auto* icon = new QLabel;
  const bool dark = IsDark(palette());
  const int size = fontMetrics().lineSpacing() * 4;
  icon->setPixmap(QuillIcon(dark).pixmap(QSize(size, size), devicePixelRatio()));
  auto* name = new QLabel(QString::fromLatin1(kBundleName));
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  name->setFont(large);
  auto* column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(name);
  column->addWidget(NewFact(Format("strAboutVersion", {kVersion}), QString::fromLatin1(kBundleName)));
  column->addWidget(new QLabel(m_facts.license.section(u'\n', 0, 0).trimmed()));
  column->addStretch(1);
  row->addWidget(icon);
  row->addLayout(column, 1);
  return head;
}

QWidget* MWinAbout::NewSystemPage() {
  auto* page = new QWidget;
  auto* settings = NewFact(ToQt(m_facts.settingsFile.string()), Text("strAboutSettingsFile"));
  auto* show = new QPushButton(Text("strAboutShowFolder"));
  show->setAutoDefault(false);
  connect(show, &QPushButton::clicked, this, [this] {
    if (m_facts.showFolder) m_facts.showFolder(m_facts.supportFolder);
  });
  auto* facts = new PlainTextView(SystemFacts());
  const int lines = static_cast<int>(facts->original().count(u'\n')) + 2;
  facts->setMinimumHeight(QFontMetrics(facts->font()).lineSpacing() * lines);
  facts->setAccessibleName(Text("strAboutSystem"));
  auto* copy = new QPushButton(Text("strCopyAll"));
  copy->setAutoDefault(false);
  connect(copy, &QPushButton::clicked, this, [facts] { CopyText(facts->original()); });
  auto* column = new QVBoxLayout(page);
  column->addWidget(new QLabel(Text("strAboutSettingsFile")));
  column->addWidget(settings);
  column->addWidget(show, 0, Qt::AlignLeading);
  column->addSpacing(fontMetrics().lineSpacing());
  column->addWidget(new QLabel(Text("strAboutSystem")));
  column->addWidget(facts, 1);
  column->addWidget(copy, 0, Qt::AlignLeading);
  return page;
}

QWidget* MWinAbout::NewLicensePage() {
  auto* view = new QPlainTextEdit(Flowing(m_facts.license));
  view->setReadOnly(true);
  view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  view->setTabChangesFocus(true);
  view->setAccessibleName(Text("strAboutLicense"));
  return view;
}

QWidget* MWinAbout::NewNoticesPage() {
  auto* view = new QTextBrowser;
  view->setOpenLinks(false);
  view->document()->setDocumentMargin(fontMetrics().averageCharWidth());
  view->setMarkdown(m_facts.notices);
  TidyTables(*view->document(), palette().color(QPalette::Mid));
  view->setTabChangesFocus(true);
  view->setAccessibleName(Text("strAboutNotices"));
  return view;
}

QString MWinAbout::SystemFacts() const {
  const QStringList lines{
      QStringLiteral("%1: %2").arg(QLatin1String(kBundleName), QLatin1String(kVersion)),
      QStringLiteral("Qt: %1").arg(QLatin1String(qVersion())),
      QStringLiteral("Platform: %1").arg(QGuiApplication::platformName()),
      QStringLiteral("System: %1, %2").arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture()),
      QStringLiteral("Kernel: %1 %2").arg(QSysInfo::kernelType(), QSysInfo::kernelVersion()),
  };
  return lines.join(u'\n');
}

}  // namespace quill::ui
