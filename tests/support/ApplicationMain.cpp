#include <QCoreApplication>

#include <gtest/gtest.h>

/// For tests of what needs an event loop.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
