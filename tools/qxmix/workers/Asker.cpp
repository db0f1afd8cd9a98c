#include "Asker.h"

#include "Interrupt.h"
#include "OpenedModule.h"
#include "module/SharedLibrary.h"

#include <utility>

namespace qxmix {

Asker::Asker(std::string library, std::string registry, TraceSink trace)
    : library_(std::move(library)), registry_(std::move(registry)), trace_(std::move(trace)) {
}

Asker::Asker(const OpenOrder& order, TraceSink trace)
    : Asker(order.library, order.registry, std::move(trace)) {
    here_ = order.here;
}

const Opening& Asker::Open() {
    return here_ != nullptr ? here_->Opened() : OpenWorker().Opened();
}

Reply Asker::Ask(const MixRequest& request, Milliseconds deadline, Tracing tracing) {
    if (here_ != nullptr) {
        return here_->Answer(request, deadline);
    }
    Tick tick;
    if (listener_ != nullptr) {
        tick = [&](Milliseconds waited) { listener_(request, waited, deadline); };
        tick(Milliseconds(0));
    }
    Reply reply = OpenWorker().Calculate(request, deadline,
                                         tracing == Tracing::Heard ? trace_ : nullptr, tick);
    if (!reply.ending.LeavesWorker()) {
        worker_.reset();
    }
    return reply;
}

Ending Asker::ListTypes(Catalogue& catalogue, Milliseconds deadline) {
    Ending ending = OpenWorker().ListTypes(catalogue, deadline);
    if (ending.kind != Ending::Kind::Answered) {
        worker_.reset();
    }
    return ending;
}

void Asker::KeepRegistry() {
    const std::string left = worker_ == nullptr ? "" : worker_->SaveRegistry();
    if (!left.empty()) {
        registry_ = left;
    }
}

Worker& Asker::OpenWorker() {
    if (worker_ == nullptr) {
        CatchInterrupts();
        const bool isFirst = !std::exchange(wasOpened_, true);
        worker_ = std::make_unique<Worker>(OpenOrder{library_, registry_},
                                           [this, isFirst](const std::string& line) {
                                               HearOpening(line);
                                               // The lines of a replacement would only repeat those
                                               // of the first.
                                               if (isFirst && trace_ != nullptr) {
                                                   trace_(line);
                                               }
                                           });
        if (version_.empty()) {
            version_ = StatedVersion(library_);
        }
    }
    return *worker_;
}

void Asker::HearOpening(const std::string& line) {
    const std::string before = "Version = ";
    const std::size_t at = line.find(before);
    if (at != std::string::npos) {
        version_ = line.substr(at + before.size());
        if (!version_.empty() && version_.back() == '.') {
            version_.pop_back();
        }
    }
}

}  // namespace qxmix
