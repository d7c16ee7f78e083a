#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>

#include <boost/asio/ip/address.hpp>

namespace tidlo::proxy {

/// Counts connections, in total and for each address. The IPv6 addresses of one network of 64 bits count as one
/// address, since one client can have them all. An IPv4 address written as an IPv6 address counts as the IPv4 address.
class Places final
{
public:
    /// Holds a place until it is destroyed; Places must still exist then.
    using Place = std::shared_ptr<void>;

    /// If \a mostOfAddress is 0, connections are not counted by address. \a left is called when a place becomes free.
    Places(size_t most, size_t mostOfAddress, std::function<void()> left);

    /// A place for \a address, or null if the address has none left. Check first that there is any place at all.
    Place take(const boost::asio::ip::address &address);
    bool isFull() const { return taken >= most; }
    bool isEmpty() const { return taken == 0; }

private:
    void leave(const boost::asio::ip::address &network);

    const size_t most;
    const size_t mostOfAddress;
    const std::function<void()> left;
    size_t taken = 0;
    std::map<boost::asio::ip::address, size_t> ofAddress;
};

} // namespace tidlo::proxy
