#pragma once

#include "platform/Workspace.h"

#include <gmock/gmock.h>

namespace tidlo {

/// A desktop that does nothing. The test decides when an application counts as opened.
class FakeWorkspace : public Workspace
{
public:
    FakeWorkspace();
    ~FakeWorkspace() override; // Defined in another file, so that not every test compiles the whole class.

    MOCK_METHOD(void, registerApplication, (const FilePath &), (override));
    MOCK_METHOD(void, openApplication, (const FilePath &, Opened), (override));
    MOCK_METHOD(void, showInFiles, (const FilePath &), (override));
    MOCK_METHOD(std::optional<QString>, start, (const FilePath &, const QByteArrayList &), (override));
    MOCK_METHOD(void, terminateApplication, (), (override));

    Opened opened; ///< Of the last call.
};

} // namespace tidlo
