#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/key_combination.h"

namespace quill::platform {

/// A system-wide key.
struct HotKey {
  KeyCombination keys;
  std::uint32_t identifier;  ///< tells the keys of one set apart
  std::string name;          ///< what the key does, for systems that show a list of such keys
  std::string id = {};       ///< the same in every run, for systems that remember what the user chose for it
};

/// Why a key is not registered.
enum class HotKeyProblem {
  None,          ///< it is registered
  Taken,         ///< another program has it
  NoSuchKey,     ///< this keyboard has no such key or modifier
  NotSupported,  ///< there are no system-wide keys here
  Refused,       ///< the user, asked by the system, has not allowed it
  SystemError,   ///< anything else
};

/// What became of one key of a set.
struct HotKeyResult {
  std::uint32_t identifier;
  HotKeyProblem problem = HotKeyProblem::None;
  /// What the system says about it, not translated: about the problem, or, for a registered key, the keys
  /// that the user has chosen for it in the system's own list. May be empty.
  std::string detail = {};

  bool operator==(const HotKeyResult&) const = default;
};

/// Registers system-wide keys. Belongs to the GUI thread.
class HotKeyRegistrar {
 public:
  using Report = std::function<void(std::vector<HotKeyResult>)>;

  virtual ~HotKeyRegistrar() = default;

  /// Sets who is told, by identifier, when a registered key is pressed (GUI thread). A key that is held is
  /// told once. Every key event that arrives is reported to the system as handled, known identifier or not.
  virtual void OnPressed(std::function<void(std::uint32_t identifier)> handler) = 0;

  /// Gives back the keys registered so far and registers these, in this order. `report` gets one result for
  /// each key, on the GUI thread, before or after the return, and all of them again whenever they change: the
  /// keyboard has another layout, the system takes the keys away. Not at all when the object goes first.
  virtual void Bind(std::vector<HotKey> keys, Report report) = 0;

  /// A file descriptor that the owner has to watch, calling `Dispatch` when it can be read, and after `Bind`;
  /// −1 for none, and from then on when the connection behind it is lost.
  virtual int Descriptor() const { return -1; }
  virtual void Dispatch() {}
};

/// Receives "qvar://" links from the system. Called from the GUI thread.
class UrlEvents {
 public:
  virtual ~UrlEvents() = default;

  /// Sets who gets each link, as the raw text that the system delivered, never through a URL class.
  virtual void OnUrl(std::function<void(std::string url)> handler) = 0;
};

}  // namespace quill::platform
