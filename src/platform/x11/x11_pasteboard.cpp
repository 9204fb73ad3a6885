#include "platform/x11/x11_pasteboard.h"

#include <algorithm>
#include <tuple>

#include "platform/x11/browser_fragment.h"
#include "platform/x11/clipboard_text.h"

namespace quill::platform::x11 {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSaveEach{1000};
constexpr milliseconds kSaveAll{2000};
constexpr std::size_t kSaveMost = 64u << 20;
constexpr milliseconds kHandOver{500};
constexpr milliseconds kVisitEnds{2500};

std::vector<xcb_atom_t> TargetsOf(const X11Atoms& atoms, Flavour flavour) {
  switch (flavour) {
    case Flavour::Html:
      return {atoms.textHtml};
    case Flavour::Text:
      return {atoms.utf8String, atoms.textPlainUtf8, XCB_ATOM_STRING};
    case Flavour::Png:
      return {atoms.imagePng};
  }
  return {};
}

SelectionContents Written(const X11Atoms& atoms, Flavour flavour, std::string_view bytes) {
  SelectionContents contents;
  const auto offer = [&](xcb_atom_t target, xcb_atom_t type) {
    contents.forms.push_back({target, type, 8, std::string(bytes)});
  };
  for (const xcb_atom_t target : TargetsOf(atoms, flavour)) {
    if (target != XCB_ATOM_STRING || IsAscii(bytes)) offer(target, target);
  }
  if (flavour == Flavour::Text) {
    offer(atoms.textPlain, atoms.textPlain);
    offer(atoms.text, atoms.utf8String);
  }
  return contents;
}

/// Other encodings of a picture that is there as PNG: owners make them on demand, each as slowly as large.
bool IsDoubleOfPng(const std::string& name, const std::vector<std::string>& all) {
  constexpr std::string_view kDoubles[] = {
      "image/bmp",  "image/x-bmp", "image/x-MS-bmp",         "image/x-win-bitmap",
      "image/tiff", "image/ico",   "image/x-icon",           "image/x-ico",
      "PIXMAP",     "BITMAP",      "image/x-portable-pixmap"};
  return std::find(std::begin(kDoubles), std::end(kDoubles), name) != std::end(kDoubles) &&
         std::find(all.begin(), all.end(), "image/png") != all.end();
}

}  // namespace

Result<std::unique_ptr<X11Pasteboard>> X11Pasteboard::Open(const char* display, X11Connection& connection,
                                                           const X11Notes& notes) {
  Result<std::unique_ptr<SelectionServer>> server = SelectionServer::Start(display);
  if (!server.ok()) return Failure{server.error()};
  return std::unique_ptr<X11Pasteboard>(new X11Pasteboard(connection, std::move(*server), notes));
}

X11Pasteboard::X11Pasteboard(X11Connection& connection, std::unique_ptr<SelectionServer> server,
                             const X11Notes& notes)
    : m_connection(connection), m_notes(notes), m_server(std::move(server)), m_reader(connection) {}

X11Pasteboard::~X11Pasteboard() {
  // A target that is still at its paste would lose it with the owner.
  m_server->WaitFor(In(kVisitEnds), [](const SelectionState& state) { return !state.visited; });
  m_server->HandToManager(kHandOver);
}

void X11Pasteboard::WatchTakers(xcb_window_t window) {
  m_pastedInto = m_connection.ClientOf(window);
  m_server->ForgetTakers();
}

void X11Pasteboard::Mark() {
  m_server->CatchUp();
  TakeLateCopy();
  m_mark = m_trusted = m_server->State().lastChange;
}

/// A copy that a script asked for and that came too late still is this program's doing.
void X11Pasteboard::TakeLateCopy() {
  if (m_cleared && m_expected != 0) Arrived();
}

void X11Pasteboard::Clear() {
  Mark();
  m_expected = 0;
  m_cleared = true;
}

void X11Pasteboard::ExpectCopyFrom(xcb_window_t window) {
  Mark();
  m_expected = m_connection.ClientOf(window);
  m_cleared = true;
}

