#include "platform/linux/OpenFolder.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <climits>

namespace tidlo {

TEST(OpenFolder, IsOpenedWhateverTheLengthOfItsPathIs)
{
    const TemporaryHome home;
    const FilePath folder = home.folder("folder");
    for (qsizetype length = PATH_MAX - 3; length <= PATH_MAX + 3; ++length) {
        FilePath path = folder;
        while (path.size() < length) // Appends components that lead to the same place.
            path += path.endsWith('.') || path.size() + 1 == length ? "/" : "/.";
        path.truncate(length);
        const auto opened = openFolder({}, path);
        ASSERT_TRUE(opened) << length;
        EXPECT_EQ(opened->path, folder) << length;
    }
}

} // namespace tidlo
