#include "Probe.h"

#include "platform/FileManager.h"
#include "support/InChild.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

namespace tidlo {

namespace {

const std::map<TrashOutcome::Kind, const char *> words{{TrashOutcome::Kind::moved, "moved"},
                                                       {TrashOutcome::Kind::gone, "gone"},
                                                       {TrashOutcome::Kind::refused, "refused: "},
                                                       {TrashOutcome::Kind::failed, "failed: "},
                                                       {TrashOutcome::Kind::anotherMoved, "another moved: "}};

/// Moves all paths and prints what became of each; in a process of its own.
bool moveAll(const ProbeRun &run)
{
    setenv("HOME", run.home.constData(), 1);
    if (run.dataHome.isEmpty())
        unsetenv("XDG_DATA_HOME");
    else
        setenv("XDG_DATA_HOME", run.dataHome.constData(), 1);
    const bool isReady = (run.workingFolder.isEmpty() || chdir(run.workingFolder.constData()) == 0) &&
                         (!run.withoutRights || geteuid() != 0 || becomeNobody());
    if (!isReady) {
        std::perror("probe");
        return false;
    }
    const std::unique_ptr<FileManager> files = makeFileManager();
    bool allMoved = true;
    for (const FilePath &path : run.paths) {
        const TrashOutcome outcome = files->trashItem(path);
        std::printf("%s%s\n", words.at(outcome.kind), outcome.reason.toLocal8Bit().constData());
        std::fflush(stdout); // Prints each line at once, before the next item is moved.
        allMoved = allMoved && outcome.kind == TrashOutcome::Kind::moved;
    }
    return allMoved;
}

ProbeResult resultOf(const ChildResult &child)
{
    ProbeResult result{.allMoved = child.succeeded, .lines = {}};
    std::istringstream output(child.output);
    for (std::string line; std::getline(output, line);)
        result.lines.push_back(line);
    return result;
}

} // namespace

ProbeResult probe(const ProbeRun &run)
{
    return resultOf(inChild([&run] { return moveAll(run); }));
}

std::vector<ProbeResult> probeAtOnce(const std::vector<ProbeRun> &runs)
{
    // A process for each run: threads would make this process fork while it has several.
    std::vector<FILE *> outputs(runs.size());
    std::ranges::generate(outputs, std::tmpfile);
    std::vector<pid_t> children;
    std::fflush(nullptr);
    for (size_t at = 0; at < runs.size(); ++at) {
        children.push_back(fork());
        if (children.back() != 0)
            continue;
        dup2(fileno(outputs[at]), STDOUT_FILENO);
        _exit(moveAll(runs[at]) ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    std::vector<ProbeResult> results;
    for (size_t at = 0; at < runs.size(); ++at) {
        int status = 0;
        waitpid(children[at], &status, 0);
        std::rewind(outputs[at]);
        ChildResult child{.succeeded = WIFEXITED(status) && WEXITSTATUS(status) == 0, .output = {}};
        for (int byte = 0; (byte = std::fgetc(outputs[at])) != EOF;)
            child.output += static_cast<char>(byte);
        std::fclose(outputs[at]);
        results.push_back(resultOf(child));
    }
    return results;
}

void giveAway(const TemporaryHome &home)
{
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0)
        return; // It runs as the same user.
    for (const auto &[path, entry] : home.inventory()) {
        if (lchown((home / FilePath::fromStdString(path)).constData(), nobody, nobody) != 0)
            std::abort();
    }
}

} // namespace tidlo
