#include "proxy/RateLimiter.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

#include <array>

namespace {

constexpr std::chrono::minutes window(1);

QByteArray randomKey()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    return {reinterpret_cast<const char *>(words.data()), sizeof words};
}

std::chrono::seconds secondsUntil(RateLimiter::Time end, RateLimiter::Time now)
{
    return std::chrono::ceil<std::chrono::seconds>(end - now);
}

} // namespace

RateLimiter::RateLimiter(int perMinute, qsizetype mostDevices)
    : perMinute(perMinute)
    , mostDevices(mostDevices)
    , key(randomKey())
{}

std::chrono::seconds RateLimiter::admit(const QByteArray &device, Time now)
{
    if (perMinute == 0)
        return {};
    const QByteArray who = QMessageAuthenticationCode::hash(device, key, QCryptographicHash::Sha256);
    const std::lock_guard lock(mutex);
    if (now - swept >= window)
        forgetBefore(now - window);
    if (!asked.contains(who) && asked.size() >= mostDevices)
        return secondsUntil(swept + window, now);

    QList<Time> &times = asked[who];
    times.removeIf([now](Time time) { return time <= now - window; });
    if (times.size() >= perMinute)
        return secondsUntil(times.constFirst() + window, now);
    times.append(now);
    return {};
}

void RateLimiter::forgetBefore(Time begin)
{
    swept = begin + window;
    asked.removeIf([begin](const auto &device) { return device.value().constLast() <= begin; });
}
