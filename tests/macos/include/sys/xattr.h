// What this program uses of a header of macOS that the toolchain lacks, by its names in Apple's documentation.
#pragma once

#define XATTR_NOFOLLOW 0x0001

#ifdef __cplusplus
extern "C"
#endif
    int
    removexattr(const char *path, const char *name, int options);
