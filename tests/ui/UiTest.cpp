#include "ui/UiTest.h"

#include <QCoreApplication>

namespace tidlo {

UiTest::UiTest() = default;

UiTest::~UiTest()
{
    owner.reset();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

AppEnvironment UiTest::withFakes() const
{
    AppEnvironment made = demoEnvironment(home.path());
    made.fileManager = files;
    made.workspace = workspace;
    return made;
}

OpenModel &UiTest::app()
{
    if (!owner) {
        owner = std::make_unique<OpenModel>(environment);
        bool isRead = false;
        const auto connection =
            QObject::connect(owner.get(), &AppViewModel::totalsChanged, [&isRead] { isRead = true; });
        waitUntil([&isRead] { return isRead; });
        QObject::disconnect(connection);
        owner->setTotals({});
    }
    return *owner;
}

CleanupCandidate candidate(CleanupRisk risk, qint64 bytes, CleanupCategory category)
{
    CleanupCandidate candidate;
    candidate.title = rawValue(category);
    candidate.risk = risk;
    candidate.bytes = bytes;
    candidate.category = category;
    candidate.selected = risk != CleanupRisk::never;
    return candidate;
}

} // namespace tidlo
