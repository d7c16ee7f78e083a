#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

// An argument of the command line is a text while options are told from values, and may be the bytes of a path after
// that. Bytes that are no UTF-8 stand in the text as lone low surrogates, U+DC80 to U+DCFF, and so are not lost.

/// The text of an \a argument.
QString argumentText(QByteArrayView argument);

/// The bytes of the argument that has the text \a argument.
FilePath pathOfArgument(const QString &argument);

} // namespace tidlo
