#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <chrono>
#include <mutex>

/// How often each device may ask. It remembers the last minute, by a keyed hash of the device's identifier whose key is
/// made by every start and kept nowhere; the identifier itself is forgotten at once. May be called from any thread.
class RateLimiter final
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Each device may ask \a perMinute times in any minute, 0 meaning as often as it likes. No more than
    /// \a mostDevices are remembered: as long as so many have asked within a minute, new ones must wait.
    explicit RateLimiter(int perMinute, qsizetype mostDevices = 100'000);

    /// Whether \a device may ask at \a now, which never runs backwards: 0 if so, and it is counted, else the whole
    /// seconds to wait, which is not.
    std::chrono::seconds admit(const QByteArray &device, Time now);

private:
    void forgetBefore(Time begin);

    const int perMinute;
    const qsizetype mostDevices;
    const QByteArray key;
    std::mutex mutex;
    QHash<QByteArray, QList<Time>> asked; ///< When, by the hash of who; the oldest first.
    Time swept;                           ///< When those that are idle were last forgotten.
};
