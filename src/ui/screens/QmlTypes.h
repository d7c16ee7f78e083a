#pragma once

#include "app/AppViewModel.h"

#include <qqml.h>

namespace tidlo {

/// Lets views take the state owner as a property.
struct AppViewModelForQml
{
    Q_GADGET
    QML_FOREIGN(AppViewModel)
    QML_NAMED_ELEMENT(AppViewModel)
    QML_UNCREATABLE("There is one, and it is given.")
};

} // namespace tidlo
