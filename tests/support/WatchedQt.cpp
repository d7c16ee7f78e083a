// Tells the thread sanitizer about Qt, which is not built for it. These functions replace functions of Qt that our code
// calls: each calls Qt's own, and reports the synchronisation that it does to the sanitizer.

#include <QFutureInterface>
#include <QRunnable>
#include <QThreadPool>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

/// Qt's own function called \a name in its library.
template <typename Function>
Function ofQt(const char *name)
{
    void *found = dlsym(RTLD_NEXT, name);
    if (found == nullptr) {
        std::fprintf(stderr, "WatchedQt: Qt has no %s by now.\n", name);
        std::abort();
    }
    Function function;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

/// A job of a pool: everything done before it was queued happens before it begins.
class WatchedJob final : public QRunnable
{
public:
    explicit WatchedJob(QRunnable *job)
        : job(job)
    {
        __tsan_release(this);
    }

    void run() override
    {
        __tsan_acquire(this);
        const bool isOurs = job->autoDelete();
        job->run();
        if (isOurs)
            delete job;
    }

private:
    QRunnable *job;
};

} // namespace

void QThreadPool::start(QRunnable *job, int priority)
{
    using Start = void (*)(QThreadPool *, QRunnable *, int);
    static const auto start = ofQt<Start>("_ZN11QThreadPool5startEP9QRunnablei");
    start(this, new WatchedJob(job), priority);
}

/// The last owner of a future frees what all others have used.
bool QFutureInterfaceBase::derefT() const noexcept
{
    using Deref = bool (*)(const QFutureInterfaceBase *);
    static const auto deref = ofQt<Deref>("_ZNK20QFutureInterfaceBase6derefTEv");
    void *shared = d;
    __tsan_release(shared);
    const bool isUsed = deref(this);
    __tsan_acquire(shared);
    return isUsed;
}
