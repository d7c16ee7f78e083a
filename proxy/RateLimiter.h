#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <chrono>
#include <list>

namespace tidlo::proxy {

/// Limits how often each device may ask. It remembers the last minute, by a keyed hash of the device's identifier. The
/// key is made at each start and stored nowhere; the identifier itself is not kept.
class RateLimiter final
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Each device may ask \a perMinute times in any minute; 0 means without limit. At most \a mostDevices are
    /// remembered: beyond that, each new device replaces the one that has not asked for longest. A client that invents
    /// that many identifiers gains nothing by it, and shuts nobody out.
    explicit RateLimiter(int perMinute, qsizetype mostDevices = 100'000);

    /// Whether \a device may ask at \a now, which must never run backwards. 0 means yes, and the question is counted;
    /// otherwise the number of whole seconds to wait, and the question is not counted.
    std::chrono::seconds admit(const QByteArray &device, Time now);

private:
    struct Device
    {
        QByteArray who;    ///< The hash of the identifier.
        QList<Time> asked; ///< The times of the last minute, the oldest first; never empty.
    };

    void forgetBefore(Time begin);
    void forgetFirst();

    const int perMinute;
    const qsizetype mostDevices;
    const QByteArray key;
    std::list<Device> devices; ///< The device that asked last is at the end.
    QHash<QByteArray, std::list<Device>::iterator> places;
};

} // namespace tidlo::proxy
