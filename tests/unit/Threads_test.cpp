/// Calculations side by side: each gets what it gets alone.

#include "RequestBuilder.h"
#include "Terminal.h"
#include "TestHost.h"

#include <atomic>
#include <cstring>
#include <set>
#include <thread>

namespace {

constexpr unsigned kThreads = 6;
constexpr unsigned kRounds = 150;

using Threads = TerminalTest;

/// What a calculation leaves with its caller, byte for byte.
struct Left {
    std::int32_t returned = 0;
    MixRequest request;
    MixResult result;

    friend bool operator==(const Left& first, const Left& second) {
        return first.returned == second.returned &&
               std::memcmp(&first.request, &second.request, sizeof(MixRequest)) == 0 &&
               std::memcmp(&first.result, &second.result, sizeof(MixResult)) == 0;
    }
};

Left Calculate(IMixAlgorithm& object, const Request& request) {
    Left left;
    left.request = request.record;
    std::memset(&left.result, 0x5A, sizeof(left.result));
    left.returned = object.MixCalculate(&left.request, &left.result);
    return left;
}

/// Every mix, every failure, and successes that leave a code.
std::vector<Request> DifferentRequests() {
    std::vector<Request> requests;
    for (unsigned mix = 0; mix <= 11; ++mix) {
        const Request dispenser =
            Request().Mix(mix).Bill(50, 300).Bill(20, 300).Bill(10, 200).Bill(5, 150);
        requests.push_back(Request(dispenser).Amount(385));
        requests.push_back(Request(dispenser).Amount(60000));
        if (mix != 4 && mix != 9) {  // these two would not return
            requests.push_back(Request(dispenser).Amount(60000).Partial());
            requests.push_back(Request(dispenser).Amount(7));
            requests.push_back(Request(dispenser).Amount(385).Limit(12));
            requests.push_back(Request(dispenser).Bill(100, 9).Bill(200, 9).Amount(385));
        }
        requests.push_back(Request().Mix(mix).Coin(2, 300).Amount(90));
        requests.push_back(Request().Mix(mix).Bill(50, 10).Bill(20, 10).Amount(140).Limit(5));
        requests.push_back(Request().Mix(mix).Bill(50, 200).Exponent(-2).Amount(15000));
    }
    return requests;
}

struct Alone {
    std::vector<Left> left;
    std::set<std::string> codes;
};

Alone AskOneByOne(IMixAlgorithm& object, const std::vector<Request>& requests) {
    Alone alone;
    for (const Request& request : requests) {
        ClearRecordedCode();
        alone.left.push_back(Calculate(object, request));
        alone.codes.insert(RecordedCode());
    }
    alone.codes.erase("");
    return alone;
}

void InThreads(const std::function<void(unsigned)>& work) {
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back(work, thread);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// Asks all requests again and again, beginning at a place of the thread's own.
/// @return how many answers were other than alone.
unsigned CountDifferent(IMixAlgorithm& object,
                        const std::vector<Request>& requests,
                        const Alone& alone,
                        unsigned thread) {
    unsigned different = 0;
    for (std::size_t turn = 0; turn < kRounds * 10; ++turn) {
        const std::size_t index = (turn * 7 + thread * 13) % requests.size();
        different += Calculate(object, requests[index]) == alone.left[index] ? 0 : 1;
    }
    return different;
}

TEST_F(Threads, OnOneObjectGetTheirOwnAnswers) {
    const std::vector<Request> requests = DifferentRequests();
    Module module;
    const Alone alone = AskOneByOne(module.Outer(), requests);
    EXPECT_EQ(alone.codes, (std::set<std::string>{"971A2", "971A3", "971A4", "971A5", "97194"}));
    std::atomic<unsigned> different{0};
    InThreads([&](unsigned thread) {
        different += CountDifferent(module.Outer(), requests, alone, thread);
    });
    EXPECT_EQ(different, 0U);
    EXPECT_EQ(alone.codes.count(RecordedCode()), 1U) << RecordedCode();
}

TEST_F(Threads, NeverLeaveHalfACode) {
    const std::vector<Request> requests = DifferentRequests();
    Module module;
    const Alone alone = AskOneByOne(module.Outer(), requests);
    CountDifferent(module.Outer(), requests, alone, 0);  // leaves a code
    std::atomic<bool> isOver{false};
    std::set<std::string> seen;
    std::thread reader([&] {
        while (!isOver) {
            seen.insert(RecordedCode());
        }
    });
    InThreads([&](unsigned thread) { CountDifferent(module.Outer(), requests, alone, thread); });
    isOver = true;
    reader.join();
    for (const std::string& code : seen) {
        EXPECT_EQ(alone.codes.count(code), 1U) << code;
    }
}

TEST_F(Threads, OnTwoObjectsGetTheAnswersOfTheirOwnObject) {
    const std::vector<Request> requests = DifferentRequests();
    Module first;
    Module second;
    second.Inner().ulCstMinimum4Mix6 = 250U;
    second.Inner().usLastMixNumber = std::uint16_t{8};
    const Alone ofFirst = AskOneByOne(first.Outer(), requests);
    const Alone ofSecond = AskOneByOne(second.Outer(), requests);
    EXPECT_FALSE(ofFirst.left == ofSecond.left);
    std::atomic<unsigned> different{0};
    InThreads([&](unsigned thread) {
        const bool isFirst = thread % 2 == 0;
        different += CountDifferent(isFirst ? first.Outer() : second.Outer(), requests,
                                    isFirst ? ofFirst : ofSecond, thread);
    });
    EXPECT_EQ(different, 0U);
}

TEST_F(Threads, ListTheMixesWhileOthersCalculate) {
    const std::vector<Request> requests = DifferentRequests();
    Module module;
    module.Proxy().hMixTypesEvent = QxmixEventCreate();
    const Alone alone = AskOneByOne(module.Outer(), requests);
    std::atomic<unsigned> different{0};
    InThreads([&](unsigned thread) {
        if (thread % 2 == 0) {
            different += CountDifferent(module.Outer(), requests, alone, thread);
            return;
        }
        for (unsigned round = 0; round < kRounds; ++round) {
            WFSCDMMIXTYPE** list = nullptr;
            different += module.Outer().GetMixTypes(&list) == 0 && list[9]->usMixNumber == 10 &&
                                 std::strcmp(list[9]->lpszName, "Varnholt Maximum Notes") == 0 &&
                                 WFMFreeBuffer(list) == 0
                             ? 0
                             : 1;
        }
    });
    EXPECT_EQ(different, 0U);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
}

/// The bytes of an object.
template <typename Object>
std::string BytesOf(const Object& object) {
    return {reinterpret_cast<const char*>(&object), sizeof(object)};
}

TEST_F(Threads, LeaveTheObjectsAsTheyWere) {
    const std::vector<Request> requests = DifferentRequests();
    Module module;
    const std::string outer = BytesOf(module.Proxy());
    const std::string inner = BytesOf(module.Inner());
    const Alone alone = AskOneByOne(module.Outer(), requests);
    InThreads([&](unsigned thread) { CountDifferent(module.Outer(), requests, alone, thread); });
    EXPECT_EQ(BytesOf(module.Proxy()), outer);
    EXPECT_EQ(BytesOf(module.Inner()), inner);
}

}  // namespace
