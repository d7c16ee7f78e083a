#pragma once

#include <QAnimationDriver>

#include <chrono>

namespace tidlo {

/// The clock of all animations while an object of this class exists: it stands still between steps. Main thread.
class SteppedTime final : public QAnimationDriver
{
public:
    SteppedTime() { install(); }
    ~SteppedTime() override { uninstall(); }

    void step(std::chrono::milliseconds by)
    {
        now += by;
        advance();
    }

    qint64 elapsed() const override { return now.count(); }

private:
    std::chrono::milliseconds now{0};
};

} // namespace tidlo
