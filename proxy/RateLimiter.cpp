#include "proxy/RateLimiter.h"

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

#include <array>

namespace tidlo::proxy {
namespace {

constexpr std::chrono::minutes window(1);

QByteArray randomKey()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    return {reinterpret_cast<const char *>(words.data()), sizeof words};
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
    forgetBefore(now - window);
    const QByteArray who = QMessageAuthenticationCode::hash(device, key, QCryptographicHash::Sha256);
    auto place = places.find(who);
    if (place == places.end()) {
        if (places.size() >= mostDevices)
            forgetFirst();
        place = places.insert(who, devices.insert(devices.end(), {.who = who, .asked = {}}));
    }
    QList<Time> &asked = (*place)->asked;
    asked.removeIf([now](Time time) { return time <= now - window; });
    if (asked.size() >= perMinute)
        return std::chrono::ceil<std::chrono::seconds>(asked.constFirst() + window - now);
    asked.append(now);
    devices.splice(devices.end(), devices, *place);
    return {};
}

void RateLimiter::forgetBefore(Time begin)
{
    while (!devices.empty() && devices.front().asked.constLast() <= begin)
        forgetFirst();
}

void RateLimiter::forgetFirst()
{
    places.remove(devices.front().who);
    devices.pop_front();
}

} // namespace tidlo::proxy
