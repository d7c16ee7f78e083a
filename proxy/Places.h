#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>

#include <boost/asio/ip/address.hpp>

namespace tidlo::proxy {

/// Counts connections, all of them and those of each address. A client with many IPv6 addresses has them in one network
/// of 64 bits, which counts as one address. An IPv4 address written as an IPv6 one counts as itself.
class Places final
{
public:
    /// A place is free again when this ends; Places must still exist then.
    using Place = std::shared_ptr<void>;

    /// \a mostOfAddress may be 0: then addresses do not count. \a left is called when a place is free again.
    Places(size_t most, size_t mostOfAddress, std::function<void()> left);

    /// Nothing if there is none for \a address. Whether there is one at all is to be asked before.
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
