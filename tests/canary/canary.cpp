/// Deliberate mistakes: each must be caught, or the checks around the other tests are asleep.
///   canary NAME

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

// Volatile, so that no compiler sees the mistakes coming and takes them away.
volatile unsigned one = 1;
volatile int largest = 0x7FFFFFFF;
volatile double tooLarge = 1e12;
int shared = 0;

void WriteBehindMemory() {
    auto* const memory = static_cast<volatile char*>(std::malloc(8));
    memory[7 + one] = 1;
    std::free(const_cast<char*>(memory));
}

void WriteBehindAnArray() {
    volatile char array[8] = {};
    volatile char* const first = array;
    first[7 + one] = 1;
}

void ReadFreedMemory() {
    auto* const memory = static_cast<volatile char*>(std::malloc(8));
    memory[0] = 1;
    std::free(const_cast<char*>(memory));
    std::printf("%d\n", memory[one - 1]);
}

void ReadUnwrittenMemory() {
    auto* const memory = static_cast<volatile char*>(std::malloc(8));
    if (memory[one] == 1) {
        std::puts("one");
    }
    std::free(const_cast<char*>(memory));
}

void LoseMemory() {
    // More than one, since the last address may linger in a register.
    for (unsigned count = 0; count < 10 * one; ++count) {
        std::printf("%s\n", std::malloc(1234) != nullptr ? "lost" : "nothing to lose");
    }
}

void OverflowASum() {
    std::printf("%d\n", largest + static_cast<int>(one));
}

void ConvertTooLargeANumber() {
    std::printf("%u\n", static_cast<unsigned>(static_cast<std::uint32_t>(tooLarge)));
}

void RaceOfThreads() {
    std::thread other([] { shared += static_cast<int>(one); });
    shared += 2;
    other.join();
    std::printf("%d\n", shared);
}

struct Mistake {
    const char* name;
    void (*make)();
};

constexpr Mistake kMistakes[] = {
    {"write-behind-memory", WriteBehindMemory},
    {"write-behind-array", WriteBehindAnArray},
    {"read-freed-memory", ReadFreedMemory},
    {"read-unwritten-memory", ReadUnwrittenMemory},
    {"lose-memory", LoseMemory},
    {"overflow-sum", OverflowASum},
    {"convert-too-large", ConvertTooLargeANumber},
    {"race", RaceOfThreads},
};

}  // namespace

int main(int count, char** arguments) {
    for (const Mistake& mistake : kMistakes) {
        if (count == 2 && std::strcmp(arguments[1], mistake.name) == 0) {
            mistake.make();
            std::puts("nobody noticed");
            return 0;
        }
    }
    std::fputs("usage: canary NAME\n", stderr);
    return 2;
}
