#include "ui/windows/image_table/win_image_table.h"

#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/image_table/arrangement_preview.h"
#include "ui/windows/image_table/image_list_model.h"
#include "ui/windows/image_table/image_list_view.h"
#include "ui/windows/image_table/image_row_delegate.h"
#include "ui/windows/image_table/picture_thumbnails.h"
#include "ui/windows/image_table/skipped_line.h"
#include "ui/windows/image_table/walk_line.h"

namespace quill::ui {
namespace {

constexpr QSize kFirstSize(680, 560);

tools::PictureList ExpandOnDisk(const std::vector<std::string>& paths, const tools::WalkProgress& progress) {
  return tools::ExpandPictures(paths, progress);
}

/// The side of a thumbnail in pixels of the sharpest screen.
int PixelEdge(const QWidget& window) {
  return qCeil(ImageRowDelegate::ThumbnailEdge(window.fontMetrics()) * qApp->devicePixelRatio());
}

}  // namespace

MWinImageTable::MWinImageTable(const shell::StringTable& strings, PanelMemory& panels,
                               const shell::ImageTableRequest& request, Done done, PictureWalk::Expand expand)
    : AnswerWindow(strings, "titleImageTable", std::move(done)),
      m_texts(strings),
      m_panels(panels),
      m_walk(new PictureWalk(expand ? std::move(expand) : ExpandOnDisk, this)),
      m_thumbnails(new PictureThumbnails(PixelEdge(*this), ReadPictureFacts, this)),
      m_model(new ImageListModel(strings, *m_thumbnails, this)) {
  setAcceptDrops(true);
  auto* upper = new QGridLayout;
  upper->addLayout(NewHeader(), 0, 0);
  upper->addWidget(m_view, 1, 0);
  upper->addLayout(NewButtonColumn(), 1, 1);
  upper->setColumnStretch(0, 1);
  content().addLayout(upper, 1);
  content().addWidget(new WalkLine(strings, *m_walk));
  content().addWidget(m_skipped = new SkippedLine(strings));
  content().addLayout(NewStyleRow(request.remembered));
  content().addSpacing(content().spacing());
  SetOkText("menuGroupInsert");
  AssignMnemonics(*this, {});

  m_preview->Show(Style());
  connect(m_walk, &PictureWalk::Began, this, &MWinImageTable::ShowState);
  connect(m_walk, &PictureWalk::Ended, this, &MWinImageTable::ShowState);
  connect(m_model, &QAbstractItemModel::rowsInserted, this, &MWinImageTable::ShowState);
  connect(m_model, &QAbstractItemModel::rowsRemoved, this, &MWinImageTable::ShowState);
  connect(m_model, &QAbstractItemModel::modelReset, this, &MWinImageTable::ShowState);
  connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &MWinImageTable::ShowState);
  ShowState();
  resize(kFirstSize.expandedTo(minimumSizeHint()));
}

QLayout* MWinImageTable::NewHeader() {
  m_view = new ImageListView(*m_model, *m_thumbnails, Text("strImageTableEmpty"));
  m_view->setAccessibleName(Text("Images"));
  connect(m_view, &ImageListView::UrlsDropped, this, &MWinImageTable::AddUrls);
  auto* label = new QLabel(Text("strImageTablePictures"));
  label->setBuddy(m_view);
  auto* header = new QHBoxLayout;
  header->addWidget(label);
  header->addWidget(m_count = new QLabel);
  header->addStretch(1);
  return header;
}

QLayout* MWinImageTable::NewButtonColumn() {
  auto* column = new QVBoxLayout;
  const int gap = fontMetrics().lineSpacing();
  const auto add = [&](std::string_view key, std::function<void()> pressed) {
    QPushButton* button = NewButton(key, std::move(pressed));
    column->addWidget(button);
    return button;
  };
  add("strImageTableAddFiles", [this] { AskForFiles(); });
  add("strImageTableAddFolder", [this] { AskForFolder(); });
  column->addSpacing(gap);
  m_needMarks = {add("strImageTableUp", [this] { m_view->MoveMarked(RowStep::Up); }),
                 add("strImageTableDown", [this] { m_view->MoveMarked(RowStep::Down); })};
  column->addSpacing(gap);
  m_needMarks.push_back(add("strImageTableRemove", [this] { m_view->RemoveMarked(); }));
  m_clear = add("strImageTableClear", [this] { Clear(); });
  column->addStretch(1);
  return column;
}

QPushButton* MWinImageTable::NewButton(std::string_view key, std::function<void()> pressed) {
  auto* button = new QPushButton(Text(key));
  connect(button, &QPushButton::clicked, this, std::move(pressed));
  return button;
}

