// Links to pages and to paragraphs, from outside and from the page itself.
#include <QDesktopServices>
#include <QKeySequence>
#include <QStatusBar>
#include <QUrl>
#include <utility>

#include "online/client_link.h"
#include "practice/page_view.h"
#include "practice/practice_window.h"
#include "practice/service/online_ids.h"
#include "ui/kit/qt_text.h"

namespace quill::practice {
namespace {

using platform::ScriptProblem;

/// A link's address within a sentence of another direction.
QString Isolated(const QString& address) {
  return QChar(0x2066) + address + QChar(0x2069);
}

}  // namespace

void PracticeWindow::OpenTarget(const LinkTarget& target, Outcome done) {
  OpenPage(
      [&](const PageEntry& page) {
        return target.pageId.empty() ? SectionId(page.address.section) == target.sectionId
                                     : page.id == target.pageId;
      },
      std::move(done));
}

void PracticeWindow::JumpTo(const std::string& objectId, Outcome done) {
  if (objectId.empty()) return done(ScriptProblem::None);
  Settle([this, objectId, done = std::move(done)](bool answered) {
    if (!answered || !m_open) return done(ScriptProblem::NoAnswer);
    const Page& page = m_open->page;
    const auto place = ParagraphOfObjectId({page.title, page.body}, page.id, objectId);
    if (!place) return done(ScriptProblem::None);
    CallPage("jumpTo", {ui::ToQt(kElementsWithIds), static_cast<int>(*place)}, done);
  });
}

/// Pages of this notebook open here, web pages in the browser; nothing else leaves the notebook.
void PracticeWindow::FollowLink(const QString& address) {
  const std::string link = ui::FromQt(address);
  const QUrl url(address);
  if (online::IsClientLink(link)) {
    const LinkTarget target = TargetOfLink(link);
    OpenTarget(target, [this, target](ScriptProblem problem) {
      if (problem == ScriptProblem::TargetMissing) return Say("errPracticeNoSuchPage");
      if (problem == ScriptProblem::None) JumpTo(target.objectId, Quietly());
    });
  } else if (url.scheme() == "https" || url.scheme() == "http") {
    if (!QDesktopServices::openUrl(url)) Say("errPracticeOpenLink");
  } else {
    Say("errPracticeLinkKind");
  }
}

void PracticeWindow::FollowLinkAtCaret() {
  m_view->Call("linkAtCaret", {}, [this](const QVariant& answer) {
    const QString address = answer.toString();
    address.isEmpty() ? Say("strPracticeNoLink") : FollowLink(address);
  });
}

/// Says how to follow the link under the pointer, in front of what the line said before.
void PracticeWindow::HintAt(const QString& address) {
  if (address.isEmpty()) return statusBar()->clearMessage();
  QString key = QKeySequence(Qt::CTRL).toString(QKeySequence::NativeText);
  while (key.endsWith('+')) key.chop(1);
  const int room = statusBar()->width() * 3 / 5;
  const QString shown = statusBar()->fontMetrics().elidedText(address, Qt::ElideMiddle, room);
  statusBar()->showMessage(
      ui::ToQt(m_strings.Format("strPracticeLinkHint", {ui::FromQt(key), ui::FromQt(Isolated(shown))})));
}

}  // namespace quill::practice
