// What the tests use of a header of macOS that the toolchain lacks, by its names in Apple's documentation.
#pragma once

#include <sys/ioctl.h>
#include <termios.h>

#ifdef __cplusplus
extern "C"
#endif
    int
    openpty(int *aprimary, int *areplica, char *name, struct termios *termp, struct winsize *winp);
