// The part of Core Services that this program uses, with the names and signatures of Apple's documentation, to check
// that the sources for macOS compile and link. Never part of the program.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C"
#endif
    OSStatus
    LSRegisterURL(CFURLRef inURL, Boolean inUpdate);
