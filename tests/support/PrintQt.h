#pragma once

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <ostream>

/// How GoogleTest shows Qt's texts, which it would take for lists of characters.
inline void PrintTo(const QByteArray &bytes, std::ostream *stream)
{
    testing::internal::UniversalPrint(bytes.toStdString(), stream);
}

inline void PrintTo(const QString &text, std::ostream *stream)
{
    testing::internal::UniversalPrint(text.toStdString(), stream);
}
