#pragma once

// openpty(), which is declared in different headers on different systems.
#ifdef __APPLE__
#include <util.h>
#else
#include <pty.h>
#endif
