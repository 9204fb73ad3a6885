#include "ui/windows/image/win_image.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedLayout>
#include <QTimer>
#include <QToolButton>
#include <cmath>

#include "ui/kit/alert_box.h"
#include "ui/kit/background.h"
#include "ui/kit/elided_label.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/image/crop_bar.h"
#include "ui/windows/image/picture_view.h"
#include "ui/windows/image/picture_writer.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;

constexpr QSize kFirstSize(820, 620);
constexpr auto kLoadingShown = 200ms;  // what is faster should not flicker

QString NameOf(const std::filesystem::path& file) {
  return ToQt(file.filename().string());
}

}  // namespace

MWinImage::MWinImage(ImageWindowWorld world)
    : ToolWindow(world.strings, "titleImage"), m_world(std::move(world)) {
  m_view = new PictureView;
  m_view->setAccessibleName(Text("strImagePicture"));
  m_view->WhenChanged([this] { ShowState(); });
  m_words = new QLabel;
  m_words->setAlignment(Qt::AlignCenter);
  m_words->setWordWrap(true);
  m_words->setTextFormat(Qt::PlainText);
  m_words->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_words->setMargin(24);
  m_crop = new CropBar(m_world.strings, [this](const CropBar::Change& change) { m_view->Change(change); });
  m_needPicture.push_back(m_crop);

  auto* column = new QVBoxLayout(this);
  column->addWidget(MakeToolBar());
  m_stack = new QStackedLayout;
  m_stack->addWidget(m_words);
  m_stack->addWidget(m_view);
  column->addLayout(m_stack, 1);
  column->addWidget(m_crop);
  column->addWidget(MakeStatusLine());
  AddShortcuts();
  resize(kFirstSize.expandedTo(minimumSizeHint()));
  ShowWords({});
}

QAbstractButton* MWinImage::AddButton(QWidget* bar, const QString& text, std::function<void()> pressed) {
  auto* button = new QToolButton;
  button->setText(text);
  button->setFocusPolicy(Qt::StrongFocus);
  connect(button, &QToolButton::clicked, this, std::move(pressed));
  bar->layout()->addWidget(button);
  m_needPicture.push_back(button);
  return button;
}

QWidget* MWinImage::MakeToolBar() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  QAbstractButton* out = AddButton(bar, QStringLiteral("−"), [this] { m_view->ZoomOut(); });
  out->setAccessibleName(Text("strImageZoomOut"));
  out->setToolTip(Text("strImageZoomOut"));
  m_zoom = new QSpinBox;
  m_zoom->setRange(qRound(PictureView::kLeastZoom * 100), qRound(PictureView::kMostZoom * 100));
  m_zoom->setSuffix(QStringLiteral(" %"));
  m_zoom->setKeyboardTracking(false);
  m_zoom->setSingleStep(10);
  m_zoom->setAccessibleName(Text("strImageZoom"));
  m_zoom->setToolTip(Text("strImageZoom"));
  connect(m_zoom, &QSpinBox::valueChanged, this, [this](int percent) { m_view->SetZoom(percent / 100.0); });
  row->addWidget(m_zoom);
  m_needPicture.push_back(m_zoom);
  QAbstractButton* in = AddButton(bar, QStringLiteral("+"), [this] { m_view->ZoomIn(); });
  in->setAccessibleName(Text("strImageZoomIn"));
  in->setToolTip(Text("strImageZoomIn"));
  AddButton(bar, Text("strImageFit"), [this] { m_view->Fit(); });
  AddButton(bar, QStringLiteral("\u200E100 %\u200E"), [this] { m_view->SetZoom(1); });
  row->addStretch();
  AddButton(bar, Text("strImageCopy"), [this] { Copy(); });
  AddButton(bar, Text("strImageSave"), [this] { Save(); });
  AddButton(bar, Text("strImagePaste"), [this] { PasteIntoOneNote(); });
  return bar;
}

QWidget* MWinImage::MakeStatusLine() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  m_name = new ElidedLabel;
  m_state = new QLabel;
  m_state->setTextFormat(Qt::PlainText);
  row->addWidget(m_name, 1);
  row->addWidget(m_state);
  return line;
}

