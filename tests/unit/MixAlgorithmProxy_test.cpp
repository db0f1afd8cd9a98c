#include "RequestBuilder.h"
#include "Slots.h"
#include "Terminal.h"
#include "TestHost.h"

namespace {

/// An inner object of the test's own: notes what it was asked and how the event stood then.
struct Inner {
    const Slots* slots;
    void* event;
    int eventWasSet;
    WFSCDMMIXTYPE*** listAsked;
    const MixRequest* requestAsked;
    const MixResult* resultAsked;
};

std::int32_t NoteMixTypes(IMixAlgorithm* object, WFSCDMMIXTYPE*** list) {
    auto* const inner = reinterpret_cast<Inner*>(object);
    inner->listAsked = list;
    inner->eventWasSet = QxmixEventIsSet(inner->event);
    return -4711;
}

std::int32_t NoteCalculation(IMixAlgorithm* object, MixRequest* request, MixResult* result) {
    auto* const inner = reinterpret_cast<Inner*>(object);
    inner->requestAsked = request;
    inner->resultAsked = result;
    return -4712;
}

constexpr Slots kNotes = {nullptr, NoteMixTypes, NoteCalculation};

class Proxy : public TerminalTest {
protected:
    Proxy() {
        own_ = module_.Proxy().inner;
        module_.Proxy().inner = reinterpret_cast<IMixAlgorithm*>(&inner_);
        module_.Proxy().hMixTypesEvent = inner_.event;
    }
    ~Proxy() override { module_.Proxy().inner = own_; }

    Module module_;
    Inner inner_{&kNotes, QxmixEventCreate(), -1, nullptr, nullptr, nullptr};
    IMixAlgorithm* own_;
};

TEST_F(Proxy, SetsTheEventAndThenAsksTheInnerObject) {
    WFSCDMMIXTYPE** list = nullptr;
    EXPECT_EQ(module_.Outer().GetMixTypes(&list), -4711);
    EXPECT_EQ(inner_.listAsked, &list);
    EXPECT_EQ(inner_.eventWasSet, 1);
    EXPECT_EQ(QxmixEventSignals(inner_.event), 1U);
}

TEST_F(Proxy, SetsTheEventWithOneCall) {
    CallLog log;
    module_.Outer().GetMixTypes(nullptr);
    EXPECT_EQ(CallLog::All(), (Lines{"EventModify(operation 3) = 1"}));
}

TEST_F(Proxy, AsksTheInnerObjectEvenWhenTheEventCannotBeSet) {
    module_.Proxy().hMixTypesEvent = nullptr;
    EXPECT_EQ(module_.Outer().GetMixTypes(nullptr), -4711);
    EXPECT_EQ(inner_.eventWasSet, 0);
}

TEST_F(Proxy, PassesCalculationsOnWithoutTouchingTheEvent) {
    MixRequest request = Request().record;
    MixResult result;
    CallLog log;
    EXPECT_EQ(module_.Outer().MixCalculate(&request, &result), -4712);
    EXPECT_EQ(inner_.requestAsked, &request);
    EXPECT_EQ(inner_.resultAsked, &result);
    EXPECT_EQ(CallLog::All(), Lines{});
}

TEST_F(Proxy, DoesNotTouchTheEventWhenItIsDestroyed) {
    module_.Outer().Destroy(0);
    EXPECT_EQ(QxmixEventIsSet(inner_.event), 0);
}

TEST_F(Proxy, ListsTheMixesOfItsOwnInnerObject) {
    module_.Proxy().inner = own_;
    WFSCDMMIXTYPE** list = nullptr;
    CallLog log;
    EXPECT_EQ(module_.Outer().GetMixTypes(&list), 0);
    EXPECT_EQ(CallLog::All().front(), "EventModify(operation 3) = 1");
    EXPECT_STREQ(list[9]->lpszName, "Varnholt Maximum Notes");
}

}  // namespace
