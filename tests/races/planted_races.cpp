// Changes one number on two threads at once, in the scanner, the client of the service or the state owner, so that the
// thread sanitizer must report it: planted_races scanner|client|state

#include "ai/GeminiClient.h"
#include "app/AppViewModel.h"
#include "fakes/FakeFileManager.h"
#include "scanner/FileSizeScanner.h"
#include "support/TemporaryHome.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <atomic>
#include <cstdio>
#include <thread>

namespace tidlo {

namespace {

/// The flags make the threads wait for each other, but order no memory accesses: they are relaxed.
class PlantedRace final
{
public:
    PlantedRace()
    {
        QObject::connect(&turn, &QTimer::timeout, &turn, [this] { changeOnMainThread(); });
        turn.start(0);
    }

    /// Returns after the main thread has changed the number as well.
    void changeElsewhere()
    {
        ++number;
        isChangedElsewhere.store(true, std::memory_order_relaxed);
        while (!isChangedOnMainThread.load(std::memory_order_relaxed))
            std::this_thread::yield();
    }

private:
    void changeOnMainThread()
    {
        if (!isChangedElsewhere.load(std::memory_order_relaxed))
            return;
        ++number;
        isChangedOnMainThread.store(true, std::memory_order_relaxed);
        turn.stop();
    }

    QTimer turn;
    qint64 number = 0; ///< The sanitizer remembers only a few accesses of each memory word.
    std::atomic<bool> isChangedElsewhere = false;
    std::atomic<bool> isChangedOnMainThread = false;
};

/// A file manager that takes part in \a race whenever a thread asks it for a volume's capacity.
std::shared_ptr<FileManager> racingFiles(const FilePath &home, PlantedRace &race)
{
    auto files = std::make_shared<testing::NiceMock<FakeFileManager>>(home);
    ON_CALL(*files, volumeCapacity).WillByDefault([&race](const FilePath &) {
        race.changeElsewhere();
        return std::optional<VolumeCapacity>();
    });
    return files;
}

void raceInScanner()
{
    const TemporaryHome home;
    PlantedRace race;
    FileSizeScanner scanner(racingFiles(home.path(), race));
    QCoro::waitFor(scanner.scan([](double, const QString &) {}));
}

void raceInClient()
{
    PlantedRace race;
    ExplainEndpoint endpoint;
    endpoint.host = QStringLiteral("127.0.0.1:1");
    endpoint.authorities = [&race] {
        race.changeElsewhere();
        return QByteArray();
    };
    QCoro::waitFor(GeminiClient::explain({}, endpoint));
}

void raceInState()
{
    const TemporaryHome home;
    PlantedRace race;
    AppEnvironment environment;
    environment.fileManager = racingFiles(home.path(), race);
    environment.defaults = std::make_shared<UserDefaults>(QFile::decodeName(home / "preferences.conf"));
    AppViewModel model(environment);
    QEventLoop loop;
    QObject::connect(&model, &AppViewModel::totalsChanged, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

} // namespace tidlo

int main(int argc, char **argv)
{
    using namespace tidlo;
    const QCoreApplication application(argc, argv);
    const QByteArrayView where = argc == 2 ? argv[1] : "";
    if (where == "scanner")
        raceInScanner();
    else if (where == "client")
        raceInClient();
    else if (where == "state")
        raceInState();
    else
        std::fputs("usage: planted_races scanner|client|state\n", stderr);
}
