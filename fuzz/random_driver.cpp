// Feeds a fuzz target with random inputs: usage: PROGRAM SECONDS [SEED]. Says the seed of each input before it runs, so
// that the last line names the one that failed.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    const double seconds = argc > 1 ? std::atof(argv[1]) : 10;
    unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    const bool once = argc > 2;
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    double slowest = 0;
    for (;; ++seed) {
        std::mt19937_64 random(seed);
        std::vector<std::uint8_t> input(random() % 600);
        for (std::uint8_t& byte : input) byte = static_cast<std::uint8_t>(random());
        const auto began = Clock::now();
        std::fprintf(stderr, "\rseed %lu ", seed);
        LLVMFuzzerTestOneInput(input.data(), input.size());
        const std::chrono::duration<double> taken = Clock::now() - began, total = Clock::now() - start;
        if (taken.count() > slowest) {
            slowest = taken.count();
            std::printf("seed %lu took %.3f s\n", seed, slowest);
        }
        if (once || total.count() > seconds) break;
    }
    std::printf("%lu: no failure\n", seed);
}
