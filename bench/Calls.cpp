#include "Calls.h"

#include "HostRequest.h"

#include "MixAlgorithm.h"

namespace bench {
namespace {

/// The module's object, kept until the process ends.
class Host final : public MixAlgorithmHost {
public:
    Host() : module_(CreateMixAlgorithm(this)) {}
    ~Host() {
        DeleteMixAlgorithm();
        inner_->Destroy(1);  // which the module leaves to its host
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    IMixAlgorithm& Module() noexcept { return *module_; }
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        inner_ = object;
        return 0;
    }

private:
    IMixAlgorithm* inner_ = nullptr;
    IMixAlgorithm* module_;
};

IMixAlgorithm& TheModule() {
    static Host host;
    return host.Module();
}

}  // namespace

WholeCall::WholeCall(const Question& question, unsigned mixNumber)
    : amount_(question.amount), request_(RequestOf(question, mixNumber)) {
    TheModule();
}

std::int32_t WholeCall::RunModule() noexcept {
    static IMixAlgorithm& module = TheModule();
    request_.ulAmount = amount_;
    return module.MixCalculate(&request_, &result_);
}

reference::Outcome WholeCall::RunReference(std::uint64_t stepBudget) {
    request_.ulAmount = amount_;
    return reference::MixCalculate(reference::Object{}, reinterpret_cast<std::uint8_t*>(&request_),
                                   reinterpret_cast<std::uint8_t*>(&result_), stepBudget);
}

}  // namespace bench
