#include "ai/HttpsExchange.h"

#include <array>

namespace {

constexpr qint64 mostAroundTheBody = 256 * 1024;

struct Setting
{
    CURLoption option;
    long value;
};

constexpr std::array settings{
    Setting{CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1},
    Setting{CURLOPT_HTTPAUTH, CURLAUTH_NONE},
    Setting{CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2},
    Setting{CURLOPT_FORBID_REUSE, 1}, // A request is sent again when a connection that was kept turns out to be closed.
    Setting{CURLOPT_NOSIGNAL, 1},
    Setting{CURLOPT_QUICK_EXIT, 1}, // A resolver that takes its time is not waited for.
    Setting{CURLOPT_VERBOSE, 1},    // Tells of every byte.
};

template <auto release>
struct Release
{
    void operator()(auto *handle) const { release(handle); }
};

using Transfer = std::unique_ptr<CURL, Release<curl_easy_cleanup>>;
using HeaderLines = std::unique_ptr<curl_slist, Release<curl_slist_free_all>>;

/// What arrives of a reply, until it is refused.
struct Arrival
{
    qint64 limit;
    QByteArray body{};
    qint64 received = 0; ///< Bytes, whatever they are for.
    const char *refusal = nullptr;

    void refuseIf(bool condition, const char *reason)
    {
        if (condition)
            refusal = reason;
    }
    void refuseTooLarge()
    {
        refuseIf(body.size() > limit || received > limit + mostAroundTheBody, "The reply is too large.");
    }
    /// What libcurl wants to be told after \a size bytes.
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

/// Sees all that comes, be it encrypted or not; cannot end it by itself.
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
    append("Accept:"); // Without a value: not sent.
    append("Expect:");
    return lines;
}

QUrl redirectOf(const Transfer &transfer, const QUrl &url)
{
    curl_header *location = nullptr;
    if (curl_easy_header(transfer.get(), "Location", 0, CURLH_HEADER, -1, &location) != CURLHE_OK)
        return {};
    const QUrl target = QUrl::fromEncoded(QByteArray(location->value).trimmed());
    return target.isEmpty() ? QUrl() : url.resolved(target);
}

} // namespace

HttpsReply HttpsExchange::perform(const HttpsRequest &request)
{
    const Transfer transfer(curl_easy_init());
    const auto set = [&transfer](CURLoption option, auto value) { curl_easy_setopt(transfer.get(), option, value); };
    for (const auto &[option, value] : settings)
        set(option, value);

    set(CURLOPT_URL, request.url.toEncoded().constData());
    set(CURLOPT_PROTOCOLS_STR, "https");
    const HeaderLines headers = headerLines(request.headers);
    set(CURLOPT_HTTPHEADER, headers.get());
    if (request.body) {
        set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{request.body->size()});
        set(CURLOPT_POSTFIELDS, request.body->constData());
    }
    set(CURLOPT_PROXY, request.proxy.constData());
    set(CURLOPT_NOPROXY, ""); // Whoever chose the proxy knew the exceptions.
    curl_blob authorities{.data = const_cast<char *>(request.authorities.constData()),
                          .len = static_cast<std::size_t>(request.authorities.size()),
                          .flags = CURL_BLOB_NOCOPY};
    set(CURLOPT_CAINFO_BLOB, &authorities);
    set(CURLOPT_CAPATH, static_cast<const char *>(nullptr));

    Arrival arrival{.limit = request.replyLimit};
    set(CURLOPT_HEADERFUNCTION, takeHeader);
    set(CURLOPT_HEADERDATA, &arrival);
    set(CURLOPT_WRITEFUNCTION, takeBody);
    set(CURLOPT_WRITEDATA, &arrival);
    set(CURLOPT_DEBUGFUNCTION, count);
    set(CURLOPT_DEBUGDATA, &arrival);
    std::array<char, CURL_ERROR_SIZE> words{};
    set(CURLOPT_ERRORBUFFER, words.data());

    curl_multi_add_handle(multi.get(), transfer.get());
    for (int running = 1; running > 0 && arrival.refusal == nullptr && !stopped;) {
        curl_multi_poll(multi.get(), nullptr, 0, 60'000, nullptr);
        curl_multi_perform(multi.get(), &running);
    }
    int others = 0;
    const CURLMsg *end = curl_multi_info_read(multi.get(), &others);
    const CURLcode outcome = end == nullptr ? CURLE_ABORTED_BY_CALLBACK : end->data.result;
    curl_multi_remove_handle(multi.get(), transfer.get());

    long status = 0;
    curl_easy_getinfo(transfer.get(), CURLINFO_RESPONSE_CODE, &status);
    const bool isInterim = status >= 100 && status <= 199;
    HttpsReply reply{.status = static_cast<int>(status),
                     .body = arrival.body,
                     .redirect = redirectOf(transfer, request.url),
                     .failure = {}};
    if (arrival.refusal != nullptr)
        reply.failure = QString::fromLatin1(arrival.refusal);
    else if (outcome != CURLE_OK && !isInterim)
        reply.failure = QString::fromUtf8(words[0] == '\0' ? curl_easy_strerror(outcome) : words.data());
    return reply;
}

void HttpsExchange::stop()
{
    stopped = true;
    curl_multi_wakeup(multi.get());
}
