#pragma once

typedef const void* CFTypeRef;
typedef unsigned long CFTypeID;
typedef unsigned char Boolean;
typedef long CFIndex;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFNumber* CFNumberRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;
typedef CFIndex CFNumberType;
enum { kCFNumberSInt64Type = 4 };

extern "C" {
extern const CFAllocatorRef kCFAllocatorDefault;
void CFRelease(CFTypeRef cf);
CFTypeID CFGetTypeID(CFTypeRef cf);
CFTypeID CFNumberGetTypeID(void);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
CFStringRef __CFStringMakeConstantString(const char* text);
}

#define CFSTR(text) __CFStringMakeConstantString("" text "")
