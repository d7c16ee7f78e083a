#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <utility>

/// The body of a request that must be sent once at most. When a connection closes without an answer, Qt sends the
/// request up to three times more, unless its body cannot be read again.
class OneTimeBody final : public QIODevice
{
public:
    explicit OneTimeBody(QByteArray body)
        : rest(std::move(body))
    {
        open(ReadOnly | Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool reset() override { return false; }
    bool atEnd() const override { return rest.isEmpty(); }
    qint64 bytesAvailable() const override { return rest.size(); }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        if (rest.isEmpty())
            return -1;
        const qint64 count = qMin(maxSize, rest.size());
        std::copy_n(rest.cbegin(), count, data);
        rest.remove(0, count);
        return count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray rest;
};