std::optional<OwnerChange> X11Pasteboard::Arrival(const SelectionState& state) const {
  for (const OwnerChange& change : state.changes) {
    const bool counts =
        change.owner != XCB_NONE && (m_expected == 0 || m_connection.ClientOf(change.owner) == m_expected);
    if (change.number > m_mark && counts) return change;
  }
  return std::nullopt;
}

bool X11Pasteboard::WaitForCopy(Deadline deadline) {
  m_server->WaitFor(deadline, [this](const SelectionState& state) { return Arrival(state).has_value(); });
  return Arrived();
}

bool X11Pasteboard::WaitForNewContents(milliseconds deadline) {
  return WaitForCopy(In(deadline));
}

bool X11Pasteboard::SomebodyElseWrote() const {
  const SelectionState state = m_server->State();
  return state.lastChange > m_mark && !Arrival(state);
}

bool X11Pasteboard::Arrived() {
  const std::optional<OwnerChange> arrival = Arrival(m_server->State());
  if (!arrival) return false;
  m_touched = true;
  m_trusted = std::max(m_trusted, arrival->number);
  return true;
}

Result<SelectionForm, ReadProblem> X11Pasteboard::ReadFirst(const std::vector<xcb_atom_t>& targets) {
  Result<SelectionForm, ReadProblem> form = Failure{ReadProblem::Absent};
  const ReadLimits limits;
  for (const xcb_atom_t target : targets) {
    form = m_reader.Read(target, limits);
    if (form.ok() || form.error() != ReadProblem::Absent) break;
  }
  return form;
}

Result<std::string, ReadProblem> X11Pasteboard::Read(Flavour flavour) {
  if (m_cleared && !Arrived()) return Failure{ReadProblem::Absent};
  Result<SelectionForm, ReadProblem> form = ReadFirst(TargetsOf(m_connection.atoms(), flavour));
  if (!form.ok()) return Failure{form.error()};
  if (m_cleared) {
    m_server->CatchUp();
    m_trusted = m_server->State().lastChange;
  }
  m_known = *form;
  if (flavour == Flavour::Html) return BrowserToApplicationHtml(HtmlBytesToUtf8(form->bytes));
  if (form->type == XCB_ATOM_STRING) return Latin1ToUtf8(form->bytes);
  return std::move(form->bytes);
}

bool X11Pasteboard::Write(Flavour flavour, std::string_view bytes) {
  SelectionContents contents = Written(m_connection.atoms(), flavour, bytes);
  m_known = contents.forms.front();
  m_mark = m_trusted = m_server->State().lastChange;
  const bool owns = m_server->Own(std::move(contents), m_connection.ServerTime());
  m_pasted = m_server->Offered();
  m_touched = true;
  m_cleared = false;
  m_expected = 0;
  m_notes.Add(owns ? "clipboard: took it with " + std::to_string(bytes.size()) + " bytes"
                   : "clipboard: the display refused");
  return owns;
}

std::vector<std::string> X11Pasteboard::FlavourNames() {
  if (m_cleared && !Arrived()) return {};
  const Result<std::vector<xcb_atom_t>, ReadProblem> targets = m_reader.Targets({});
  return targets.ok() ? AtomNames(m_connection, *targets) : std::vector<std::string>();
}

PasteboardSnapshot X11Pasteboard::Save() {
  m_touched = false;
  m_pastedInto = XCB_NONE;
  m_pasted.reset();
  m_savedTypes.clear();
  PasteboardSnapshot snapshot;
  ReadLimits limits;
  limits.answer = kSaveEach;
  limits.end = In(kSaveAll);
  const Result<std::vector<xcb_atom_t>, ReadProblem> targets = m_reader.Targets(limits);
  if (!targets.ok()) {
    snapshot.complete = targets.error() == ReadProblem::Absent;
    return snapshot;
  }
  const std::vector<std::string> names = AtomNames(m_connection, *targets);
  std::size_t left = kSaveMost;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (IsDoubleOfPng(names[i], names)) continue;
    if (!KeepForm(snapshot, (*targets)[i], names[i], limits.end, left)) snapshot.complete = false;
  }
  return snapshot;
}

