#pragma once
#include "platform/pasteboard.h"
#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_selection_answer.h"

namespace quill::platform::x11 {

/// How long and how much a read may take.
struct ReadLimits {
  std::chrono::milliseconds answer{2000};  ///< until the owner answers, and again for each portion
  Deadline end = In(std::chrono::seconds(10));
  std::size_t bytes = 64u << 20;
};

/// Asks the clipboard's owner for its data. Belongs to the connection's thread.
class SelectionReader {
 public:
  explicit SelectionReader(X11Connection& connection) : m_connection(connection) {}

  /// One form, whole, in portions if the owner sends it so.
  Result<SelectionForm, ReadProblem> Read(xcb_atom_t target, const ReadLimits& limits);

  /// The forms on offer, in the owner's order, without doubles and without those that are no data
  /// (TARGETS, TIMESTAMP, …).
  Result<std::vector<xcb_atom_t>, ReadProblem> Targets(const ReadLimits& limits);

 private:
  Result<SelectionForm, ReadProblem> Collect(xcb_atom_t target, xcb_atom_t property,
                                             const ReadLimits& limits);
  bool TakePortion(xcb_atom_t property, SelectionForm& form, std::size_t mostBytes);
  Result<SelectionForm, ReadProblem> CollectPortions(xcb_atom_t target, xcb_atom_t property,
                                                     const ReadLimits& limits);
  xcb_atom_t NextProperty();

  X11Connection& m_connection;
  std::vector<xcb_atom_t> m_properties;
  std::size_t m_next = 0;
};

/// The atoms' names, in order.
std::vector<std::string> AtomNames(const X11Connection& connection, const std::vector<xcb_atom_t>& atoms);
/// The atom of a name.
xcb_atom_t AtomOf(const X11Connection& connection, std::string_view name);

}  // namespace quill::platform::x11
