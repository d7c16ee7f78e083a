#pragma once

#include <chrono>
#include <concepts>
#include <utility>

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/thread_pool.hpp>
#include <boost/asio/use_awaitable.hpp>

namespace tidlo::proxy {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;
using Clock = std::chrono::steady_clock;

/// A coroutine. All coroutines run on the one thread of the loop, so that what they share needs no lock. They take
/// their parameters by value, and capture nothing.
template <typename Result>
using Task = asio::awaitable<Result>;

/// A completion token for Asio that throws nothing: `const auto [error, ...] = co_await ...`.
inline auto asTuple()
{
    return asio::as_tuple(asio::use_awaitable);
}

/// Wraps \a job in a coroutine.
template <std::invocable Job>
Task<std::invoke_result_t<Job>> called(Job job)
{
    co_return job();
}

/// Runs \a job on a thread of \a pool, which must outlive it; the coroutine that awaits it resumes on its own thread.
/// Exceptions of \a job are rethrown there.
template <std::invocable Job>
Task<std::invoke_result_t<Job>> on(asio::thread_pool *pool, Job job)
{
    co_return co_await asio::co_spawn(*pool, called(std::move(job)), asio::use_awaitable);
}

} // namespace tidlo::proxy
