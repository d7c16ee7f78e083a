#pragma once

#include "platform/Descriptor.h"

namespace tidlo {

/// A socket that listens on a free port of 127.0.0.1. Child processes do not inherit it. If the system refuses, it is
/// not valid, and holds the reason.
Descriptor listenOnLoopback();

/// The port of such a socket; 0 if the system does not report it.
int portOf(const Descriptor &listener);

/// Whether a server accepts connections on \a port of 127.0.0.1 or ::1. A loopback address answers at once.
bool isAnsweredOnLoopback(int port);

} // namespace tidlo
