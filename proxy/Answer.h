#pragma once

#include "ai/GeminiRecords.h"

namespace tidlo::proxy {

/// What the service says to one request.
struct Answer
{
    int status = 200;
    QByteArray body = {};  ///< JSON, as the client's records describe it.
    QByteArray error = {}; ///< A word for the log; empty unless something failed.
    QByteArray allow = {}; ///< The methods that the address allows; empty unless another was used.
    int retryAfter = 0;    ///< Seconds after which to try again, 0 if that is not known.
};

/// An explanation that consists of \a text.
Answer explanation(const QString &text);

/// Why there is no explanation.
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

/// Its status, a word for programs and the log, and a sentence for the person who reads it in place of the explanation,
/// which \a detail is put behind, or into where it leaves room for it.
Answer refusal(Refusal reason, const QString &detail = {});

/// A device has asked too often, and may ask again after \a seconds.
Answer tooOften(int seconds);

} // namespace tidlo::proxy
