// The part of a macOS header that this program uses and the toolchain lacks, with the names of Apple's documentation.
#pragma once

#define XATTR_NOFOLLOW 0x0001

#ifdef __cplusplus
extern "C"
#endif
    int
    removexattr(const char *path, const char *name, int options);
