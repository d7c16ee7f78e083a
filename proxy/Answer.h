#pragma once

#include "ai/GeminiRecords.h"

#include <span>

/// What the service says to one request.
struct Answer
{
    int status = 200;
    QByteArray body = {};  ///< JSON, as the client's records describe it.
    QByteArray error = {}; ///< A word for the log; empty unless something failed.
    int retryAfter = 0;    ///< Seconds after which to try again, 0 if nothing is known about that.
};

/// An explanation that consists of \a text.
Answer explanation(const QString &text);

/// How it is told that something ended with \a status: a word for programs and a sentence for a person.
struct FailureWords
{
    int status;
    const char *error;
    const char *message;
};

/// The row of \a table for \a status, or \a otherwise if it has none.
FailureWords wordsFor(int status, std::span<const FailureWords> table, const FailureWords &otherwise);

/// A failure: a word for programs and a sentence for the person who reads it in place of the explanation.
Answer failure(int status, const char *error, const QString &message);
