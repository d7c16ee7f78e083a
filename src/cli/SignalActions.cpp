#include "cli/SignalActions.h"

namespace tidlo {

SignalActions::SignalActions(void (*handler)(int signal))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    for (size_t i = 0; i < signals.size(); ++i) {
        sigaction(signals[i], nullptr, &former[i]);
        if (former[i].sa_handler != SIG_IGN)
            sigaction(signals[i], &action, nullptr);
    }
}

SignalActions::~SignalActions()
{
    for (size_t i = 0; i < signals.size(); ++i)
        sigaction(signals[i], &former[i], nullptr);
}

} // namespace tidlo
