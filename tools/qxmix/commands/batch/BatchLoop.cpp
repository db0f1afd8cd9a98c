#include "BatchLoop.h"

#include "BatchAnswer.h"
#include "files/InputFile.h"
#include "json/Json.h"
#include "json/JsonText.h"
#include "module/RegistryImage.h"
#include "terminal/Terminal.h"
#include "workers/ModuleCall.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>

namespace qxmix {

namespace {

/// Answers are sent when they are so old, although their block is not done: calculations may be
/// slow.
constexpr Milliseconds kOldestAnswer{20};

/// Pairs of objects that a worker creates before it wants to be replaced: the module does not give
/// all of them back.
constexpr std::size_t kMostModules = 256;

void PrintTraceLine(void*, const char* line) {
    std::fprintf(stderr, "%s\n", Printable(line).c_str());
}

std::int64_t WorkedNanoseconds() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return std::int64_t{used.tv_sec} * 1000000000 + used.tv_nsec;
}

/// One pair of the module's objects for each registry that requests bring: an object reads its
/// configuration once, while it is created.
class Modules {
public:
    explicit Modules(const OpenOrder& order) : order_(order) {}

    const ModuleLibrary& For(const std::vector<StoredValue>& values) {
        std::unique_ptr<ModuleLibrary>& module = modules_[KeyOf(values)];
        if (module == nullptr) {
            LoadRegistry(values.empty() ? order_.registry : RegistryOf(values));
            module = std::make_unique<ModuleLibrary>(order_.library);
        }
        return *module;
    }

    bool AreWorn() const { return modules_.size() >= kMostModules; }

private:
    static std::string KeyOf(const std::vector<StoredValue>& values) {
        std::string key;
        for (const StoredValue& value : values) {
            key += value.name + ":" + std::to_string(value.type) + ":" +
                   std::to_string(value.bytes.size()) + ":" + value.bytes;
        }
        return key;
    }

    const OpenOrder& order_;
    std::map<std::string, std::unique_ptr<ModuleLibrary>> modules_;
};

/// Answers blocks line by line.
class BatchLoop {
public:
    BatchLoop(const BatchSetting& setting, BatchMark& mark)
        : setting_(setting), mark_(mark), reader_(setting.ask, FileDeadline(setting)),
          modules_(setting.order) {
        if (setting.replacesRegistry) {
            taken_ = TakenValues(setting.order.registry);
        }
    }

    /// Answers a block in one part or more.
    ///
    /// @param send  takes each part; false when nobody wants it.
    /// @return what it returned last.
    template <typename Send>
    bool Answer(const LineBlock& block, const Send& send) {
        BlockAnswers answers;
        std::uint64_t number = block.firstLine;
        std::size_t start = 0;
        Clock::time_point sent = Clock::now();
        while (start < block.lines.size()) {
            const std::size_t end = block.lines.find('\n', start);
            AnswerLine(block, number++, block.lines.substr(start, end - start), answers);
            start = end + 1;
            if (Clock::now() - sent >= kOldestAnswer && start < block.lines.size()) {
                answers.isLast = false;
                send(answers);
                answers = BlockAnswers();
                sent = Clock::now();
            }
        }
        answers.isWorn = modules_.AreWorn();
        return send(answers);
    }

private:
    static std::optional<Milliseconds> FileDeadline(const BatchSetting& setting) {
        return setting.takesFiles ? std::make_optional(setting.deadline) : std::nullopt;
    }

    void AnswerLine(const LineBlock& block,
                    std::uint64_t number,
                    const std::string& text,
                    BlockAnswers& answers) {
        ++answers.lineCount;
        Json id;
        try {
            CheckLine(text);
            const Json json = ParseJson(text, "line");
            const Place place("line");
            id = ReadId(json, place);
            const AskedRequest asked = reader_.Read(json, place);
            const Reply reply = Ask(block, number, asked);
            const std::string& code = reply.calculation.written;
            answers.lastCode = code.empty() ? answers.lastCode : code;
            answers.lines += BatchAnswerText(setting_, id, Shown(asked), reply);
        } catch (const InputError& error) {
            ++answers.badLines;
            answers.lines += BatchErrorText(number, id, error);
        }
    }

    Reply Ask(const LineBlock& block, std::uint64_t number, const AskedRequest& asked) {
        const auto known = std::find_if(
            block.known.begin(), block.known.end(),
            [number](const LineBlock::Known& candidate) { return candidate.line == number; });
        if (known != block.known.end()) {
            return {known->ending, {}};
        }
        mark_.workedBefore = WorkedNanoseconds();
        mark_.line = number;
        static const std::vector<StoredValue> none;
        const ModuleLibrary& module =
            modules_.For(setting_.replacesRegistry ? none : asked.dispenser.registry);
        Reply reply = ReplyWith(CallModule(module, asked.request,
                                           setting_.traces ? &PrintTraceLine : nullptr, nullptr));
        mark_.line = 0;
        return reply;
    }

    /// With the registry that the module read.
    AskedRequest Shown(AskedRequest asked) const {
        if (setting_.replacesRegistry) {
            asked.dispenser.registry = taken_;
        }
        return asked;
    }

    static void CheckLine(const std::string& text) {
        if (text.size() > kLongestLine) {
            throw Place("line").Error("more than " + std::to_string(kLongestLine) +
                                      " bytes; expected a shorter line");
        }
        if (text.find_first_not_of(" \t\r") == std::string::npos) {
            throw Place("line").Error("empty; expected a request");
        }
    }

    const BatchSetting& setting_;
    BatchMark& mark_;
    RequestReader reader_;
    Modules modules_;
    std::vector<StoredValue> taken_;
};

}  // namespace

void RunBatchWorker(const BatchSetting& setting, Channel& channel, BatchMark& mark) {
    BatchLoop loop(setting, mark);
    Message order;
    while (channel.Receive(order, std::nullopt) == Channel::State::Received) {
        const auto send = [&channel](const BlockAnswers& answers) {
            return channel.Send(ToMessage(answers));
        };
        if (!loop.Answer(ReadLineBlock(order), send)) {
            return;
        }
    }
}

}  // namespace qxmix
