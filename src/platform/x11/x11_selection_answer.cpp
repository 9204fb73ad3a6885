#include "platform/x11/x11_selection_answer.h"

#include <algorithm>

namespace quill::platform::x11 {
namespace {

/// Larger forms go in portions of this size: every toolkit copes with it, and 3 MB are 12 portions.
constexpr std::size_t kPortion = std::size_t{256} * 1024;

/// A guest's visit ends so long after its first read: the second one came within 0.2 s here.
constexpr std::chrono::milliseconds kAfterFirstRead{2000};
/// A program that has not read the paste yet may be busy deleting the selection; it must not find the user's
/// old clipboard when it comes to it.
constexpr std::chrono::milliseconds kUntilFirstRead{30000};

/// Bytes of one unit in client memory.
std::size_t UnitSize(std::uint8_t format) {
  return format / 8;
}

}  // namespace

SelectionAnswerer::SelectionAnswerer(X11Connection& connection, std::function<void(xcb_window_t)> fetched)
    : m_connection(connection), m_fetched(std::move(fetched)) {}

const SelectionForm* SelectionAnswerer::Find(xcb_atom_t target) const {
  for (const SelectionForm& form : m_asked->forms) {
    if (form.target == target) return &form;
  }
  return nullptr;
}

void SelectionAnswerer::Invite(std::optional<SelectionGuest> guest) {
  m_guest = std::move(guest);
  if (m_guest) m_guest->end = In(m_guest->taken ? kAfterFirstRead : kUntilFirstRead);
}

const std::shared_ptr<const SelectionContents>& SelectionAnswerer::ContentsFor(xcb_window_t requestor) {
  if (!m_guest || m_connection.ClientOf(requestor) != m_guest->client) return m_contents;
  return m_guest->contents;
}

void SelectionAnswerer::Fetched(xcb_window_t requestor) {
  if (m_guest && !m_guest->taken && m_connection.ClientOf(requestor) == m_guest->client) {
    m_guest->taken = true;
    m_guest->end = In(kAfterFirstRead);
  }
  m_fetched(requestor);
}

void SelectionAnswerer::OnRequest(const xcb_selection_request_event_t& request) {
  xcb_selection_notify_event_t answer{};
  answer.response_type = XCB_SELECTION_NOTIFY;
  answer.time = request.time;
  answer.requestor = request.requestor;
  answer.selection = request.selection;
  answer.target = request.target;
  // Clients from before 1989 leave the property out and mean the target.
  const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
  m_asked = ContentsFor(request.requestor);
  const bool early = m_asked && request.time != XCB_CURRENT_TIME && request.time < m_asked->since;
  const bool done = m_asked && !early && Convert(request.requestor, request.target, property);
  answer.property = done ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  xcb_send_event(m_connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&answer));
  xcb_flush(m_connection.get());
  const bool inPortions = std::any_of(m_transfers.begin(), m_transfers.end(), [&](const Transfer& t) {
    return t.requestor == request.requestor && t.property == property;
  });
  if (done && !inPortions && Find(request.target)) Fetched(request.requestor);
}

bool SelectionAnswerer::Convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
  const X11Atoms& atoms = m_connection.atoms();
  if (target == atoms.targets) {
    PutTargets(requestor, property);
    return true;
  }
  if (target == atoms.multiple) return ConvertMultiple(requestor, property);
  if (target == atoms.timestamp) {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_INTEGER, 32,
                        1, &m_asked->since);
    return true;
  }
  if (target == atoms.saveTargets) {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property, atoms.null, 32, 0,
                        nullptr);
    return true;
  }
  const SelectionForm* form = Find(target);
  if (form) PutForm(requestor, property, *form);
  return form != nullptr;
}

bool SelectionAnswerer::ConvertMultiple(xcb_window_t requestor, xcb_atom_t property) {
  std::vector<std::uint32_t> pairs = m_connection.Words(requestor, property);
  if (pairs.empty() || pairs.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < pairs.size(); i += 2) {
    const bool nested = pairs[i] == m_connection.atoms().multiple || pairs[i + 1] == XCB_ATOM_NONE;
    if (nested || !Convert(requestor, pairs[i], pairs[i + 1])) {
      pairs[i + 1] = XCB_ATOM_NONE;
    } else if (Find(pairs[i])) {
      Fetched(requestor);
    }
  }
  xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property,
                      m_connection.atoms().atomPair, 32, static_cast<std::uint32_t>(pairs.size()),
                      pairs.data());
  return true;
}

void SelectionAnswerer::PutTargets(xcb_window_t requestor, xcb_atom_t property) {
  const X11Atoms& atoms = m_connection.atoms();
  std::vector<xcb_atom_t> names = {atoms.targets, atoms.multiple, atoms.timestamp, atoms.saveTargets};
  for (const SelectionForm& form : m_asked->forms) names.push_back(form.target);
  xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(names.size()), names.data());
}

void SelectionAnswerer::Put(xcb_window_t requestor, xcb_atom_t property, const SelectionForm& form,
                            std::size_t from, std::size_t size) {
  xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property, form.type, form.format,
                      static_cast<std::uint32_t>(size / UnitSize(form.format)), form.bytes.data() + from);
}

void SelectionAnswerer::PutForm(xcb_window_t requestor, xcb_atom_t property, const SelectionForm& form) {
  if (form.bytes.size() <= kPortion) return Put(requestor, property, form, 0, form.bytes.size());
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(m_connection.get(), requestor, XCB_CW_EVENT_MASK, &events);
  const auto size = static_cast<std::uint32_t>(form.bytes.size());
  xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property,
                      m_connection.atoms().incr, 32, 1, &size);
  m_transfers.push_back({requestor, property, m_asked, &form, 0});
}

void SelectionAnswerer::OnPropertyDeleted(xcb_window_t requestor, xcb_atom_t property) {
  const auto transfer = std::find_if(m_transfers.begin(), m_transfers.end(), [&](const Transfer& t) {
    return t.requestor == requestor && t.property == property;
  });
  if (transfer == m_transfers.end()) return;
  const std::size_t left = transfer->form->bytes.size() - transfer->sent;
  const std::size_t portion = std::min(left, kPortion);
  Put(requestor, property, *transfer->form, transfer->sent, portion);
  transfer->sent += portion;
  if (portion == 0) {
    m_transfers.erase(transfer);
    Fetched(requestor);
  }
  xcb_flush(m_connection.get());
}

void SelectionAnswerer::OnRequestorGone(xcb_window_t requestor) {
  m_transfers.remove_if([&](const Transfer& t) { return t.requestor == requestor; });
}

}  // namespace quill::platform::x11
