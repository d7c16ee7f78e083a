#pragma once

#include "platform/Descriptor.h"

namespace tidlo {

/// A socket that takes connections at a free port of 127.0.0.1. Programs that are started do not get it. Not valid,
/// with the reason, where the system refuses.
Descriptor listenOnLoopback();

/// The port of such a socket; 0 if the system does not tell.
int portOf(const Descriptor &listener);

/// Whether anybody takes connections at \a port of 127.0.0.1 or ::1. A loopback address answers at once.
bool isAnsweredOnLoopback(int port);

} // namespace tidlo
