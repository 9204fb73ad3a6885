#include "platform/qt/qt_pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "platform/qt/gui_call.h"
#include "platform/qt/html_bytes.h"

namespace quill::platform::qt {
namespace {

constexpr const char* kHtml = "text/html";
constexpr const char* kPng = "image/png";

QByteArray Bytes(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

QtPasteboard::QtPasteboard(QObject* parent, std::chrono::milliseconds deadline)
    : QObject(parent), m_clipboard(QGuiApplication::clipboard()), m_deadline(deadline) {
  connect(m_clipboard, &QClipboard::dataChanged, this, [this] {
    const std::lock_guard lock(m_mutex);
    ++m_changes;
    m_changed.notify_all();
  });
}

QtPasteboard::~QtPasteboard() = default;

void QtPasteboard::Clear() {
  const std::lock_guard lock(m_mutex);
  m_known = m_changes;
  m_readable = false;
}

bool QtPasteboard::WaitForNewContents(std::chrono::milliseconds deadline) {
  std::unique_lock lock(m_mutex);
  if (!m_changed.wait_for(lock, deadline, [this] { return m_changes != m_known; })) return false;
  m_known = m_changes;
  m_readable = true;
  return true;
}

Result<std::string, ReadProblem> QtPasteboard::Read(Flavour flavour) {
  {
    const std::lock_guard lock(m_mutex);
    if (!m_readable && m_changes == m_known) return Failure{ReadProblem::Absent};
  }
  auto read = CallOnThread(this, m_deadline, [this, flavour] { return ReadHere(flavour); });
  if (!read) return Failure{ReadProblem::OwnerSilent};
  return std::move(*read);
}

Result<std::string, ReadProblem> QtPasteboard::ReadHere(Flavour flavour) const {
  const QMimeData* data = m_clipboard->mimeData();
  if (!data) return Failure{ReadProblem::OwnerSilent};
  const bool there =
      flavour == Flavour::Text ? data->hasText() : data->hasFormat(flavour == Flavour::Html ? kHtml : kPng);
  if (!there) return Failure{ReadProblem::Absent};
  std::string bytes = flavour == Flavour::Text   ? data->text().toStdString()
                      : flavour == Flavour::Html ? HtmlText(data->data(kHtml)).toStdString()
                                                 : data->data(kPng).toStdString();
  if (bytes.size() > static_cast<std::size_t>(kLargest)) return Failure{ReadProblem::TooLarge};
  return bytes;
}

bool QtPasteboard::Write(Flavour flavour, std::string_view bytes) {
  return CallOnThread(this, m_deadline,
                      [this, flavour, bytes = Bytes(bytes)] {
                        auto data = std::make_unique<QMimeData>();
                        if (flavour == Flavour::Text) {
                          data->setText(QString::fromUtf8(bytes));
                        } else {
                          data->setData(flavour == Flavour::Html ? kHtml : kPng, bytes);
                        }
                        return Own(data.release());
                      })
      .value_or(false);
}

/// Gives the clipboard, which keeps `data`, its new contents; the change that this causes is our own.
bool QtPasteboard::Own(QMimeData* data) {
  m_clipboard->setMimeData(data);
  const std::lock_guard lock(m_mutex);
  m_known = m_changes;
  m_readable = true;
  return m_clipboard->ownsClipboard();
}

PasteboardSnapshot QtPasteboard::Save() {
  auto saved = CallOnThread(this, m_deadline, [this] { return SaveHere(); });
  if (saved) return std::move(*saved);
  PasteboardSnapshot nothing;
  nothing.complete = false;
  return nothing;
}

PasteboardSnapshot QtPasteboard::SaveHere() const {
  PasteboardSnapshot snapshot;
  const QMimeData* data = m_clipboard->mimeData();
  if (!data) return snapshot;
  for (const QString& format : data->formats()) {
    const QByteArray bytes = data->data(format);
    if (bytes.isEmpty() || bytes.size() > kLargest) {
      snapshot.complete = false;
    } else {
      snapshot.flavours.push_back({format.toStdString(), bytes.toStdString()});
    }
  }
  return snapshot;
}

void QtPasteboard::Restore(const PasteboardSnapshot& snapshot) {
  CallOnThread(this, m_deadline, [this, snapshot] {
    {
      const std::lock_guard lock(m_mutex);
      if (m_changes != m_known) return false;
    }
    if (snapshot.flavours.empty()) {
      if (snapshot.complete) m_clipboard->clear();
      const std::lock_guard lock(m_mutex);
      m_known = m_changes;
      return true;
    }
    auto data = std::make_unique<QMimeData>();
    for (const FlavourData& flavour : snapshot.flavours) {
      data->setData(QString::fromStdString(flavour.name), Bytes(flavour.bytes));
    }
    return Own(data.release());
  });
}

std::vector<std::string> QtPasteboard::FlavourNames() {
  return CallOnThread(this, m_deadline,
                      [this] {
                        std::vector<std::string> names;
                        const QMimeData* data = m_clipboard->mimeData();
                        if (!data) return names;
                        for (const QString& format : data->formats()) names.push_back(format.toStdString());
                        return names;
                      })
      .value_or(std::vector<std::string>{});
}

}  // namespace quill::platform::qt
