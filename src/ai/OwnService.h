#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"

#include <QUrl>

#include <optional>

#include <sys/types.h>

namespace tidlo {

/// A tidlo-proxy that this program started for itself: on a free port of the loopback address, with --offline and an
/// environment without keys. It ends with this object, and with the program, however that ends. For a thread that may
/// wait.
class OwnService final
{
public:
    /// Starts the one at \a program, and waits until it listens, ten seconds at most. Nothing if that fails.
    static std::optional<OwnService> start(const FilePath &program);

    OwnService(OwnService &&other) noexcept;
    OwnService &operator=(OwnService &&) = delete;
    ~OwnService();

    int port() const { return listening; }

private:
    OwnService() = default;

    Descriptor life; ///< The service ends when the other end of this pipe is read to its end.
    pid_t process = -1;
    int listening = 0;
};

/// Where the tidlo-proxy lies that came with this program: beside it, or where packages put it. Empty if there is none.
FilePath ownServiceProgram();

/// Whether \a host, which may have a port, names this machine: "localhost" or an address of the loopback.
bool isThisMachine(const QString &host);

/// Whether anybody takes connections at \a url, whose host is this machine. A loopback address answers at once.
bool isAnswered(const QUrl &url);

} // namespace tidlo
