// Measures the cost of hostile replies for the client: the time of decoding them, and the memory while they are decoded
// or received. Prints a line for each.

#include "ai/GeminiClient.h"
#include "ai/GeminiRecords.h"
#include "ai/ScriptedServer.h"
#include "platform/VisibleText.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <chrono>
#include <cstdio>

#include <malloc.h>

namespace tidlo {

namespace {

using Clock = std::chrono::steady_clock;

constexpr qsizetype megabyte = 1024 * 1024;

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// A figure of this process in kilobytes, such as "VmHWM", its peak memory.
double kilobytes(const QByteArray &figure)
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(figure + ':'))
            return line.sliced(figure.size() + 1).simplified().split(' ').first().toDouble();
    }
    return 0;
}

/// The most megabytes that \a act takes, beyond those in use before.
template <typename Act>
double megabytesFor(Act act)
{
    malloc_trim(0); // Otherwise free memory from before would be used again and not counted.
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    peak.open(QIODevice::WriteOnly);
    peak.write("5"); // Resets the peak to the current value.
    peak.close();
    const double before = kilobytes("VmRSS");
    act();
    return (kilobytes("VmHWM") - before) / 1024;
}

/// As many copies of \a middle as make a megabyte with the others.
QByteArray filled(const QByteArray &beginning, const QByteArray &middle, const QByteArray &end)
{
    return beginning + middle.repeated((megabyte - beginning.size() - end.size()) / middle.size()) + end;
}

QByteArray nested(qsizetype size, const QByteArray &open, const QByteArray &close)
{
    const qsizetype levels = size / (open.size() + close.size());
    return open.repeated(levels) + close.repeated(levels);
}

QByteArray manyKeys()
{
    QByteArray json = "{";
    for (int i = 0; json.size() < megabyte - 20; ++i)
        json += '"' + QByteArray::number(i) + "\":0,";
    return json + "\"candidates\":[]}";
}

/// An answer whose text consists of copies of \a unit.
QByteArray textOf(const QByteArray &unit)
{
    return filled(R"({"candidates":[{"content":{"parts":[{"text":")", unit, R"("}]}}]})");
}

struct Hostile
{
    const char *what;
    QByteArray bytes;
};

