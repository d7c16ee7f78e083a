#include "Probe.h"

#include "support/InChild.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

namespace tidlo {

namespace {

/// Replaces this process by the probe; returns only if that fails.
bool become(const ProbeRun &run)
{
    setenv("HOME", run.home.constData(), 1);
    if (run.dataHome.isEmpty())
        unsetenv("XDG_DATA_HOME");
    else
        setenv("XDG_DATA_HOME", run.dataHome.constData(), 1);
    std::vector<char *> arguments{const_cast<char *>(TRASH_PROBE)};
    for (const FilePath &path : run.paths)
        arguments.push_back(const_cast<char *>(path.constData()));
    arguments.push_back(nullptr);
    const bool isReady = (run.workingFolder.isEmpty() || chdir(run.workingFolder.constData()) == 0) &&
                         (!run.withoutRights || geteuid() != 0 || becomeNobody());
    if (isReady)
        execv(TRASH_PROBE, arguments.data());
    std::perror("trash_probe");
    return false;
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
    return resultOf(inChild([&run] { return become(run); }));
}

std::vector<ProbeResult> probeAtOnce(const std::vector<ProbeRun> &runs)
{
    // A process for each run: threads would make this process fork while it has several.
    std::vector<FILE *> outputs(runs.size());
    std::ranges::generate(outputs, std::tmpfile);
    std::vector<pid_t> children;
    for (size_t at = 0; at < runs.size(); ++at) {
        children.push_back(fork());
        if (children.back() != 0)
            continue;
        dup2(fileno(outputs[at]), STDOUT_FILENO);
        become(runs[at]);
        _exit(EXIT_FAILURE);
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
