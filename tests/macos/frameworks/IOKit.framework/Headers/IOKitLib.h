// The part of IOKit that this program uses, with the names and signatures of Apple's documentation, to check that the
// sources for macOS compile and link. Never part of the program.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <mach/mach.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef mach_port_t io_object_t;
typedef io_object_t io_service_t;
typedef io_object_t io_registry_entry_t;
typedef UInt32 IOOptionBits;
typedef struct __CFDictionary *CFMutableDictionaryRef;
typedef const struct __CFDictionary *CFDictionaryRef;

#define IO_OBJECT_NULL ((io_object_t)0)

CFMutableDictionaryRef IOServiceMatching(const char *name);
io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching);
CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entry, CFStringRef key, CFAllocatorRef allocator,
                                          IOOptionBits options);
kern_return_t IOObjectRelease(io_object_t object);

#ifdef __cplusplus
}
#endif