QLayout* MWinImageTable::NewStyleRow(tools::ImageTableStyle remembered) {
  m_horizontal = new QCheckBox(Text("strImageTableHorizontal"));
  m_names = new QCheckBox(Text("strImageTableNames"));
  m_horizontal->setChecked(remembered.layout == tools::ImageLayout::Horizontal);
  m_names->setChecked(remembered.names == tools::ImageNames::Shown);
  m_preview = new ArrangementPreview;
  m_preview->Show(remembered);
  auto* boxes = new QVBoxLayout;
  boxes->addStretch(1);
  for (QCheckBox* box : {m_horizontal, m_names}) {
    boxes->addWidget(box);
    connect(box, &QCheckBox::toggled, this, [this] { m_preview->Show(Style()); });
  }
  boxes->addStretch(1);
  auto* row = new QHBoxLayout;
  row->addWidget(m_preview);
  row->addSpacing(fontMetrics().lineSpacing() / 2);
  row->addLayout(boxes, 1);
  return row;
}

tools::ImageTableStyle MWinImageTable::Style() const {
  return {m_horizontal->isChecked() ? tools::ImageLayout::Horizontal : tools::ImageLayout::Vertical,
          m_names->isChecked() ? tools::ImageNames::Shown : tools::ImageNames::Hidden};
}

void MWinImageTable::AskForFiles() {
  platform::OpenPanel panel;
  panel.message = FromQt(Text("strImageTableChooseFiles"));
  for (const std::string_view extension : tools::PictureExtensions())
    panel.extensions.emplace_back(extension);
  panel.several = true;
  ShowPanel(panel);
}

void MWinImageTable::AskForFolder() {
  platform::OpenPanel panel;
  panel.message = FromQt(Text("strImageTableChooseFolder"));
  panel.kind = platform::OpenKind::Folders;
  ShowPanel(panel);
}

void MWinImageTable::ShowPanel(const platform::OpenPanel& panel) {
  platform::OpenPanel titled = panel;
  titled.title = FromQt(windowTitle());
  ShowOpenPanel(m_texts, m_panels, titled,
                [window = QPointer<MWinImageTable>(this)](const std::vector<std::filesystem::path>& chosen) {
                  if (!window) return;
                  window->activateWindow();
                  std::vector<std::string> paths;
                  paths.reserve(chosen.size());
                  for (const std::filesystem::path& path : chosen) paths.push_back(path.string());
                  window->Add(std::move(paths));
                });
}

void MWinImageTable::Add(std::vector<std::string> paths) {
  AddPaths(std::move(paths), m_model->rowCount());
}

void MWinImageTable::AddUrls(const QList<QUrl>& urls, int before) {
  std::vector<std::string> paths;
  std::vector<tools::SkippedPath> elsewhere;
  for (const QUrl& url : urls) {
    if (url.isLocalFile()) {
      paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
    } else {
      elsewhere.push_back({FromQt(url.toDisplayString()), tools::SkipReason::NotAFile});
    }
  }
  m_skipped->Add(elsewhere);
  AddPaths(std::move(paths), before);
}

void MWinImageTable::AddPaths(std::vector<std::string> paths, int before) {
  // The list may change while the folders are walked.
  m_walk->Start(std::move(paths), [this, place = QPersistentModelIndex(m_model->index(before))](
                                      const tools::PictureList& list) { Take(list, place); });
}

void MWinImageTable::Take(const tools::PictureList& list, const QPersistentModelIndex& before) {
  const int row = before.isValid() ? before.row() : m_model->rowCount();
  m_model->Insert(row, list.paths);
  m_view->Mark(row, static_cast<int>(list.paths.size()));
  m_skipped->Add(list.skipped);
}

void MWinImageTable::Clear() {
  m_model->Clear();
  m_skipped->Clear();
}

void MWinImageTable::ShowState() {
  const bool hasRows = m_model->rowCount() > 0;
  const bool hasMarks = m_view->selectionModel()->hasSelection();
  m_count->setText(QLocale().toString(m_model->rowCount()));
  const auto enable = [this](QPushButton* button, bool on) {
    // Otherwise the keyboard would go to whatever comes next.
    if (!on && button->hasFocus()) m_view->setFocus();
    button->setEnabled(on);
  };
  for (QPushButton* button : m_needMarks) enable(button, hasMarks);
  enable(m_clear, hasRows);
  enable(&okButton(), hasRows && !m_walk->isRunning());
}

void MWinImageTable::dragEnterEvent(QDragEnterEvent* event) {
  if (!TakeAsCopy(*event)) event->ignore();
}

void MWinImageTable::dropEvent(QDropEvent* event) {
  if (TakeAsCopy(*event)) AddUrls(event->mimeData()->urls(), m_model->rowCount());
}

Result<shell::ImageTableChoice, Problem> MWinImageTable::Read() {
  return shell::ImageTableChoice{m_model->paths(), Style()};
}

}  // namespace quill::ui
