#pragma once

#include <QString>

namespace tidlo::proxy {

/// An explanation of the findings that \a prompt lists, written without an AI model: which is the largest, what can be
/// made again and how, what to look at first. It keeps to the rules that the prompt states, is shorter than 120 words,
/// and consists only of this service's own sentences, numbers and units; nothing that a name holds is ever repeated.
QString offlineExplanation(const QString &prompt);

} // namespace tidlo::proxy
