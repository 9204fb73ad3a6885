#include "ui/pictures/scenes.h"

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/hot_keys.h"
#include "shell/window_requests.h"
#include "ui/kit/alert_box.h"
#include "ui/kit/color_popover.h"
#include "ui/kit/key_text.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/win_input.h"
#include "ui/pictures/content_scenes.h"
#include "ui/pictures/engine_scenes.h"
#include "ui/pictures/file_scenes.h"
#include "ui/pictures/library_scenes.h"
#include "ui/pictures/list_scenes.h"
#include "ui/pictures/monitor_scenes.h"
#include "ui/pictures/online_scenes.h"
#include "ui/pictures/sample_data.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/image/picture_view.h"
#include "ui/windows/image/win_image.h"
#include "ui/windows/options/action_picker.h"
#include "ui/windows/options/hot_keys_field.h"
#include "ui/windows/options/key_recorder.h"
#include "ui/windows/options/win_options.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/win_about.h"
#include "ui/windows/win_ruler.h"
#include "ui/windows/win_test.h"

namespace quill::ui {
namespace {

using Page = MWinOptions::Page;

template <class Child>
QWidget* WindowWith() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->findChild<Child*>() != nullptr) return window;
  }
  return nullptr;
}

std::string Title(const Studio& studio, std::string_view action) {
  return std::string(studio.strings.Text(shell::FindCommand(action)->titleKey));
}

/// The group of the menu that holds an action, open beside the menu with this action chosen.
Look OpenMenu(Studio& studio, const char* action) {
  QMenu& menu = studio.menu.menu();
  auto* group = qobject_cast<QMenu*>(menu.findChild<QAction*>(QLatin1String(action))->parent());
  const bool leftward = QGuiApplication::layoutDirection() == Qt::RightToLeft;
  menu.popup(QPoint(leftward ? 600 : 40, 20));
  menu.setActiveAction(group->menuAction());
  return [&menu, group, action]() -> QList<QWidget*> {
    if (!group->isVisible()) return {};
    group->setActiveAction(group->findChild<QAction*>(QLatin1String(action)));
    return {&menu, group};
  };
}

Look OpenMenuWindow(Studio& studio) {
  studio.stage = std::make_unique<MenuWindow>(studio.strings, studio.menu.menu(), [] {});
  return InFront(studio.stage.get());
}

Look OpenPalette(Studio& studio, const QString& query) {
  studio.palette.Open();
  QWidget* window = WindowWith<QLineEdit>();
  window->findChild<QLineEdit*>()->setText(query);
  return Just(window);
}

MWinOptions* NewOptions(Studio& studio, Page page) {
  return new MWinOptions(studio.strings, SampleOptions(), {}, page);
}

Look OpenOptions(Studio& studio, Page page) {
  return InFront(NewOptions(studio, page));
}

Look OpenKeyRecorder(Studio& studio) {
  MWinOptions* window = NewOptions(studio, Page::HotKeys);
  InFront(window);
  window->findChild<HotKeysField*>()->Choose(*shell::FindCommand("MenuItemCapitalizeEachWordClick"));
  return Just(window);
}

Look OpenActionPicker(Studio& studio) {
  const auto keyOf = [](const shell::CommandRow& row) {
    const auto keys = shell::DefaultHotKey(row);
    return keys ? HotKeyText(*keys) : QString();
  };
  auto* window = new ActionPicker(studio.strings, keyOf, [](std::optional<const shell::CommandRow*>) {});
  return InFront(window);
}

Look OpenAbout(Studio& studio, int tab) {
  AboutFacts facts{"~/.config/QuillMenu/settings.plist", "~/.local/share/QuillMenu", LicenseText(),
                   ThirdPartyNotices(), [](const std::filesystem::path&) {}};
  auto* window = new MWinAbout(studio.strings, std::move(facts));
  window->findChild<QTabWidget*>()->setCurrentIndex(tab);
  window->findChild<PlainTextView*>()->setPlainText(SampleSystemFacts());
  return InFront(window);
}

Look OpenTest(Studio& studio) {
  return InFront(new MWinTest(studio.strings,
                              {Title(studio, "MenuItemTestCopyFromOneNoteClick"), SampleClipboardText()}));
}

Look OpenAlert(Studio& studio) {
  const std::string key = FromQt(HotKeyText({.control = true, .option = true, .shift = true, .key = "T"}));
  return Just(ShowAlert(studio.strings, ToQt(studio.strings.Format("msgHotKeysTaken", {key}))));
}

Look OpenQuestion(Studio& studio) {
  return Just(ShowQuestion(studio.strings, ToQt(studio.strings.Format("askReplaceFile", {"Seed orders.csv"})),
                           [](bool) {}));
}

Look OpenInput(Studio& studio) {
  const platform::TextQuestion question{Title(studio, "MenuItemSaveAsTemplateClick"),
                                        std::string(studio.strings.Text("strOptionsJournal")),
                                        "Weekly review"};
  return InFront(new MWinInput(studio.strings, question, [](const std::optional<std::string>&) {}));
}

Look OpenProgress(Studio& studio) {
  studio.job =
      studio.progress.Begin(FromQt(ToQt(Title(studio, "MenuItemPackageNotebooksClick")).remove(u'…')));
  studio.job->Set(0.62, "~/Documents/OneNote/Garden/Allotment/Seed orders and deliveries 2025.one");
  return [] {
    QWidget* window = WindowWith<QProgressBar>();
    return window != nullptr ? QList<QWidget*>{window} : QList<QWidget*>{};
  };
}

