// Throughput of the one-pass digest engine on one file, against each digest on
// its own and against the openssl command run once per digest; and the peak
// resident memory of the engine. Figures come from one run; the last line is
// the summary that docs/performance.md quotes.

#include "checksums/digest_engine.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

using namespace Zorvane;

namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double time_one_pass(const std::string& path, const std::vector<const EVP_MD*>& digests)
{
    const auto start = Clock::now();
    OnePassDigester digester(digests);
    ChunkedFileReader(path).feed(digester);
    static_cast<void>(digester.finish());
    return seconds_since(start);
}

double time_openssl(const std::string& path, const EVP_MD* digest)
{
    std::vector<std::string> arguments{"openssl", "dgst",
                                       std::string("-") + EVP_MD_get0_name(digest)};
    if ((EVP_MD_get_flags(digest) & EVP_MD_FLAG_XOF) != 0) {
        arguments.insert(arguments.end(), {"-xoflen", std::to_string(XofOutputLength)});
    }
    arguments.push_back(path);
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    const auto start = Clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, "openssl", &actions, nullptr, argv.data(), environ) != 0) {
        std::fprintf(stderr, "cannot start openssl\n");
        std::exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const double elapsed = seconds_since(start);
    posix_spawn_file_actions_destroy(&actions);
    return elapsed;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    const std::string path = argv[1];
    const double megabytes = static_cast<double>(file_size(path)) / 1e6;

    const std::vector<EvpMdPtr> catalogue = provided_digests();
    std::vector<const EVP_MD*> all;
    for (const EvpMdPtr& digest : catalogue) {
        all.push_back(digest.get());
    }

    fmt::print("file: {} ({:.0f} MB), {} digests\n\n", path, megabytes, all.size());
    fmt::print("{:<16} {:>12} {:>16}\n", "digest", "engine MB/s", "openssl dgst MB/s");
    double sumOfSingles = 0;
    double sumOfOpenssl = 0;
    for (const EVP_MD* digest : all) {
        const double single = time_one_pass(path, {digest});
        const double command = time_openssl(path, digest);
        sumOfSingles += single;
        sumOfOpenssl += command;
        fmt::print("{:<16} {:>12.0f} {:>16.0f}\n", EVP_MD_get0_name(digest), megabytes / single,
                   megabytes / command);
    }

    const double onePass = time_one_pass(path, all);
    fmt::print("\none pass over all digests: {:.2f} s, {:.1f} MB/s\n", onePass,
               megabytes / onePass);
    fmt::print("sum of single passes:      {:.2f} s\n", sumOfSingles);
    fmt::print("sum of openssl dgst runs:  {:.2f} s\n\n", sumOfOpenssl);

    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const double peakMib = static_cast<double>(usage.ru_maxrss) / 1024.0;
    fmt::print("one-pass/sum-of-singles: {:.3f}; one-pass/openssl-dgst-sum: {:.3f}; "
               "peak-rss-mib: {:.1f}\n",
               onePass / sumOfSingles, onePass / sumOfOpenssl, peakMib);
    return 0;
}
