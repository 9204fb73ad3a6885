#include "ui/pictures/find_replace_scene.h"

#include <QImage>
#include <QLineEdit>
#include <QTreeWidget>

#include "ui/pictures/scene_parts.h"
#include "ui/web_plugin.h"
#include "ui/windows/find_replace/find_fields.h"
#include "ui/windows/find_replace/win_onenote_online.h"

namespace quill::ui {
namespace {

constexpr const char* kPage = R"(<html><head><title>Week 12</title></head>
<body style="font-family:Calibri;font-size:11pt"><div id="div:1" style="position:absolute;left:32px;top:16px;width:640px">
<h1 id="h1:1" style="margin:0;color:#1e4e79">Minutes of week 12</h1>
<p id="p:1">The <b>garden</b> group met on Tuesday; the Garden shed is <span style="color:#c00000">still locked</span>.</p>
<ul id="ul:1"><li id="li:1" data-tag="to-do:completed">Ask for the key of the garden shed</li>
<li id="li:2" data-tag="to-do">Order beans for the south garden</li></ul>
<table id="table:1" border="1" style="border:1px solid #999"><tr><td style="padding:4px">Who</td><td style="padding:4px">What</td></tr>
<tr><td style="padding:4px">Renée</td><td style="padding:4px">Draws a plan of the garden</td></tr></table>
<p id="p:2"><img id="img:1" src="x" alt="Plan of the beds" width="220" height="70" /></p>
</div></body></html>)";

/// Whether the current match is on the screen.
bool ShowsMatch(QWidget& view) {
  const QRgb ground = qRgb(0xff, 0x9d, 0x3c);
  const QImage image = view.grab().toImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if ((image.pixel(x, y) & RGB_MASK) == (ground & RGB_MASK)) return true;
    }
  }
  return false;
}

}  // namespace

Look OpenFindReplace(Studio& studio) {
  const Result<WebViews*> views = LoadWebViews();
  if (!views.ok()) return [] { return QList<QWidget*>(); };
  auto view = (*views)->CreateFindReplaceView(studio.strings);
  QWidget* page = &view->Widget();
  auto* window = new MWinOneNoteOnline(
      studio.strings, std::move(view),
      {"Week 12", kPage, std::make_shared<online::EditorSeat>(std::make_shared<online::EditorTalk>())});
  studio.stage.reset(window);  // it would ask before it closes
  BringToFront(*window);
  auto* fields = window->findChild<FindFields*>();
  const QList<QLineEdit*> texts = fields->findChildren<QLineEdit*>();
  texts[0]->setText(QStringLiteral("garden"));
  texts[1]->setText(QStringLiteral("orchard"));
  for (int step = 0; step < 3; ++step) emit fields->Replace();
  return [window = QPointer(window), page]() -> QList<QWidget*> {
    if (!window || !ShowsMatch(*page)) return {};
    if (window->findChild<QTreeWidget*>()->topLevelItemCount() != 1) return {};
    return {window};
  };
}

}  // namespace quill::ui
