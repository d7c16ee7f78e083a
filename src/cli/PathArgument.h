#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

// An argument of the command line is a text until options and values are separated; then it may be the bytes of a path.
// In the text, bytes that are not UTF-8 become lone low surrogates, U+DC80 to U+DCFF, so that none is lost.

/// The text of an \a argument.
QString argumentText(QByteArrayView argument);

/// The bytes of the argument whose text is \a argument.
FilePath pathOfArgument(const QString &argument);

} // namespace tidlo
