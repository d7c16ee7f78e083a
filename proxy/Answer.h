#pragma once

#include "ai/GeminiRecords.h"

namespace tidlo::proxy {

/// The service's response to one request.
struct Answer
{
    int status = 200;
    QByteArray body = {};  ///< JSON in the format of the client's records.
    QByteArray error = {}; ///< A word for the log; empty unless something failed.
    QByteArray allow = {}; ///< The methods that the address allows; empty unless another one was used.
    int retryAfter = 0;    ///< Seconds after which to try again; 0 if unknown.
};

/// An explanation that consists of \a text.
Answer explanation(const QString &text);

/// The reasons for which there is no explanation.
enum class Refusal {
    badRequest,
    noDevice,
    notFound,
    notAllowed,
    notWhole,
    noLength,
    tooLong,
    addressTooLong,
    notJson,
    packed,
    tooOften,
    headTooLong,
    failed,
    unknownMethod,
    busy,
    modelRefused,
    modelBusy,
    modelFailed,
    modelSilent,
    modelUnreachable,
    modelLate,
};

/// The response for \a reason: its status, a word for programs and the log, and a sentence for the person who reads it
/// in place of the explanation. \a detail is inserted where the sentence has room for it, or else appended.
Answer refusal(Refusal reason, const QString &detail = {});

/// The response to a device that has asked too often, and may ask again after \a seconds.
Answer tooOften(int seconds);

} // namespace tidlo::proxy