QList<Hostile> replies()
{
    const QByteArray parts = R"({"candidates":[{"content":{"parts":[)";
    const QByteArray end = "]}}]}";
    return {
        {"100,000 levels of lists", QByteArray(100'000, '[')},
        {"180 KB of lists under a key", "{\"x\":" + nested(180'000, "[", "]") + ",\"candidates\":[]}"},
        {"229 KB of nested objects", nested(229'000, "{\"x\":", "}")},
        {"855 KB of nested objects", nested(855'000, "{\"candidates\":", "}")},
        {"keys, each another", manyKeys()},
        {"one key, again and again", filled("{", "\"candidates\":[],", "\"candidates\":[]}")},
        {"lists of lists", filled("[", "[],", "[]]")},
        {"parts without a text", filled(parts, "{},", "{}" + end)},
        {"parts with a tiny text", filled(parts, R"({"text":"x"},)", "{}" + end)},
        {"4,900 parts that fill it",
         parts + (R"({"text":")" + QByteArray(190, 'x') + "\"},").repeated(4'900) + "{}" + end},
        {"numbers that are hard to read", filled("[", "1e-320,", "0]")},
        {"a number", filled("[0.", "7", "]")},
        {"a text", textOf("x")},
        {"a text of escapes", textOf("\\u202e")},
        {"a key", filled("{\"", "x", "\":0}")},
        {"spaces", filled("", " ", "")},
    };
}

void measureDecoding()
{
    std::printf("%-34s %8s %8s %9s  %s\n", "decoding", "size", "time", "memory", "outcome");
    for (const auto &[what, bytes] : replies()) {
        QString outcome;
        const auto read = [&outcome, &bytes = bytes] {
            const auto [record, error] = decode<GeminiGenerateResponse>(bytes);
            outcome = record ? QStringLiteral("decoded") : error;
        };
        const double megabytes = megabytesFor(read);
        double best = 1e9;
        for (int run = 0; run < 5; ++run) {
            const auto begin = Clock::now();
            read();
            best = std::min(best, millisecondsSince(begin));
        }
        std::printf("%-34s %5lld KB %5.1f ms %6.1f MB  %s\n", what, bytes.size() / 1024, best, megabytes,
                    qPrintable(outcome));
    }
}

/// The bytes that a server sends first, and then those that it repeats endlessly.
struct Endless
{
    const char *what;
    QByteArray beginning;
    QByteArray repeated;
};

QList<Endless> streams()
{
    const QByteArray chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const QByteArray block(64 * 1024, 'x');
    const QByteArray header = QByteArray("X:\r\n").repeated(16'000);
    return {
        {"a body", "HTTP/1.1 200 OK\r\n\r\n", block},
        {"a gzip member after another", "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n\r\n", block},
        {"a body packed for the way", "HTTP/1.1 200 OK\r\nTransfer-Encoding: zstd\r\n\r\n", block},
        {"chunks of a byte", chunked, QByteArray("1\r\nx\r\n").repeated(10'000)},
        {"the size of a chunk", chunked, QByteArray(64 * 1024, '0')},
        {"the extension of a chunk", chunked + "1;", block},
        {"trailers", chunked + "0\r\n", header},
        {"a trailer", chunked + "0\r\nX: ", block},
        {"headers", "HTTP/1.1 200 OK\r\n", header},
        {"a header", "HTTP/1.1 200 OK\r\nX: ", block},
        {"the lines of a header", "HTTP/1.1 200 OK\r\nX: y\r\n", QByteArray(" z\r\n").repeated(16'000)},
        {"a status line", "HTTP/1.1 200 ", block},
        {"interim replies", "", QByteArray("HTTP/1.1 103 Early Hints\r\n\r\n").repeated(2'000)},
        {"a megabyte of a text", reply(200, textOf("x")), ""},
        {"a megabyte of escapes", reply(200, textOf("\\u202e")), ""},
    };
}

/// Serves the stream with that number, after printing its port and the certificate to trust. Ends when its standard
/// input ends.
int serve(int number)
{
    const Endless stream = streams().at(number);
    const TestAuthority authority;
    const ScriptedServer server(authority.issue("localhost"),
                                [&](QSslSocket &connection, const ScriptedServer::Request &) {
                                    connection.write(stream.beginning);
                                    auto *timer = new QTimer(&connection);
                                    QObject::connect(timer, &QTimer::timeout, &connection, [&] {
                                        if (connection.bytesToWrite() == 0)
                                            connection.write(stream.repeated);
                                    });
                                    timer->start(1);
                                });
    std::printf("%s\n%s\n", qPrintable(server.host()), authority.certificate().constData());
    std::fflush(stdout);
    return QCoreApplication::exec();
}

void measureReceiving()
{
    std::printf("\n%-34s %8s %9s  %s\n", "receiving", "time", "memory", "outcome");
    for (int number = 0; number < streams().size(); ++number) {
        QProcess server;
        server.start(QCoreApplication::applicationFilePath(), {QString::number(number)});
        QByteArray said;
        while (!said.contains("END CERTIFICATE") && server.waitForReadyRead())
            said += server.readAllStandardOutput();
        ExplainEndpoint endpoint;
        endpoint.host = QString::fromLatin1(said.left(said.indexOf('\n')));
        endpoint.authorities = [said] { return said; };
        std::optional<QString> explanation;
        const auto begin = Clock::now();
        const double megabytes =
            megabytesFor([&] { explanation = QCoro::waitFor(GeminiClient::explain({}, endpoint)); });
        std::printf("%-34s %5.0f ms %6.1f MB  %s\n", streams().at(number).what, millisecondsSince(begin), megabytes,
                    qPrintable(visibleText(explanation.value_or(QStringLiteral("nothing")).left(60))));
        server.kill();
        server.waitForFinished();
    }
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const QCoreApplication application(count, arguments);
    if (count == 2)
        return serve(std::atoi(arguments[1]));
    measureDecoding();
    measureReceiving();
}
