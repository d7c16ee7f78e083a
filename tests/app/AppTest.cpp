#include "app/AppTest.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace tidlo {

AppTest::AppTest() = default;

AppTest::~AppTest()
{
    letAllEnd();
}

AppEnvironment AppTest::environment()
{
    return {.fileManager = files,
            .explain = explainer.explain(),
            .defaults = defaults,
            .workspace = workspace,
            .bundle = [this] { return bundle; },
            .applicationPath = applicationPath,
            .temporaryFolder = temporaryFolder};
}

OpenModel &AppTest::model()
{
    if (!owner) {
        owner = std::make_unique<OpenModel>(environment());
        bool isRead = false;
        const auto connection =
            QObject::connect(owner.get(), &AppViewModel::totalsChanged, [&isRead] { isRead = true; });
        waitUntil([&isRead] { return isRead; });
        QObject::disconnect(connection);
    }
    return *owner;
}

void AppTest::waitUntil(const std::function<bool()> &condition)
{
    QEventLoop loop;
    while (!condition())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void AppTest::letAllEnd()
{
    owner.reset();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void AppTest::scan()
{
    const size_t asked = explainer.asked();
    model().startScan();
    waitUntil([&] { return explainer.asked() > asked; });
}

CleanupCandidate candidate(const char *title, CleanupRisk risk, qint64 bytes, CleanupCategory category)
{
    CleanupCandidate candidate;
    candidate.title = QString::fromLatin1(title);
    candidate.risk = risk;
    candidate.bytes = bytes;
    candidate.category = category;
    candidate.selected = risk != CleanupRisk::never;
    return candidate;
}

} // namespace tidlo
