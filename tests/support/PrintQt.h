#pragma once

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <ostream>

/// Prints Qt's texts in GoogleTest, which would print them as lists of characters.
inline void PrintTo(const QByteArray &bytes, std::ostream *stream)
{
    testing::internal::UniversalPrint(bytes.toStdString(), stream);
}

inline void PrintTo(const QString &text, std::ostream *stream)
{
    testing::internal::UniversalPrint(text.toStdString(), stream);
}
