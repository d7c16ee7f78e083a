// The part of a macOS header that the tests use and the toolchain lacks, with the names of Apple's documentation.
#pragma once

#include <sys/ioctl.h>
#include <termios.h>

#ifdef __cplusplus
extern "C"
#endif
    int
    openpty(int *aprimary, int *areplica, char *name, struct termios *termp, struct winsize *winp);
