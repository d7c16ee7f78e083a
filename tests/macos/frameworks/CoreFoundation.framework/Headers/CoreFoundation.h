// The part of Core Foundation that this program uses, with the names and signatures of Apple's documentation, to check
// that the sources for macOS compile and link. Never part of the program.
#pragma once

#include <MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef const void *CFTypeRef;
typedef unsigned long CFTypeID;
typedef const struct __CFAllocator *CFAllocatorRef;
typedef const struct __attribute__((objc_bridge(NSString))) __CFString *CFStringRef;
typedef const struct __attribute__((objc_bridge(NSURL))) __CFURL *CFURLRef;

extern const CFAllocatorRef kCFAllocatorDefault;

void CFRelease(CFTypeRef cf);
CFTypeID CFGetTypeID(CFTypeRef cf);
CFTypeID CFStringGetTypeID(void);

#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))

#ifdef __cplusplus
}
#endif
