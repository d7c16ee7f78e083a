// What this program uses of Core Services, by the names and signatures in Apple's documentation, for the check that the
// sources for macOS compile and link. Never part of the program.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C"
#endif
    OSStatus
    LSRegisterURL(CFURLRef inURL, Boolean inUpdate);
