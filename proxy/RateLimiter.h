#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <chrono>
#include <list>

namespace tidlo::proxy {

/// How often each device may ask. It remembers the last minute, by a keyed hash of the device's identifier whose key is
/// made by every start and kept nowhere; the identifier itself is forgotten at once.
class RateLimiter final
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Each device may ask \a perMinute times in any minute, 0 meaning as often as it likes. No more than
    /// \a mostDevices are remembered: then each new one makes it forget the one that has not asked for longest. Whoever
    /// invents so many identifiers has no use for that, and shuts nobody out.
    explicit RateLimiter(int perMinute, qsizetype mostDevices = 100'000);

    /// Whether \a device may ask at \a now, which never runs backwards: 0 if so, and it is counted, else the whole
    /// seconds to wait, which is not.
    std::chrono::seconds admit(const QByteArray &device, Time now);

private:
    struct Device
    {
        QByteArray who;    ///< A hash.
        QList<Time> asked; ///< In the last minute, the oldest first; never empty.
    };

    void forgetBefore(Time begin);
    void forgetFirst();

    const int perMinute;
    const qsizetype mostDevices;
    const QByteArray key;
    std::list<Device> devices; ///< Who asked last stands last.
    QHash<QByteArray, std::list<Device>::iterator> places;
};

} // namespace tidlo::proxy
