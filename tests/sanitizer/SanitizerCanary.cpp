// Built only in the sanitizer preset, and expected to be caught: proves that
// the flags really reach the compiler and the runtimes report a fault.
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "undefined") == 0) {
        // Signed overflow by an amount the optimiser cannot know.
        volatile int big = INT_MAX;
        std::printf("%d\n", big + argc);
        return 0;
    }
    auto bytes = std::make_unique<char[]>(4);
    std::printf("%d\n", bytes[static_cast<std::size_t>(argc) + 3]);
    return 0;
}
