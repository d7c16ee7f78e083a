#pragma once

// openpty(), which systems declare in different places.
#ifdef __APPLE__
#include <util.h>
#else
#include <pty.h>
#endif
