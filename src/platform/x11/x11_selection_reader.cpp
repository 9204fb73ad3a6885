#include "platform/x11/x11_selection_reader.h"

#include <algorithm>
#include <cstring>

namespace quill::platform::x11 {
namespace {

/// Properties in turn: an answer that comes after its deadline is not taken for the next one's.
constexpr std::size_t kProperties = 8;
constexpr std::uint32_t kPortionWords = 1u << 18;

Deadline Earlier(Deadline end, std::chrono::milliseconds time) {
  return std::min(end, In(time));
}

}  // namespace

std::vector<std::string> AtomNames(const X11Connection& connection, const std::vector<xcb_atom_t>& atoms) {
  std::vector<xcb_get_atom_name_cookie_t> cookies;
  cookies.reserve(atoms.size());
  for (const xcb_atom_t atom : atoms) cookies.push_back(xcb_get_atom_name(connection.get(), atom));
  std::vector<std::string> names;
  for (const xcb_get_atom_name_cookie_t cookie : cookies) {
    const auto reply = Reply(connection.get(), cookie, xcb_get_atom_name_reply);
    names.push_back(reply ? std::string(xcb_get_atom_name_name(reply.get()), reply->name_len)
                          : std::string());
  }
  return names;
}

xcb_atom_t AtomOf(const X11Connection& connection, std::string_view name) {
  const auto reply =
      Reply(connection.get(),
            xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            xcb_intern_atom_reply);
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_atom_t SelectionReader::NextProperty() {
  if (m_properties.size() < kProperties) {
    m_properties.push_back(AtomOf(m_connection, "QUILL_SELECTION_" + std::to_string(m_properties.size())));
    return m_properties.back();
  }
  return m_properties[m_next++ % kProperties];
}

Result<SelectionForm, ReadProblem> SelectionReader::Read(xcb_atom_t target, const ReadLimits& limits) {
  xcb_connection_t* c = m_connection.get();
  const xcb_atom_t property = NextProperty();
  xcb_delete_property(c, m_connection.window(), property);
  xcb_convert_selection(c, m_connection.window(), m_connection.atoms().clipboard, target, property,
                        m_connection.ServerTime());
  xcb_atom_t answered = property;
  const bool seen = m_connection.WaitForEvent(Earlier(limits.end, limits.answer), [&](const auto& event) {
    if (EventType(event) != XCB_SELECTION_NOTIFY) return false;
    const auto& answer = As<xcb_selection_notify_event_t>(event);
    if (answer.target != target || (answer.property != property && answer.property != XCB_ATOM_NONE))
      return false;
    answered = answer.property;
    return true;
  });
  if (!seen) return Failure{ReadProblem::OwnerSilent};
  if (answered == XCB_ATOM_NONE) return Failure{ReadProblem::Absent};
  return Collect(target, property, limits);
}

bool SelectionReader::TakePortion(xcb_atom_t property, SelectionForm& form, std::size_t mostBytes) {
  xcb_connection_t* c = m_connection.get();
  for (std::uint32_t at = 0;;) {
    const auto reply =
        Reply(c, xcb_get_property(c, 0, m_connection.window(), property, XCB_ATOM_ANY, at, kPortionWords),
              xcb_get_property_reply);
    if (!reply || reply->type == XCB_ATOM_NONE) return false;
    const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    if (form.bytes.size() + size + reply->bytes_after > mostBytes) return false;
    form.type = reply->type;
    form.format = reply->format;
    if (size > 0) form.bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())), size);
    at += static_cast<std::uint32_t>(size / 4);
    if (reply->bytes_after == 0) return true;
  }
}

Result<SelectionForm, ReadProblem> SelectionReader::Collect(xcb_atom_t target, xcb_atom_t property,
                                                            const ReadLimits& limits) {
  SelectionForm form;
  form.target = target;
  const bool taken = TakePortion(property, form, limits.bytes);
  xcb_delete_property(m_connection.get(), m_connection.window(), property);
  xcb_flush(m_connection.get());
  if (!taken) return Failure{ReadProblem::TooLarge};
  if (form.type == m_connection.atoms().incr) return CollectPortions(target, property, limits);
  return form;
}

Result<SelectionForm, ReadProblem> SelectionReader::CollectPortions(xcb_atom_t target, xcb_atom_t property,
                                                                    const ReadLimits& limits) {
  SelectionForm form;
  form.target = target;
  for (;;) {
    const bool seen = m_connection.WaitForEvent(Earlier(limits.end, limits.answer), [&](const auto& event) {
      if (EventType(event) != XCB_PROPERTY_NOTIFY) return false;
      const auto& change = As<xcb_property_notify_event_t>(event);
      return change.window == m_connection.window() && change.atom == property &&
             change.state == XCB_PROPERTY_NEW_VALUE;
    });
    if (!seen) return Failure{ReadProblem::OwnerSilent};
    const std::size_t before = form.bytes.size();
    const bool taken = TakePortion(property, form, limits.bytes);
    // The property's going is the owner's sign to send the next portion.
    xcb_delete_property(m_connection.get(), m_connection.window(), property);
    if (!taken) return Failure{ReadProblem::TooLarge};
    if (form.bytes.size() == before) return form;
  }
}

Result<std::vector<xcb_atom_t>, ReadProblem> SelectionReader::Targets(const ReadLimits& limits) {
  const X11Atoms& atoms = m_connection.atoms();
  const Result<SelectionForm, ReadProblem> list = Read(atoms.targets, limits);
  if (!list.ok()) return Failure{list.error()};
  const xcb_atom_t noData[] = {XCB_ATOM_NONE,   atoms.targets,     atoms.multiple,
                               atoms.timestamp, atoms.saveTargets, atoms.deleteTarget};
  std::vector<xcb_atom_t> targets;
  for (std::size_t at = 0; list->format == 32 && at + 4 <= list->bytes.size(); at += 4) {
    xcb_atom_t atom = XCB_ATOM_NONE;
    std::memcpy(&atom, list->bytes.data() + at, 4);
    const bool skip = std::find(std::begin(noData), std::end(noData), atom) != std::end(noData) ||
                      std::find(targets.begin(), targets.end(), atom) != targets.end();
    if (!skip) targets.push_back(atom);
  }
  return targets;
}

}  // namespace quill::platform::x11
