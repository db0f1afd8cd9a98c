#include "workers/ChildProcess.h"

#include "InPlaceWorker.h"

namespace qxmix {

ChildProcess::ChildProcess(const std::function<void(Channel&)>& body)
    : process_(new InPlaceWorker), channel_(process_) {
    // Whoever waits for messages in there is told that no more will come; a worker is employed.
    body(process_->Connection());
}

ChildProcess::~ChildProcess() {
    delete process_;
}

std::chrono::nanoseconds ChildProcess::WorkingTime() const {
    return process_->WorkingTime();
}

void ChildProcess::Kill() {
    process_->End();
}

std::string ChildProcess::WaitForEnd() {
    return "exit status 4";
}

}  // namespace qxmix
