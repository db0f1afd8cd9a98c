#include "ImageTest.h"
#include "Requests.h"

#include "AskedRequest.h"
#include "Settings.h"
#include "TerminalLife.h"

#include <optional>

namespace emulation {
namespace {

/// The shipped bytes as a terminal lives with them, day after day.
class ImageLongLife : public ImageTest {
protected:
    void SetUp() override {
        ImageTest::SetUp();
        if (!IsSkipped()) {
            TheTerminal().registry[Terminal::TraceKey()];
            player_.emplace(Module());
        }
    }

    /// Ends both objects and makes new ones, with what the registry holds now.
    void Restart(const property::TerminalLife::Morning& morning) {
        const std::uint32_t inner = Module().created.back();
        Module().Delete();
        EXPECT_EQ(inner, EmulatedModule::Value(Module().Call(inner, Slot::Destroy, {1})));
        TheTerminal().registry[Terminal::SettingsKey()]["CSTMinimum4Mix6"] =
            Terminal::WideText(std::to_string(morning.minimum));
        // A refused first or second call would be one for memory, without which there is no object.
        const unsigned refused = morning.failingCall > 2 ? morning.failingCall : 0;
        TheTerminal().RefuseCall(refused);
        player_.emplace(Module());
        TheTerminal().RefuseCall(0);
        mayStayOpen_ += refused != 0 ? 2 : 1;
        EXPECT_TRUE(Minimum() == morning.minimum || (Minimum() == 100 && refused != 0));
    }

    std::uint32_t Minimum() { return Memory().WordAt(Module().created.back() + 18); }

    void ServeCustomer() {
        const property::RandomCase customer = life_.NextCustomer();
        reference::Object object;
        object.cstMinimum = Minimum();
        property::Answer expected;
        std::copy_n(customer.request.Bytes(), reference::kRequestBytes, expected.request.begin());
        property::Answer actual = expected;
        const reference::Outcome outcome = reference::MixCalculate(
            object, expected.request.data(), expected.result.data(), kMostSteps);
        if (!outcome.finished) {
            return;
        }
        expected.returned = outcome.returned;
        expected.lastCode = outcome.lastCode;
        const unsigned refused = life_.FailingCall();
        TheTerminal().RefuseCall(refused);
        EmulatedModule::Value(player_->Calculate(object, 0, actual));
        TheTerminal().RefuseCall(0);
        mayStayOpen_ += refused != 0 ? 1 : 0;
        if (refused != 0 && actual.lastCode.empty()) {
            expected.lastCode.clear();
        }
        EXPECT_EQ("", property::Difference(expected, actual));
        ++compared_;
        life_.Dispense(actual.result.data());
    }

    static constexpr std::uint64_t kMostSteps = 300000;

    property::TerminalLife life_{property::Setting("QXMIX_SEED", 1)};
    std::optional<RequestPlayer> player_;
    std::uint64_t compared_ = 0;
    std::size_t mayStayOpen_ = 1;  ///< keys, see the same test of the Linux library
};

TEST_P(ImageLongLife, EndsWithWhatItBeganWith) {
    const std::size_t blocks = Memory().Blocks().size();
    const std::uint64_t days = property::Setting("QXMIX_IMAGE_LIFE_DAYS", 20);
    for (std::uint64_t day = 1; day <= days && !HasFailure(); ++day) {
        const property::TerminalLife::Morning morning = life_.BeginDay();
        if (morning.restarts) {
            Restart(morning);
        }
        for (unsigned left = life_.CustomersToday(); left > 0; --left) {
            ServeCustomer();
        }
        EXPECT_EQ(blocks, Memory().Blocks().size());
        EXPECT_LE(TheTerminal().openKeys.size(), mayStayOpen_);
        EXPECT_EQ("", TheTerminal().complaint);
    }
    EXPECT_GT(compared_, 50 * days);
}

FOR_EVERY_LIBRARY(ImageLongLife);

}  // namespace
}  // namespace emulation
