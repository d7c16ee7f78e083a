// Moves each argument to the Trash, with the same call as the application, and prints one line for each: "moved",
// "gone", "refused: why", "failed: why" or "another moved: why". The exit status is 0 only if all were moved.

#include "platform/FileManager.h"

#include <cstdio>
#include <span>

namespace tidlo {

namespace {

const char *word(TrashOutcome::Kind kind)
{
    switch (kind) {
    case TrashOutcome::Kind::moved:
        return "moved";
    case TrashOutcome::Kind::gone:
        return "gone";
    case TrashOutcome::Kind::refused:
        return "refused: ";
    case TrashOutcome::Kind::failed:
        return "failed: ";
    case TrashOutcome::Kind::anotherMoved:
        return "another moved: ";
    }
    Q_UNREACHABLE();
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const std::unique_ptr<FileManager> files = makeFileManager();
    bool allMoved = true;
    for (const char *path : std::span(arguments, static_cast<size_t>(count)).subspan(1)) {
        const TrashOutcome outcome = files->trashItem(path);
        std::printf("%s%s\n", word(outcome.kind), outcome.reason.toLocal8Bit().constData());
        std::fflush(stdout); // Prints each line at once, before the next item is moved.
        allMoved = allMoved && outcome.kind == TrashOutcome::Kind::moved;
    }
    return allMoved ? 0 : 1;
}
