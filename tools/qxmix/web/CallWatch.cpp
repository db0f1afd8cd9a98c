#include "workers/CallWatch.h"

#include "PageWatch.h"

#include <stdexcept>

namespace qxmix {

CallWatch::CallWatch() = default;
CallWatch::~CallWatch() = default;

void CallWatch::Begin(Milliseconds) {
    if (!TellPageOfCalculation()) {
        throw std::runtime_error("a calculation that takes too long");  // ends the worker
    }
}

void CallWatch::End(std::chrono::nanoseconds) {
}

}  // namespace qxmix
