#pragma once

#include "platform/Process.h"

#include <QThreadPool>
#include <QtConcurrentRun>

#include <exception>

namespace tidlo {

/// Runs one job at a time, in order, on another thread, which has a lower priority than the caller's. The destructor
/// waits for all jobs.
class SerialExecutor final
{
public:
    SerialExecutor()
    {
        pool.setMaxThreadCount(1);
        pool.setExpiryTimeout(-1); // Keeps the thread: later the system may have no other to give.
    }

    /// The future result of \a job, a callable without arguments. It must not be cancelled. An exception, such as for
    /// lack of memory, ends the program: left in the future it would be lost, and the caller would wait forever.
    template <typename Job>
    auto run(Job job)
    {
        return QtConcurrent::run(&pool, [job = std::move(job)] {
            standBack(); // For each job, since the pool may have started another thread.
            try {
                return job();
            } catch (...) {
                std::terminate(); // Called here, it reports what was thrown.
            }
        });
    }

    /// Blocks until every job given so far has run.
    void waitForDone() { pool.waitForDone(); }

private:
    QThreadPool pool;
};

} // namespace tidlo