bool X11Pasteboard::KeepForm(PasteboardSnapshot& snapshot, xcb_atom_t target, const std::string& name,
                             Deadline end, std::size_t& left) {
  ReadLimits limits;
  limits.answer = kSaveEach;
  limits.end = end;
  limits.bytes = left;
  Result<SelectionForm, ReadProblem> form = m_reader.Read(target, limits);
  // An owner may list a form that it cannot make after all: there is nothing to lose then.
  if (!form.ok()) return form.error() == ReadProblem::Absent;
  left -= form->bytes.size();
  m_savedTypes[name] = {form->type, form->format};
  snapshot.flavours.push_back({name, std::move(form->bytes)});
  return true;
}

Taker X11Pasteboard::WaitForTaker(xcb_window_t window, Deadline deadline) {
  const xcb_window_t client = m_connection.ClientOf(window);
  const auto taken = [&](const SelectionState& state) {
    return std::any_of(state.takers.begin(), state.takers.end(),
                       [&](xcb_window_t taker) { return m_connection.ClientOf(taker) == client; });
  };
  if (m_server->WaitFor(deadline, taken)) return Taker::Target;
  return m_server->State().takers.empty() ? Taker::Nobody : Taker::SomebodyElse;
}

/// True when the clipboard still holds what this program, or the copy that it asked for, has put there; also
/// when a clipboard manager has taken it over unchanged.
bool X11Pasteboard::StillOurs() {
  m_server->CatchUp();
  const SelectionState state = m_server->State();
  if (state.ours || state.lastChange == m_trusted || state.changes.empty()) return true;
  if (state.changes.back().owner == XCB_NONE) return true;
  if (!m_known) return false;
  ReadLimits limits;
  limits.answer = kSaveEach;
  const Result<SelectionForm, ReadProblem> now = m_reader.Read(m_known->target, limits);
  return now.ok() && now->bytes == m_known->bytes;
}

SelectionContents X11Pasteboard::ContentsOf(const PasteboardSnapshot& snapshot) const {
  SelectionContents contents;
  for (const FlavourData& flavour : snapshot.flavours) {
    const xcb_atom_t target = AtomOf(m_connection, flavour.name);
    SelectionForm form{target, target, 8, flavour.bytes};
    const auto saved = m_savedTypes.find(flavour.name);
    if (saved != m_savedTypes.end()) std::tie(form.type, form.format) = saved->second;
    contents.forms.push_back(std::move(form));
  }
  return contents;
}

void X11Pasteboard::Restore(const PasteboardSnapshot& snapshot) {
  m_server->CatchUp();
  TakeLateCopy();
  if (!m_touched) return m_notes.Add("clipboard: untouched, nothing to put back");
  if (!StillOurs()) return m_notes.Add("clipboard: somebody else has written since, left as it is");
  m_touched = m_cleared = false;
  m_known.reset();
  if (snapshot.flavours.empty() && !snapshot.complete)
    return m_notes.Add("clipboard: could not be saved before");
  const xcb_timestamp_t now = m_connection.ServerTime();
  if (m_pastedInto != XCB_NONE && m_pasted) {
    SelectionGuest guest{m_pastedInto, std::exchange(m_pasted, nullptr), false, {}};
    const SelectionState state = m_server->State();
    guest.taken = std::any_of(state.takers.begin(), state.takers.end(), [&](xcb_window_t taker) {
      return m_connection.ClientOf(taker) == m_pastedInto;
    });
    m_server->OwnBeside(std::move(guest), ContentsOf(snapshot), now);
  } else if (snapshot.flavours.empty()) {
    m_server->Disown(now);
  } else {
    m_server->Own(ContentsOf(snapshot), now);
  }
  m_notes.Add("clipboard: put back " + std::to_string(snapshot.flavours.size()) + " forms");
}

}  // namespace quill::platform::x11
