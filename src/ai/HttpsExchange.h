#pragma once

#include "ai/HttpMessages.h"

#include <atomic>
#include <memory>

#include <curl/curl.h>

namespace tidlo {

/// Sends requests, one at a time, on a thread that may block, until another thread stops it.
class HttpsExchange final
{
public:
    /// Sends \a request, with its headers and those that HTTP needs, and waits for the end of the reply. No connection
    /// is kept or reused, no password is offered to the server, no redirect is followed and a POST is never sent twice.
    /// Interim replies are skipped; the last of them is the reply if no other follows. A reply that is cut short,
    /// compressed or larger than its limit is a failure whatever its status; so is one with more than 256 KB in
    /// addition to its body.
    HttpsReply perform(const HttpsRequest &request);

    /// Ends perform() at once with a failure, and makes every later call fail at its start. Any thread.
    void stop();

private:
    struct Release
    {
        void operator()(CURLM *handle) const { curl_multi_cleanup(handle); }
    };

    std::unique_ptr<CURLM, Release> multi{curl_multi_init()};
    std::atomic<bool> stopped = false;
};

} // namespace tidlo
