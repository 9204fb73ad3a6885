// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#include <Carbon/Carbon.h>

#include <utility>
#include <vector>

#include "platform/mac/four_chars.h"
#include "platform/mac/mac_hot_key_ids.h"
#include "platform/mac/mac_hot_keys.h"
#include "platform/mac/mac_ref.h"
#include "platform/native_backend.h"

namespace quill::platform::mac {
namespace {

constexpr OSType kSignature = FourChars("menu");

// The numbers that the plain C++ files know.
static_assert(controlKey == 0x1000 && optionKey == 0x0800 && shiftKey == 0x0200 && cmdKey == 0x0100);
static_assert(noErr == 0 && eventHotKeyExistsErr == -9878 && eventHotKeyInvalidErr == -9879);

using Key = MacRef<EventHotKeyRef, UnregisterEventHotKey>;
using Handler = MacRef<EventHandlerRef, RemoveEventHandler>;

}  // namespace

struct MacHotKeys::Parts {
  std::function<void(std::uint32_t)> pressed;
  OSStatus installed = noErr;
  Handler handler;  // goes after the keys that it serves
  std::vector<HotKey> bound;
  std::vector<Key> registered;

  OSStatus Register(const HotKey& key) {
    if (installed != noErr) return installed;
    const EventHotKeyID id{kSignature, CarbonHotKeyId(key.keys)};
    EventHotKeyRef ref = nullptr;
    const OSStatus status = RegisterEventHotKey(CarbonKeyCode(key.keys), CarbonModifiers(key.keys), id,
                                                GetApplicationEventTarget(), kEventHotKeyNoOptions, &ref);
    if (status == noErr) registered.emplace_back(ref);
    return status;
  }

  /// Always "handled", or the key would go on to whatever is in front. An exception must not enter Carbon.
  static OSStatus KeyPressed(EventHandlerCallRef, EventRef event, void* context) noexcept {
    const auto* parts = static_cast<const Parts*>(context);
    EventHotKeyID id{};
    const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                              sizeof id, nullptr, &id);
    if (status != noErr || id.signature != kSignature) return noErr;
    const std::optional<std::uint32_t> identifier = ReportedKey(parts->bound, id.id);
    const auto tell = parts->pressed;  // it may set another
    if (identifier && tell) tell(*identifier);
    return noErr;
  }
};

MacHotKeys::MacHotKeys() : m_parts(std::make_unique<Parts>()) {
  const EventTypeSpec type{kEventClassKeyboard, kEventHotKeyPressed};
  EventHandlerRef handler = nullptr;
  m_parts->installed =
      InstallEventHandler(GetApplicationEventTarget(), Parts::KeyPressed, 1, &type, m_parts.get(), &handler);
  m_parts->handler = Handler(handler);
}

MacHotKeys::~MacHotKeys() = default;

void MacHotKeys::OnPressed(std::function<void(std::uint32_t identifier)> handler) {
  m_parts->pressed = std::move(handler);
}

void MacHotKeys::Bind(std::vector<HotKey> keys, Report report) {
  m_parts->registered.clear();
  m_parts->bound = std::move(keys);
  std::vector<HotKeyResult> results;
  for (const HotKey& key : m_parts->bound)
    results.push_back(RegistrationResult(key.identifier, m_parts->Register(key)));
  if (report) report(std::move(results));
}

}  // namespace quill::platform::mac

namespace quill::platform {

Result<std::unique_ptr<HotKeyRegistrar>> OpenNativeHotKeys() {
  return std::unique_ptr<HotKeyRegistrar>(std::make_unique<mac::MacHotKeys>());
}

}  // namespace quill::platform
