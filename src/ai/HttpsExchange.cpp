#include "ai/HttpsExchange.h"

#include <array>

namespace tidlo {

namespace {

constexpr qint64 mostAroundTheBody = qint64(256) * 1024;

struct Setting
{
    CURLoption option;
    long value;
};

constexpr std::array settings{
    Setting{CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1},
    Setting{CURLOPT_HTTPAUTH, CURLAUTH_NONE},
    Setting{CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2},
    Setting{CURLOPT_FORBID_REUSE, 1}, // libcurl repeats a request if a reused connection turns out to be closed.
    Setting{CURLOPT_NOSIGNAL, 1},
    Setting{CURLOPT_QUICK_EXIT, 1}, // A slow resolver is not waited for.
    Setting{CURLOPT_VERBOSE, 1},    // Reports every byte.
};

template <auto release>
struct Release
{
    void operator()(auto *handle) const { release(handle); }
};

using Transfer = std::unique_ptr<CURL, Release<curl_easy_cleanup>>;
using HeaderLines = std::unique_ptr<curl_slist, Release<curl_slist_free_all>>;

/// The part of a reply that has arrived, until it is refused.
struct Arrival
{
    qint64 limit;
    QByteArray body{};
    qint64 received = 0; ///< All bytes, whatever their purpose.
    const char *refusal = nullptr;
    std::array<char, CURL_ERROR_SIZE> words{}; ///< libcurl's message for a failure.

    void refuseIf(bool condition, const char *reason)
    {
        if (condition)
            refusal = reason;
    }
    void refuseTooLarge()
    {
        refuseIf(body.size() > limit || received > limit + mostAroundTheBody, "The reply is too large.");
    }
    /// The result that libcurl expects for \a size bytes.
    std::size_t taken(std::size_t size) const { return refusal == nullptr ? size : CURL_WRITEFUNC_ERROR; }
};

std::size_t takeHeader(char *data, std::size_t, std::size_t size, void *user)
{
    auto *arrival = static_cast<Arrival *>(user);
    const QByteArray line = QByteArray(data, static_cast<qsizetype>(size)).simplified().toLower();
    arrival->refuseIf(line.startsWith("content-encoding:") ||
                          (line.startsWith("transfer-encoding:") && line != "transfer-encoding: chunked"),
                      "The reply is compressed.");
    return arrival->taken(size);
}

std::size_t takeBody(char *data, std::size_t, std::size_t size, void *user)
{
    auto *arrival = static_cast<Arrival *>(user);
    arrival->body.append(data, static_cast<qsizetype>(size));
    arrival->refuseTooLarge();
    return arrival->taken(size);
}

/// Sees all data, encrypted or not; cannot end the transfer by itself.
int count(CURL *, curl_infotype type, char *, std::size_t size, void *user)
{
    auto *arrival = static_cast<Arrival *>(user);
    if (type == CURLINFO_SSL_DATA_IN || type == CURLINFO_HEADER_IN || type == CURLINFO_DATA_IN)
        arrival->received += static_cast<qint64>(size);
    arrival->refuseTooLarge();
    return 0;
}

HeaderLines headerLines(const QList<HttpHeader> &headers)
{
    HeaderLines lines;
    const auto append = [&lines](const QByteArray &line) {
        lines.reset(curl_slist_append(lines.release(), line.constData()));
    };
    for (const auto &[name, value] : headers)
        append(name + ": " + value);
    append("Accept:"); // Without a value, the header is not sent.
    append("Expect:");
    return lines;
}

void set(const Transfer &transfer, CURLoption option, auto value)
{
    curl_easy_setopt(transfer.get(), option, value);
}

/// Sets what is sent, and to whom. The request and the header lines must exist as long as the transfer.
void describe(const Transfer &transfer, const HttpsRequest &request, const HeaderLines &headers)
{
    for (const auto &[option, value] : settings)
        set(transfer, option, value);
    set(transfer, CURLOPT_PROTOCOLS_STR, "https");
    set(transfer, CURLOPT_URL, request.url.toEncoded().constData());
    set(transfer, CURLOPT_HTTPHEADER, headers.get());
    if (request.body) {
        set(transfer, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{request.body->size()});
        set(transfer, CURLOPT_POSTFIELDS, request.body->constData());
    }
    set(transfer, CURLOPT_PROXY, request.proxy.constData());
    set(transfer, CURLOPT_NOPROXY, ""); // The chosen proxy already takes the exceptions into account.
    curl_blob authorities{.data = const_cast<char *>(request.authorities.constData()),
                          .len = static_cast<std::size_t>(request.authorities.size()),
                          .flags = CURL_BLOB_NOCOPY};
    set(transfer, CURLOPT_CAINFO_BLOB, &authorities);
}

void receive(const Transfer &transfer, Arrival &arrival)
{
    set(transfer, CURLOPT_HEADERFUNCTION, takeHeader);
    set(transfer, CURLOPT_HEADERDATA, &arrival);
    set(transfer, CURLOPT_WRITEFUNCTION, takeBody);
    set(transfer, CURLOPT_WRITEDATA, &arrival);
    set(transfer, CURLOPT_DEBUGFUNCTION, count);
    set(transfer, CURLOPT_DEBUGDATA, &arrival);
    set(transfer, CURLOPT_ERRORBUFFER, arrival.words.data());
}

int statusOf(const Transfer &transfer)
{
    long status = 0;
    curl_easy_getinfo(transfer.get(), CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
}

QUrl redirectOf(const Transfer &transfer, const QUrl &url)
{
    curl_header *location = nullptr;
    if (curl_easy_header(transfer.get(), "Location", 0, CURLH_HEADER, -1, &location) != CURLHE_OK)
        return {};
    const QUrl target = QUrl::fromEncoded(QByteArray(location->value).trimmed());
    return target.isEmpty() ? QUrl() : url.resolved(target);
}

/// Empty if the reply is complete, or is an interim one that no other followed.
QString failureOf(const Arrival &arrival, CURLcode outcome, int status)
{
    const bool isInterim = status >= 100 && status <= 199;
    if (arrival.refusal != nullptr)
        return QString::fromLatin1(arrival.refusal);
    if (outcome == CURLE_OK || isInterim)
        return {};
    return QString::fromUtf8(arrival.words[0] == '\0' ? curl_easy_strerror(outcome) : arrival.words.data());
}

} // namespace

HttpsReply HttpsExchange::perform(const HttpsRequest &request)
{
    Arrival arrival{.limit = request.replyLimit};
    const HeaderLines headers = headerLines(request.headers);
    const Transfer transfer(curl_easy_init());
    describe(transfer, request, headers);
    receive(transfer, arrival);

    curl_multi_add_handle(multi.get(), transfer.get());
    for (int running = 1; running > 0 && arrival.refusal == nullptr && !stopped;) {
        curl_multi_poll(multi.get(), nullptr, 0, 60'000, nullptr); // The first call returns at once.
        curl_multi_perform(multi.get(), &running);
    }
    int others = 0;
    const CURLMsg *end = curl_multi_info_read(multi.get(), &others);
    const CURLcode outcome = end == nullptr ? CURLE_ABORTED_BY_CALLBACK : end->data.result;
    curl_multi_remove_handle(multi.get(), transfer.get());

    const int status = statusOf(transfer);
    return {.status = status,
            .body = arrival.body,
            .redirect = redirectOf(transfer, request.url),
            .failure = failureOf(arrival, outcome, status)};
}

void HttpsExchange::stop()
{
    stopped = true;
    curl_multi_wakeup(multi.get());
}

} // namespace tidlo