Look OpenImage(Studio& studio) {
  const QString file = studio.folder.filePath(QStringLiteral("Rain in the garden.png"));
  SampleChart().save(file);
  auto* window =
      new MWinImage({studio.strings, studio.panels, FromQt(studio.folder.path()), [](const auto&) {}});
  window->Open(FromQt(file));
  BringToFront(*window);
  return [window = QPointer(window)]() -> QList<QWidget*> {
    if (!window || window->view().image().isNull()) return {};
    window->view().Change([](CropFrame& frame) {
      if (frame.empty()) frame.Set(QRect(475, 128, 321, 388));
    });
    return {window};
  };
}

Look OpenRuler(Studio& studio, Qt::Orientation orientation, RulerUnit unit) {
  auto memory = std::make_shared<RulerMemory>();
  memory->orientation = orientation;
  memory->unit = unit;
  memory->opacity = 1;
  auto* ruler = new MWinRuler(studio.strings, memory);
  BringToFront(*ruler);
  return [ruler = QPointer(ruler)]() -> QList<QWidget*> {
    if (!ruler) return {};
    QCursor::setPos(
        ruler->mapToGlobal(ruler->orientation() == Qt::Horizontal ? QPoint(378, 40) : QPoint(40, 347)));
    return {ruler};
  };
}

Look OpenColors(Studio& studio) {
  studio.stage = std::make_unique<QWidget>();
  auto* button = new QToolButton(studio.stage.get());
  BringToFront(*studio.stage);
  auto* popover = new ColorPopover(
      studio.strings, QColor(0x7d, 0xb3, 0xee),
      {QColor(0xff, 0xe0, 0x66), QColor(0x12, 0x99, 0x8a), QColor(0x4e, 0x5d, 0x6c)}, button);
  popover->ShowAt(*button);
  return Just(popover);
}

}  // namespace

Studio::Studio(const shell::StringTable& texts)
    : strings(texts),
      menu(strings, [](const shell::CommandRow&, std::optional<std::int64_t>) {}),
      palette(
          strings, [] { return SampleRecentActions(); },
          [](const shell::CommandRow&, std::optional<std::int64_t>) {}),
      progress(strings) {
  std::map<const shell::CommandRow*, QKeySequence> keys;
  for (const HotKeyState& one : SampleHotKeys()) keys[one.row] = KeySequence(one.keys);
  menu.ShowHotKeys(std::move(keys));
  menu.Update(SampleMenuState());
  palette.Update(SampleHotKeys());
  palette.Update(SampleMenuState());
}

Studio::~Studio() {
  job.reset();
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  CloseAllWindows();
  for (QWidget* window : QApplication::topLevelWidgets()) window->close();
}

std::vector<Scene> Scenes() {
  const auto options = [](Page page) { return [page](Studio& studio) { return OpenOptions(studio, page); }; };
  const auto about = [](int tab) { return [tab](Studio& studio) { return OpenAbout(studio, tab); }; };
  const auto palette = [](const QString& query) {
    return [query](Studio& studio) { return OpenPalette(studio, query); };
  };
  const auto ruler = [](Qt::Orientation orientation, RulerUnit unit) {
    return [=](Studio& studio) { return OpenRuler(studio, orientation, unit); };
  };
  std::vector<Scene> scenes = {
      {QStringLiteral("menu"), [](Studio& studio) { return OpenMenu(studio, "MenuItemUpperCaseClick"); }},
      {QStringLiteral("menu-window"), OpenMenuWindow},
      {QStringLiteral("palette"), palette(QStringLiteral("case"))},
      {QStringLiteral("palette-all"), palette({})},
      {QStringLiteral("palette-nothing"), palette(QStringLiteral("xylophone"))},
      {QStringLiteral("options-general"), options(Page::General)},
      {QStringLiteral("options-pages"), options(Page::Pages)},
      {QStringLiteral("options-tools"), options(Page::Tools)},
      {QStringLiteral("options-hot-keys"), options(Page::HotKeys)},
      {QStringLiteral("options-account"), options(Page::Account)},
      {QStringLiteral("key-recorder"), OpenKeyRecorder},
      {QStringLiteral("action-picker"), OpenActionPicker},
      {QStringLiteral("about-system"), about(0)},
      {QStringLiteral("about-licence"), about(1)},
      {QStringLiteral("about-notices"), about(2)},
      {QStringLiteral("test"), OpenTest},
      {QStringLiteral("alert"), OpenAlert},
      {QStringLiteral("question"), OpenQuestion},
      {QStringLiteral("input"), OpenInput},
      {QStringLiteral("progress"), OpenProgress},
      {QStringLiteral("image"), OpenImage},
      {QStringLiteral("ruler-horizontal"), ruler(Qt::Horizontal, RulerUnit::Pixels)},
      {QStringLiteral("ruler-vertical"), ruler(Qt::Vertical, RulerUnit::Centimetres)},
      {QStringLiteral("colors"), OpenColors}};
  for (Scene& scene : ContentScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : EngineScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : MonitorScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : OnlineScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : FileScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : LibraryScenes()) scenes.push_back(std::move(scene));
  for (Scene& scene : ListScenes()) scenes.push_back(std::move(scene));
  return scenes;
}

}  // namespace quill::ui