void MWinImage::AddShortcuts() {
  const auto add = [this](const QList<QKeySequence>& keys, std::function<void()> pressed) {
    auto* action = new QAction(this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, [this, pressed = std::move(pressed)] {
      if (HasPicture()) pressed();
    });
    addAction(action);
  };
  // "+" needs Shift on some keyboards and stands on the "=" key of others.
  add({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
      [this] { m_view->ZoomIn(); });
  add({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { m_view->ZoomOut(); });
  add({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { m_view->Fit(); });
  add({QKeySequence(Qt::CTRL | Qt::Key_1)}, [this] { m_view->SetZoom(1); });
  add({QKeySequence(QKeySequence::Copy)}, [this] { Copy(); });
  add({QKeySequence(QKeySequence::Save)}, [this] { Save(); });
  add({QKeySequence(QKeySequence::SelectAll)},
      [this] { m_view->Change([](CropFrame& frame) { frame.SelectAll(); }); });
}

bool MWinImage::HasPicture() const {
  return !m_view->image().isNull();
}

void MWinImage::Open(const std::filesystem::path& file) {
  m_file = file;
  ShowWords({});
  m_name->SetText(NameOf(file));
  setWindowTitle(Format("titleImageOf", {file.filename().string()}));
  QTimer::singleShot(kLoadingShown, this, [this] {
    if (m_stack->currentWidget() == m_words && m_words->text().isEmpty()) ShowWords(Text("strImageLoading"));
  });
  LoadPictureFor(this, file, [this](PictureResult result) { ShowResult(std::move(result)); });
}

void MWinImage::ShowResult(PictureResult result) {
  if (result.ok()) return ShowPicture(std::move(*result));
  ShowWords(Format(PictureProblemKey(result.error()), {m_file.filename().string()}));
}

void MWinImage::ShowPicture(LoadedPicture picture) {
  m_stack->setCurrentWidget(m_view);
  layout()->activate();  // what fits is known when the view has its size
  m_view->Show(std::move(picture));
  for (QWidget* widget : m_needPicture) widget->setEnabled(true);
  ShowState();
  m_view->setFocus();
}

void MWinImage::ShowWords(const QString& words) {
  m_words->setText(words);
  m_words->setAccessibleName(words);
  m_stack->setCurrentWidget(m_words);
  for (QWidget* widget : m_needPicture) widget->setEnabled(false);
}

void MWinImage::ShowState() {
  if (!HasPicture()) return;
  const QSignalBlocker quiet(m_zoom);
  m_zoom->setValue(qRound(m_view->zoom() * 100));
  m_crop->Show(m_view->frame());
  const QRect& rect = m_view->frame().rect();
  const QSize size = m_view->image().size();
  std::vector<std::string> numbers;
  for (const int number :
       {size.width(), size.height(), m_zoom->value(), rect.width(), rect.height(), rect.x(), rect.y()}) {
    numbers.push_back(std::to_string(number));
  }
  const QString state = Format(rect.isEmpty() ? "strImageState" : "strImageStateSelected", numbers);
  m_state->setText(state);
  m_view->setAccessibleDescription(state);
}

void MWinImage::Say(const QString& words) {
  m_state->setText(words);
  m_state->setAccessibleName(words);
}

void MWinImage::Copy() {
  QGuiApplication::clipboard()->setImage(m_view->Selected());
  Say(Text("strCopied"));
}

void MWinImage::Save() {
  const platform::SavePanel panel{FromQt(Text("titleImageSave")), m_file.stem().string() + ".png", ""};
  ShowSavePanel(m_world.strings, m_world.panels, panel,
                [window = QPointer<MWinImage>(this)](const std::optional<std::filesystem::path>& file) {
                  if (window && file) window->SaveTo(*file);
                });
}

void MWinImage::SaveTo(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  if (!IsWritablePictureName(file)) {
    ShowAlert(m_world.strings, Format("errPictureWriteName", {name}), {}, this);
    return;
  }
  if (m_busy) return;
  m_busy = true;
  RunInBackground<Status<>>(
      this, [image = m_view->Selected(), file] { return WritePicture(image, file); },
      [this, name](const Status<>& written) {
        m_busy = false;
        if (written.ok()) return Say(Format("strImageSaved", {name}));
        ShowAlert(m_world.strings, Format("errPictureWrite", {name, written.error()}), {}, this);
      });
}

void MWinImage::PasteIntoOneNote() {
  if (m_busy) return;
  const std::filesystem::path file = m_world.temporaryFolder / kPasteFile;
  m_busy = true;
  RunInBackground<Status<>>(
      this, [image = m_view->Selected(), file] { return WritePrivatePng(image, file); },
      [this, file](const Status<>& written) {
        m_busy = false;
        if (written.ok()) return m_world.paste(file);
        ShowAlert(m_world.strings, Format("errPictureWrite", {file.filename().string(), written.error()}), {},
                  this);
      });
}

void MWinImage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !m_view->frame().empty()) return m_view->Unselect();
  ToolWindow::keyPressEvent(event);
}

}  // namespace quill::ui
