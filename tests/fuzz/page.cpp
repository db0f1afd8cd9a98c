// The tool as the page has it: a command line and its files, carried out in this process. Whatever
// the words and the files say, it ends with one of its exit statuses, bad input in one line, and
// what is asked for as JSON is JSON.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "Expect.h"
#include "PageWatch.h"
#include "commandline/Tool.h"
#include "errors/Errors.h"
#include "json/Json.h"

namespace {

namespace fs = std::filesystem;
using fuzz::Expect;

constexpr unsigned kMostCalculations = 500;
unsigned calculations = 0;

/// A command line and its files: the words in the first line, then the files, each behind a line
/// "== NAME".
struct Order {
    std::vector<std::string> words;
    std::vector<std::pair<std::string, std::string>> files;
};

std::vector<std::string> Words(std::string_view line) {
    std::vector<std::string> words{"qxmix"};
    while (!line.empty()) {
        const std::size_t end = std::min(line.find(' '), line.size());
        words.emplace_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return words;
}

Order ReadOrder(std::string_view input) {
    constexpr std::string_view mark = "\n== ";
    Order order;
    std::size_t next = input.find(mark);
    order.words = Words(input.substr(0, next));
    while (next != std::string_view::npos) {
        input.remove_prefix(next + mark.size());
        const std::size_t lineEnd = std::min(input.find('\n'), input.size());
        next = input.find(mark);
        const std::size_t begin = std::min(lineEnd + 1, input.size());
        order.files.emplace_back(input.substr(0, std::min(lineEnd, next)),
                                 next == std::string_view::npos || next > begin
                                     ? input.substr(begin, next - begin)
                                     : std::string_view());
    }
    return order;
}

/// Nothing leaves the folder, and no number makes more work than an execution may take.
bool IsHarmless(std::string_view input) {
    constexpr unsigned mostDigits = 4;
    unsigned digits = 0;
    for (const char character : input) {
        digits = character >= '0' && character <= '9' ? digits + 1 : 0;
        if (digits > mostDigits || character == '/') {
            return false;
        }
    }
    return input.find('\0') == std::string_view::npos;
}

/// A folder that goes with this process, which stands in it while a command line is carried out.
class Folder {
public:
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "page-XXXXXX").string();
        Expect(mkdtemp(pattern.data()) != nullptr, "a folder can be made");
        path_ = pattern;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    void Fill(const Order& order) const {
        for (const fs::path& left : fs::directory_iterator(path_)) {
            fs::remove_all(left);
        }
        for (const auto& [name, content] : order.files) {
            std::ofstream(path_ / name, std::ios::binary) << content;
        }
    }

    int CarryOut(const Order& order) const {
        std::vector<const char*> words;
        for (const std::string& word : order.words) {
            words.push_back(word.c_str());
        }
        const fs::path before = fs::current_path();
        fs::current_path(path_);
        const int status = qxmix::RunTool(static_cast<int>(words.size()), words.data());
        fs::current_path(before);
        return status;
    }

private:
    fs::path path_;
};

/// What the tool prints to a stream of the C library while this lives.
class Heard {
public:
    explicit Heard(FILE*& stream) : stream_(stream), before_(stream) {
        stream_ = open_memstream(&bytes_, &size_);
    }
    Heard(const Heard&) = delete;
    Heard& operator=(const Heard&) = delete;
    ~Heard() { std::free(bytes_); }

    std::string Take() {
        std::fclose(stream_);
        stream_ = before_;
        return {bytes_, size_};
    }

private:
    FILE*& stream_;
    FILE* before_;
    char* bytes_ = nullptr;
    std::size_t size_ = 0;
};

bool IsKnown(int status) {
    return status >= static_cast<int>(qxmix::ExitStatus::Well) &&
           status <= static_cast<int>(qxmix::ExitStatus::CannotWork);
}

/// What a library that the tool is made of says of a mistake of the tool's.
bool IsOfALibrary(const std::string& error) {
    constexpr std::string_view marks[] = {
        "json.exception", "std::", "basic_string", "vector::", "map::at",
        "array::",        "bad_",  "stoi",         "stoul"};
    for (const std::string_view mark : marks) {
        if (error.find(mark) != std::string::npos) {
            return true;
        }
    }
    return false;
}

void Judge(const Order& order, int status, const std::string& out, const std::string& error) {
    Expect(IsKnown(status), "one of the exit statuses");
    // Of many dispensers the good ones are answered beside the bad ones.
    if (status == static_cast<int>(qxmix::ExitStatus::BadInput) && out.empty() &&
        order.words.size() > 1) {
        Expect(error.compare(0, 7, "qxmix: ") == 0 && error.find('\n') == error.size() - 1,
               "bad input in one line");
    }
    if (status == static_cast<int>(qxmix::ExitStatus::CannotWork)) {
        Expect(!IsOfALibrary(error), "no error of a library");
    }
    if (out.compare(0, 1, "{") == 0) {
        Expect(qxmix::Json::accept(out), "JSON");
    }
}

}  // namespace

namespace qxmix {

/// The page ends what takes too long; here it is what takes too often.
bool TellPageOfCalculation() {
    return ++calculations <= kMostCalculations;
}

}  // namespace qxmix

/// A worker of the tool leaves the module's inner object to the end of its process.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const Folder folder;
    const std::string_view input(reinterpret_cast<const char*>(bytes), size);
    if (!IsHarmless(input)) {
        return 0;
    }
    const Order order = ReadOrder(input);
    folder.Fill(order);
    calculations = 0;
    Heard out(stdout);
    Heard error(stderr);
    const int status = folder.CarryOut(order);
    const std::string told = error.Take();
    Judge(order, status, out.Take(), told);
    return 0;
}
