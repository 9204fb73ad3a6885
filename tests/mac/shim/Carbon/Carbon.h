#pragma once
#include <cstdint>

typedef std::uint32_t UInt32;
typedef std::int32_t OSStatus;
typedef std::uint32_t OSType;
typedef UInt32 OptionBits;
typedef unsigned long ByteCount;
typedef unsigned long ItemCount;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventHotKeyRef* EventHotKeyRef;
typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef next, EventRef event, void* userData);

struct EventTypeSpec {
  OSType eventClass;
  UInt32 eventKind;
};

struct EventHotKeyID {
  OSType signature;
  UInt32 id;
};

enum { noErr = 0, eventHotKeyExistsErr = -9878, eventHotKeyInvalidErr = -9879 };
enum { cmdKey = 1 << 8, shiftKey = 1 << 9, optionKey = 1 << 11, controlKey = 1 << 12 };
enum { kEventHotKeyPressed = 5, kEventHotKeyNoOptions = 0 };
enum : OSType {
  kEventClassKeyboard = 0x6B657962,
  kEventParamDirectObject = 0x2D2D2D2D,
  typeEventHotKeyID = 0x686B6964,
};

extern "C" {
EventTargetRef GetApplicationEventTarget(void);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* installed);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType desiredType,
                           EventParamType* actualType, ByteCount size, ByteCount* actualSize, void* data);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* registered);
OSStatus UnregisterEventHotKey(EventHotKeyRef key);
}
