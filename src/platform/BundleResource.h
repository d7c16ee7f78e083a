#pragma once

#include <QString>

/// Where the running application's bundle keeps the resource of \a name, whether there is one or not; empty without an
/// application object.
QString bundleResource(const QString &name);
