// What others change in the notebook's folder, and how its window takes that.
#include <QVariantMap>

#include "practice/page_view.h"
#include "practice/practice_window.h"
#include "ui/kit/qt_text.h"

namespace quill::practice {

void PracticeWindow::LookAtDisk() {
  if (m_store.Pages() != m_listed) Refresh();
  if (m_unsaved) SaveNow();
  if (!m_open) return;
  const Result<PageAddress> address = m_store.Find(m_open->page.id, m_open->address);
  if (!address.ok()) return LeaveLostPage();
  const Result<Page> page = m_store.Load(*address);
  if (!page.ok()) return;  // being written; the end of that is told too
  if (*page == m_open->page && *address == m_open->address) return;
  ShowFromDisk(*address, *page);
}

/// Shows another state of the open page, unless the user has changed it too: that is saved instead.
void PracticeWindow::ShowFromDisk(const PageAddress& address, const Page& page) {
  const auto onAnswer = [this, key = m_open->key, address, page](const QVariant& answer) {
    if (!answer.isValid() || !m_open || m_open->key != key) return;
    const QVariantMap own = answer.toMap();
    if (own.contains("key")) {
      Note(*m_open, own);
      return SaveNow();
    }
    const bool isOther = !(page == m_open->page);
    m_open->address = address;
    m_open->page = page;
    Refresh();
    if (isOther) Say("strPracticeChangedOutside");
  };
  m_view->Call("reload", {m_open->edits, ui::ToQt(page.title), ui::ToQt(page.body)}, onAnswer);
}

/// The open page's file is gone. What the user has changed since brings it back; otherwise another page is
/// shown.
void PracticeWindow::LeaveLostPage() {
  m_view->Call("takeChanges", {}, [this, opened = *m_open](const QVariant& answer) {
    Note(opened, answer.toMap());
    if (m_unsaved) return SaveNow();
    if (!m_open || m_open->key != opened.key || m_store.Find(opened.page.id, opened.address).ok()) return;
    Forget();
    OpenFirstPage();
    Say("strPracticeDeletedOutside");
  });
}

}  // namespace quill::practice
