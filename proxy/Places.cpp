#include "proxy/Places.h"

#include <algorithm>

namespace tidlo::proxy {
namespace {

namespace ip = boost::asio::ip;

ip::address counted(const ip::address &address)
{
    if (address.is_v4())
        return address;
    if (address.to_v6().is_v4_mapped())
        return ip::make_address_v4(ip::v4_mapped, address.to_v6());
    ip::address_v6::bytes_type bytes = address.to_v6().to_bytes();
    std::fill(bytes.begin() + 8, bytes.end(), static_cast<unsigned char>(0));
    return ip::address_v6(bytes);
}

} // namespace

Places::Places(size_t most, size_t mostOfAddress, std::function<void()> left)
    : most(most)
    , mostOfAddress(mostOfAddress)
    , left(std::move(left))
{}

Places::Place Places::take(const ip::address &address)
{
    size_t &count = ofAddress[counted(address)];
    if (mostOfAddress > 0 && count >= mostOfAddress)
        return nullptr;
    ++count;
    ++taken;
    return {this, [network = counted(address)](Places *places) { places->leave(network); }};
}

void Places::leave(const ip::address &network)
{
    --taken;
    const auto count = ofAddress.find(network);
    if (--count->second == 0)
        ofAddress.erase(count);
    left();
}

} // namespace tidlo::proxy
