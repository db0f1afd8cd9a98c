#include "BatchJob.h"

#include "BatchAnswer.h"
#include "BatchBlock.h"
#include "files/InputFile.h"
#include "json/Json.h"
#include "json/JsonText.h"
#include "module/RegistryImage.h"
#include "terminal/Terminal.h"
#include "workers/ModuleCall.h"
#include "workers/ModuleHere.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>

namespace qxmix {

namespace {

/// Answers are sent when they are so old, although their block is not done: calculations may be
/// slow.
constexpr Milliseconds kOldestAnswer{20};

void PrintTraceLine(void*, const char* line) {
    std::fprintf(stderr, "%s\n", Printable(line).c_str());
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

    std::size_t Count() const { return modules_.size(); }

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
class LineAnswers {
public:
    explicit LineAnswers(const BatchSetting& setting)
        : setting_(setting), reader_(setting.ask, FileDeadline(setting)), modules_(setting.order) {
        if (setting.replacesRegistry) {
            taken_ = TakenValues(setting.order.registry);
        }
    }

    /// Answers a block in one part or more.
    ///
    /// @return the last.
    BlockAnswers To(const LineBlock& block, AtWork& work) {
        BlockAnswers answers;
        std::uint64_t number = block.firstLine;
        std::size_t start = 0;
        Clock::time_point sent = Clock::now();
        while (start < block.lines.size()) {
            const std::size_t end = block.lines.find('\n', start);
            AnswerLine(block, number++, block.lines.substr(start, end - start), work, answers);
            start = end + 1;
            if (Clock::now() - sent >= kOldestAnswer && start < block.lines.size()) {
                work.Send(BytesOf(answers));
                answers = BlockAnswers();
                sent = Clock::now();
            }
        }
        if (modules_.Count() >= kMostModules) {
            work.WearOut();
        }
        return answers;
    }

private:
    static std::optional<Milliseconds> FileDeadline(const BatchSetting& setting) {
        return setting.takesFiles ? std::make_optional(setting.deadline) : std::nullopt;
    }

    void AnswerLine(const LineBlock& block,
                    std::uint64_t number,
                    const std::string& text,
                    AtWork& work,
                    BlockAnswers& answers) {
        ++answers.lineCount;
        Json id;
        try {
            CheckLine(text);
            const Json json = ParseJson(text, "line");
            const Place place("line");
            id = ReadId(json, place);
            const AskedRequest asked = reader_.Read(json, place);
            const Reply reply = Ask(block, number, asked, work);
            const std::string& code = reply.calculation.written;
            answers.lastCode = code.empty() ? answers.lastCode : code;
            answers.lines += BatchAnswerText(setting_, id, Shown(asked), reply);
        } catch (const InputError& error) {
            ++answers.badLines;
            answers.lines += BatchErrorText(number, id, error);
        }
    }

    Reply
    Ask(const LineBlock& block, std::uint64_t number, const AskedRequest& asked, AtWork& work) {
        const auto known = std::find_if(
            block.known.begin(), block.known.end(),
            [number](const LineBlock::Known& candidate) { return candidate.line == number; });
        if (known != block.known.end()) {
            return {known->ending, {}};
        }
        work.Begin(number);
        static const std::vector<StoredValue> none;
        const ModuleLibrary& module =
            modules_.For(setting_.replacesRegistry ? none : asked.dispenser.registry);
        Reply reply = ReplyWith(CallModule(module, asked.request,
                                           setting_.traces ? &PrintTraceLine : nullptr, nullptr));
        work.End();
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
    RequestReader reader_;
    Modules modules_;
    std::vector<StoredValue> taken_;
};

}  // namespace

Job BatchJob(const BatchSetting& setting) {
    // Each worker is a copy of this process, and has modules of its own.
    const auto answers = std::make_shared<LineAnswers>(setting);
    return [answers](const std::string& bytes, AtWork& work) {
        return BytesOf(answers->To(ReadLineBlock(bytes), work));
    };
}

}  // namespace qxmix
