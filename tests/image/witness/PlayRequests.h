#pragma once

#include "CMixAlgorithm.h"
#include "RecordChecks.h"

/// How a second witness is asked: requests in one stream of bytes, answers in another.
///
/// The same code runs in a freestanding program on ARM and in a program of desktop Windows, so it
/// takes nothing from a library.
namespace witness {

/// One request, and what the host made of the object before it.
struct Question {
    u16le usFirstMixNumber;
    u16le usLastMixNumber;
    u32le ulCstMinimum4Mix6;
    MixRequest request;
};
EXPECT_SIZE(Question, 1068);

/// What the calculation left behind.
struct Reply {
    u32le lReturned;
    unsigned char acErrorCode[8];  ///< as the registry holds it, filled up with zeros
    MixRequest request;
    MixResult result;
};
EXPECT_SIZE(Reply, 1096);

using CreateFunction = IMixAlgorithm* (*)(MixAlgorithmHost*);
using DeleteFunction = void (*)();

/// What differs from witness to witness.
class Surroundings {
public:
    /// Reads exactly so many bytes; false at the end of the questions.
    virtual bool Read(void* bytes, unsigned size) noexcept = 0;
    virtual void Write(const void* bytes, unsigned size) noexcept = 0;

    /// Takes the recorded error code out of the registry into 8 bytes of zeros.
    virtual void TakeErrorCode(unsigned char* code) noexcept = 0;

protected:
    ~Surroundings() = default;
};

/// Keeps the objects that it is told about.
class Host final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        outer = outer == nullptr ? object : outer;
        inner = object;
        return 0;
    }

    IMixAlgorithm* outer = nullptr;
    IMixAlgorithm* inner = nullptr;
};

/// Answers all questions and deletes the objects.
///
/// @return false when the library did not create its two objects.
inline bool
PlayRequests(CreateFunction create, DeleteFunction remove, Surroundings& surroundings) noexcept {
    Host host;
    IMixAlgorithm* const module = create(&host);
    if (module == nullptr || module != host.outer || host.inner == host.outer) {
        return false;
    }
    auto* const fields = static_cast<CMixAlgorithm*>(host.inner);
    Question question;
    while (surroundings.Read(&question, sizeof(question))) {
        fields->usFirstMixNumber = question.usFirstMixNumber;
        fields->usLastMixNumber = question.usLastMixNumber;
        fields->ulCstMinimum4Mix6 = question.ulCstMinimum4Mix6;
        Reply reply{};
        reply.request = question.request;
        reply.lReturned =
            static_cast<std::uint32_t>(module->MixCalculate(&reply.request, &reply.result));
        surroundings.TakeErrorCode(reply.acErrorCode);
        surroundings.Write(&reply, sizeof(reply));
    }
    remove();
    return host.inner->Destroy(1) == host.inner;
}

}  // namespace witness
