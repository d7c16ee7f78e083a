#pragma once

#include "app/OpenModel.h"
#include "fakes/FakeFileManager.h"
#include "fakes/FakeWorkspace.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"
#include "support/WaitUntil.h"
#include "ui/DemoState.h"

#include <gmock/gmock.h>

namespace tidlo {

/// A state owner with a home folder, a desktop and preferences of its own, and without explanations.
class UiTest : public testing::Test
{
protected:
    UiTest();
    ~UiTest() override;

    /// The state owner, made on first use; the disk's figures have been read and reset by then.
    OpenModel &app();

    /// How often \a signal of \a sender is emitted while \a act runs.
    template <typename Sender, typename Signal, typename Act>
    static int times(Sender &sender, Signal signal, Act act)
    {
        int count = 0;
        const auto connection = QObject::connect(&sender, signal, [&count] { ++count; });
        act();
        QObject::disconnect(connection);
        return count;
    }

    TemporaryHome home;
    std::shared_ptr<testing::NiceMock<FakeFileManager>> files =
        std::make_shared<testing::NiceMock<FakeFileManager>>(home.path());
    std::shared_ptr<testing::NiceMock<FakeWorkspace>> workspace = std::make_shared<testing::NiceMock<FakeWorkspace>>();
    AppEnvironment environment = withFakes();

private:
    AppEnvironment withFakes() const;

    std::unique_ptr<OpenModel> owner;
};

/// A candidate with that risk, selected unless it is never to be touched.
CleanupCandidate candidate(CleanupRisk risk, qint64 bytes = 1, CleanupCategory category = CleanupCategory::caches);

} // namespace tidlo
