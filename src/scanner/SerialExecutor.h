#pragma once

#include "platform/Process.h"

#include <QThreadPool>
#include <QtConcurrentRun>

#include <exception>

namespace tidlo {

/// Runs one job at a time, in order, off the caller's thread, which goes first where both want a processor. The
/// destructor waits for all jobs.
class SerialExecutor final
{
public:
    SerialExecutor()
    {
        pool.setMaxThreadCount(1);
        pool.setExpiryTimeout(-1); // The thread that was had once is kept: later there may be none to be had.
    }

    /// The future result of \a job, a callable without arguments. It must not be cancelled. An exception, such as
    /// that no memory is left, ends the program: kept in the future it would be lost, and whoever waits would for ever.
    template <typename Job>
    auto run(Job job)
    {
        return QtConcurrent::run(&pool, [job = std::move(job)] {
            standBack(); // Each time, for the pool may have started another thread.
            try {
                return job();
            } catch (...) {
                std::terminate(); // From here it tells what was thrown.
            }
        });
    }

    /// Blocks until every job given so far has run.
    void waitForDone() { pool.waitForDone(); }

private:
    QThreadPool pool;
};

} // namespace tidlo
