// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#include <Carbon/Carbon.h>

#include <vector>

#include "platform/mac/four_chars.h"
#include "platform/mac/mac_hot_keys.h"
#include "platform/mac/mac_ref.h"

namespace quill::platform::mac {
namespace {

constexpr OSType kSignature = FourChars("menu");
constexpr UInt32 kModifiers = 0x1A00;  // controlKey | optionKey | shiftKey
static_assert(kModifiers == (controlKey | optionKey | shiftKey));

using PressedHandler = std::function<void(std::uint32_t)>;
using Key = MacRef<EventHotKeyRef, UnregisterEventHotKey>;
using Handler = MacRef<EventHandlerRef, RemoveEventHandler>;

/// Always "handled", or the key would go on to whatever is in front. An exception must not enter Carbon.
OSStatus KeyPressed(EventHandlerCallRef, EventRef event, void* context) noexcept {
  const auto* handler = static_cast<const PressedHandler*>(context);
  EventHotKeyID id{};
  const OSStatus status =
      GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof id, nullptr, &id);
  if (status == noErr && id.signature == kSignature && *handler) (*handler)(id.id);
  return noErr;
}

std::string Reason(OSStatus status) {
  if (status == eventHotKeyExistsErr) return "another program has taken the key";
  return "Carbon error " + std::to_string(status);
}

}  // namespace

struct MacHotKeys::Parts {
  PressedHandler pressed;
  OSStatus installed = noErr;
  Handler handler;  // goes after the keys that it serves
  std::vector<Key> keys;
};

MacHotKeys::MacHotKeys() : m_parts(std::make_unique<Parts>()) {
  const EventTypeSpec type{kEventClassKeyboard, kEventHotKeyPressed};
  EventHandlerRef handler = nullptr;
  m_parts->installed =
      InstallEventHandler(GetApplicationEventTarget(), KeyPressed, 1, &type, &m_parts->pressed, &handler);
  m_parts->handler = Handler(handler);
}

MacHotKeys::~MacHotKeys() = default;

void MacHotKeys::OnPressed(std::function<void(std::uint32_t identifier)> handler) {
  m_parts->pressed = std::move(handler);
}

std::string MacHotKeys::Register(const HotKey& key) {
  if (m_parts->installed != noErr) return Reason(m_parts->installed);
  const EventHotKeyID id{kSignature, key.virtualKeyCode};
  EventHotKeyRef registered = nullptr;
  const OSStatus status = RegisterEventHotKey(key.virtualKeyCode, kModifiers, id, GetApplicationEventTarget(),
                                              kEventHotKeyNoOptions, &registered);
  if (status != noErr) return Reason(status);
  m_parts->keys.emplace_back(registered);
  return {};
}

}  // namespace quill::platform::mac
