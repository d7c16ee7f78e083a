#pragma once

#include "model/FilePath.h"
#include "platform/Process.h"

#include <QUrl>

#include <optional>

namespace tidlo {

/// A tidlo-proxy that this program has started for itself: on a free port of the loopback address, with --offline and
/// an environment without keys. It ends with this object, and with the program, however that ends. For a thread that
/// may block.
class OwnService final
{
public:
    /// Starts the service \a program, and waits until it listens, ten seconds at most. Nothing if that fails; then
    /// \a obstacle says why, as the end of a sentence.
    static std::optional<OwnService> start(const FilePath &program, QString &obstacle);

    int port() const { return listening; }

private:
    OwnService(Descriptor life, ChildProcess process, int port)
        : life(std::move(life))
        , process(std::move(process))
        , listening(port)
    {}

    Descriptor life;      ///< The service ends when it reads the end of this pipe.
    ChildProcess process; ///< Killed first: all its files are complete at every moment.
    int listening;
};

/// The path of the tidlo-proxy that came with this program: beside it, or where packages put it. Empty if there is
/// none.
FilePath ownServiceProgram();

/// Whether \a host, which may have a port, names this machine: "localhost" or a loopback address.
bool isThisMachine(const QString &host);

/// Whether a server accepts connections at \a url, whose host is this machine. A loopback address answers at once.
bool isAnswered(const QUrl &url);

} // namespace tidlo
