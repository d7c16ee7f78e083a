#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <cstdlib>

#include <sys/stat.h>

namespace tidlo {

using testing::ElementsAre;

namespace {

/// An imitation of a Mac for scripts/package_macos: its tools log how they are called.
class PackageMacOS : public testing::Test
{
protected:
    PackageMacOS()
    {
        EXPECT_TRUE(QFile::copy(QStringLiteral(TIDLO_SCRIPTS "/package_macos"),
                                QFile::decodeName(home.folder("scripts") + "/package_macos")));
        program("scripts/build", "echo build \"$@\"");
        program("bin/uname", "echo Darwin");
        for (const char *tool : {"codesign", "ditto", "spctl", "xcrun"})
            program(FilePath("bin/") + tool, FilePath("echo ") + tool + " \"$@\"");
        const FilePath contents = "build/release/Tidlo.app/Contents/";
        for (const char *file : {"Frameworks/QtCore.framework/QtCore", "Frameworks/libcurl.4.dylib", "MacOS/Tidlo",
                                 "MacOS/tidlo-cli", "PlugIns/platforms/libqcocoa.so"})
            home.file(contents + file, 1);
    }

    /// The lines that the tools logged, without the parts that are the same in all of them.
    QByteArrayList run(const QByteArray &arguments) const
    {
        const FilePath log = home / "log";
        EXPECT_EQ(std::system(("exec > '" + log + "'; PATH='" + home.path() + "/bin':$PATH bash '" + home.path() +
                               "/scripts/package_macos' " + arguments)
                                  .constData()),
                  0);
        QFile file(QFile::decodeName(log));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().replace("build/release/", "").trimmed().split('\n');
    }

    void program(const FilePath &name, const QByteArray &line) const
    {
        const FilePath path = home.file(name, 0);
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + line + '\n') > 0);
        chmod(path.constData(), 0755);
    }

    const TemporaryHome home;
};

} // namespace

TEST_F(PackageMacOS, SignsWhatLiesWithinBeforeWhatHoldsIt)
{
    const QByteArray sign = "codesign --force --sign - ";
    QByteArrayList said = run("-");
    ASSERT_GT(said.size(), 3);
    std::sort(said.begin() + 1, said.begin() + 3); // The order of files in a folder is undefined.

    EXPECT_THAT(said, ElementsAre("build release bundle", sign + "Tidlo.app/Contents/Frameworks/libcurl.4.dylib",
                                  sign + "Tidlo.app/Contents/PlugIns/platforms/libqcocoa.so",
                                  sign + "Tidlo.app/Contents/Frameworks/QtCore.framework",
                                  sign + "Tidlo.app/Contents/MacOS/tidlo-cli",
                                  sign + "--entitlements packaging/Tidlo.entitlements Tidlo.app",
                                  "codesign --verify --deep --strict --verbose=2 Tidlo.app"));
}

TEST_F(PackageMacOS, HandsOnOnlyWhatWasNotarised)
{
    const QByteArrayList said = run("'Developer ID Application: A' profile");

    EXPECT_THAT(said.mid(said.size() - 5),
                ElementsAre("ditto -c -k --keepParent Tidlo.app Tidlo.zip",
                            "xcrun notarytool submit Tidlo.zip --keychain-profile profile --wait",
                            "xcrun stapler staple Tidlo.app", "ditto -c -k --keepParent Tidlo.app Tidlo.zip",
                            "spctl --assess --type execute --verbose Tidlo.app"));
    EXPECT_TRUE(
        said.at(1).startsWith("codesign --force --sign Developer ID Application: A --options runtime --timestamp "));
}

TEST_F(PackageMacOS, EndsWhenASignatureFails)
{
    for (const char *item : {"libcurl.4.dylib", "QtCore.framework", "tidlo-cli", "Tidlo.app"}) {
        program("bin/codesign", FilePath("case $* in *") + item + ") exit 1;; esac");
        EXPECT_NE(std::system(("PATH='" + home.path() + "/bin':$PATH bash '" + home.path() +
                               "/scripts/package_macos' - > '" + home.path() + "/log'")
                                  .constData()),
                  0)
            << item;
    }
}

} // namespace tidlo
