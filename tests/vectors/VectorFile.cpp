#include "VectorFile.h"

#include <cstdlib>
#include <cstring>

namespace {

/// The words of a line, one after the other.
class Words {
public:
    explicit Words(char* text) noexcept : rest_(text) {}

    /// @return the next word, empty at the end of the line.
    const char* Next() noexcept {
        rest_ += std::strspn(rest_, " \t\r\n");
        char* const word = rest_;
        rest_ += std::strcspn(rest_, " \t\r\n");
        if (*rest_ != '\0') {
            *rest_++ = '\0';
        }
        return word;
    }

    bool Number(std::uint32_t& number) noexcept {
        const char* const word = Next();
        char* end = nullptr;
        number = static_cast<std::uint32_t>(std::strtoll(word, &end, 0));
        return end != word && *end == '\0';
    }

    /// Everything that is left of the line.
    const char* Rest() noexcept {
        rest_ += std::strspn(rest_, " \t");
        rest_[std::strcspn(rest_, "\r\n")] = '\0';
        return rest_;
    }

private:
    char* rest_;
};

struct Name {
    const char* word;
    std::uint16_t number;
};

constexpr Name kTypes[] = {{"bill", 3},
                           {"coin", 4},
                           {"dispenser", 5},
                           {"coupon", 7},
                           {"recycler", 12}};
constexpr Name kStatuses[] = {{"full", 1},    {"high", 2},  {"low", 3},   {"empty", 4}, {"inop", 5},
                              {"missing", 6}, {"noval", 7}, {"noref", 8}, {"manip", 9}};

template <unsigned kCount>
const Name* Find(const Name (&names)[kCount], const char* word) noexcept {
    for (const Name& name : names) {
        if (std::strcmp(name.word, word) == 0) {
            return &name;
        }
    }
    return nullptr;
}

bool Is(const char* word, const char* expected) noexcept {
    return std::strcmp(word, expected) == 0;
}

void Clear(VectorCase& next) noexcept {
    std::memset(&next, 0, sizeof(next));
    MixRequest& request = next.request;
    std::memset(&request, 0xEE, sizeof(request));  // the host's own bytes
    request.usMixNumber = std::uint16_t{1};
    request.usMaxDispenseItems = std::uint16_t{40};
    request.bAllowPartial = 0U;
    request.cCurrencyID = {{'E', 'U', 'R'}};
    request.sExponent = std::int16_t{0};
    request.ulAmount = 0U;
    request.usNumPhysicalCUs = std::uint16_t{0};
    request.ulRemainder = kUntouched;
    next.minimum = 100;
    next.firstMix = 1;
    next.lastMix = 10;
}

bool SetCurrency(CurrencyId& currency, const char* word) noexcept {
    if (std::strlen(word) != sizeof(currency)) {
        return false;
    }
    std::memcpy(&currency, word, sizeof(currency));
    return true;
}

bool ReadDetails(PhysicalCashUnit& cassette, Words& words) noexcept {
    for (const char* word = words.Next(); *word != '\0' && *word != '#'; word = words.Next()) {
        std::uint32_t number = 0;
        const Name* const status = Find(kStatuses, word);
        if (status != nullptr) {
            cassette.usStatus = status->number;
        } else if (Is(word, "status") && words.Number(number)) {
            cassette.usStatus = static_cast<std::uint16_t>(number);
        } else if (Is(word, "at") && words.Number(number)) {
            cassette.usPosition = static_cast<std::uint16_t>(number);
        } else if (!Is(word, "in") || !SetCurrency(cassette.cCurrencyID, words.Next())) {
            return false;
        }
    }
    return true;
}

bool ReadCassette(VectorCase& next, std::uint32_t type, Words& words) noexcept {
    const std::uint16_t place = next.request.usNumPhysicalCUs;
    std::uint32_t value = 0;
    std::uint32_t count = 0;
    if (place >= kMaxCashUnits || !words.Number(value) || !Is(words.Next(), "x") ||
        !words.Number(count)) {
        return false;
    }
    next.request.usNumPhysicalCUs = static_cast<std::uint16_t>(place + 1);
    PhysicalCashUnit& cassette = next.request.aPhysicalCUs[place];
    cassette.usPosition = place;
    cassette.usType = static_cast<std::uint16_t>(type);
    cassette.cCurrencyID = next.request.cCurrencyID;
    cassette.ulValues = value;
    cassette.ulCount = count;
    cassette.usStatus = std::uint16_t{0};
    return ReadDetails(cassette, words);
}

bool ReadNotes(VectorCase& next, Words& words) noexcept {
    for (std::uint32_t& items : next.notes) {
        if (!words.Number(items)) {
            items = 0;
            break;
        }
    }
    return true;
}

bool ReadNumberLine(VectorCase& next, const char* word, Words& words) noexcept {
    std::uint32_t number = 0;
    if (!words.Number(number)) {
        return false;
    }
    const auto low = static_cast<std::uint16_t>(number);
    if (Is(word, "mix")) {
        next.request.usMixNumber = low;
    } else if (Is(word, "amount")) {
        next.request.ulAmount = number;
        next.amount = number;
    } else if (Is(word, "limit")) {
        next.request.usMaxDispenseItems = low;
    } else if (Is(word, "partial")) {
        next.request.bAllowPartial = number;
    } else if (Is(word, "exponent")) {
        next.request.sExponent = static_cast<std::int16_t>(low);
    } else if (Is(word, "cassettes")) {
        next.request.usNumPhysicalCUs = low;
    } else if (Is(word, "minimum")) {
        next.minimum = number;
    } else if (Is(word, "returns")) {
        next.returned = static_cast<std::int32_t>(number);
        next.remainder = number == 0 ? 0 : kUntouched;
    } else if (Is(word, "rest")) {
        next.remainder = number;
    } else if (Is(word, "becomes")) {
        next.amount = number;
    } else if (Is(word, "range")) {
        next.firstMix = low;
        if (!words.Number(number)) {
            return false;
        }
        next.lastMix = static_cast<std::uint16_t>(number);
    } else {
        return false;
    }
    return true;
}

bool ReadLine(VectorCase& next, const char* word, Words& words) noexcept {
    if (*word == '\0' || *word == '#') {
        return true;
    }
    const Name* const type = Find(kTypes, word);
    if (type != nullptr) {
        return ReadCassette(next, type->number, words);
    }
    if (Is(word, "type")) {
        std::uint32_t number = 0;
        return words.Number(number) && ReadCassette(next, number, words);
    }
    if (Is(word, "pays")) {
        return ReadNotes(next, words);
    }
    if (Is(word, "currency")) {
        return SetCurrency(next.request.cCurrencyID, words.Next());
    }
    if (Is(word, "code")) {
        std::snprintf(next.code, sizeof(next.code), "%s", words.Next());
        return true;
    }
    return ReadNumberLine(next, word, words);
}

}  // namespace

VectorFile::VectorFile(const char* path) noexcept : file_(std::fopen(path, "r")) {
    NextLine();
}

VectorFile::~VectorFile() {
    if (file_ != nullptr) {
        std::fclose(file_);
    }
}

/// Moves on to the next line; text_ is empty behind the last one.
bool VectorFile::NextLine() noexcept {
    ++line_;
    if (file_ == nullptr || std::fgets(text_, sizeof(text_), file_) == nullptr) {
        text_[0] = '\0';
        return false;
    }
    return true;
}

bool VectorFile::ReadCase(VectorCase& next) noexcept {
    Clear(next);
    bool isInCase = false;
    while (text_[0] != '\0') {
        if (std::strncmp(text_, "case ", 5) == 0) {
            if (isInCase) {
                return true;
            }
            isInCase = true;
            next.line = line_;
            Words words(text_ + 5);
            std::snprintf(next.name, sizeof(next.name), "%s", words.Rest());
        } else {
            Words words(text_);
            const char* const word = words.Next();
            const bool understood =
                ReadLine(next, word, words) && (isInCase || *word == '\0' || *word == '#');
            if (!understood && wrongLine_ == 0) {
                wrongLine_ = line_;
            }
        }
        NextLine();
    }
    return isInCase;
}
