#include "PlatformTest.h"
#include "TraceSink.h"

#include <stdexcept>

namespace {

class TraceLines : public PlatformTest {
protected:
    static void Keep(void* context, const char* line) {
        static_cast<std::vector<std::string>*>(context)->emplace_back(line);
    }

    std::vector<std::string> lines_;
};

TEST_F(TraceLines, AreNotWantedAtFirst) {
    EXPECT_EQ(QxmixTraceWanted(), 0);
    EXPECT_FALSE(TraceWanted());
    QxmixTraceLine("nobody hears");
}

TEST_F(TraceLines, ReachTheListenerInOrder) {
    QxmixSetTraceListener(Keep, &lines_);
    EXPECT_EQ(QxmixTraceWanted(), 1);
    TraceLine("first");
    TraceLine("");
    TraceLine("100 %s");
    EXPECT_EQ(lines_, (std::vector<std::string>{"first", "", "100 %s"}));
}

TEST_F(TraceLines, EndWithTheListener) {
    QxmixSetTraceListener(Keep, &lines_);
    QxmixSetTraceListener(nullptr, nullptr);
    EXPECT_EQ(QxmixTraceWanted(), 0);
    QxmixTraceLine("nobody hears");
    EXPECT_TRUE(lines_.empty());
}

TEST_F(TraceLines, GoToTheListenerSetLast) {
    std::vector<std::string> others;
    QxmixSetTraceListener(Keep, &lines_);
    QxmixSetTraceListener(Keep, &others);
    QxmixTraceLine("one");
    EXPECT_TRUE(lines_.empty());
    EXPECT_EQ(others.size(), 1U);
}

TEST_F(TraceLines, MayTakeTheListenerBackWhileItListens) {
    QxmixSetTraceListener(
        [](void* context, const char* line) {
            Keep(context, line);
            QxmixSetTraceListener(nullptr, nullptr);
        },
        &lines_);
    QxmixTraceLine("one");
    QxmixTraceLine("two");
    EXPECT_EQ(lines_, std::vector<std::string>{"one"});
}

TEST_F(TraceLines, KeepWhatAListenerThrows) {
    QxmixSetTraceListener([](void*, const char*) { throw std::runtime_error("lost"); }, nullptr);
    EXPECT_NO_THROW(QxmixTraceLine("one"));
    EXPECT_EQ(QxmixTraceWanted(), 1);
}

TEST_F(TraceLines, PassOverAMissingLine) {
    QxmixSetTraceListener(Keep, &lines_);
    QxmixTraceLine(nullptr);
    EXPECT_TRUE(lines_.empty());
}

}  // namespace
