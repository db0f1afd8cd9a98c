#include "JsonPlaces.h"

#include "Json.h"
#include "text/TextList.h"

#include <algorithm>
#include <vector>

namespace qxmix {

namespace {

constexpr const char* kBlanks = " \t\r\n";

/// Walks through the text of JSON; one that is none, since it has changed meanwhile, comes to an
/// end, too.
class JsonWalker {
public:
    explicit JsonWalker(const std::string& text) : text_(text) { SkipBlanks(); }

    std::size_t At() const { return at_; }

    /// Goes to an element of the value that it stands at.
    ///
    /// @return false when there is none.
    bool Enter(const std::string& token) {
        const char opening = Here();
        if (opening != '{' && opening != '[') {
            return false;
        }
        Skip(1);
        for (std::size_t index = 0; Here() != '}' && Here() != ']' && at_ < text_.size(); ++index) {
            if (opening == '{' ? TakeKey() == token : std::to_string(index) == token) {
                return true;
            }
            SkipValue();
            if (Here() == ',') {
                Skip(1);
            }
        }
        return false;
    }

private:
    char Here() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    void SkipBlanks() { at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size()); }

    void Skip(std::size_t bytes) {
        at_ += bytes;
        SkipBlanks();
    }

    /// Behind the text in quotes that begins here.
    std::size_t EndOfText() const {
        std::size_t end = at_ + 1;
        while (end < text_.size() && text_[end] != '"') {
            end += text_[end] == '\\' ? 2 : 1;
        }
        return std::min(end + 1, text_.size());
    }

    std::string TakeKey() {
        const std::size_t end = EndOfText();
        const Json key = Json::parse(text_.substr(at_, end - at_), nullptr, false);
        Skip(end - at_);
        Skip(1);  // the colon
        return key.is_string() ? key.get<std::string>() : "";
    }

    void SkipValue() {
        std::size_t depth = 0;
        do {
            const char first = Here();
            if (first == '"') {
                at_ = EndOfText();
            } else if (first == '{' || first == '[') {
                ++depth;
                ++at_;
            } else if (first == '}' || first == ']') {
                --depth;
                ++at_;
            } else if (first == ',' || first == ':') {
                ++at_;
            } else {
                at_ = std::min(text_.find_first_of(",:]} \t\r\n", at_), text_.size());
            }
            SkipBlanks();
        } while (depth > 0 && at_ < text_.size());
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

/// The steps of a JSON pointer.
std::vector<std::string> StepsOf(const std::string& pointer) {
    std::vector<std::string> steps;
    if (pointer.empty()) {
        return steps;
    }
    for (const std::string& escaped : Split(pointer.substr(1), '/')) {
        std::string step;
        for (std::size_t at = 0; at < escaped.size(); ++at) {
            const bool isEscape = escaped[at] == '~' && at + 1 < escaped.size();
            step += isEscape ? (escaped[++at] == '1' ? '/' : '~') : escaped[at];
        }
        steps.push_back(step);
    }
    return steps;
}

}  // namespace

TextPlace PlaceOf(const std::string& text, const std::string& pointer) {
    JsonWalker walker(text);
    std::size_t at = walker.At();
    for (const std::string& step : StepsOf(pointer)) {
        if (!walker.Enter(step)) {
            break;
        }
        at = walker.At();
    }
    TextPlace place;
    for (std::size_t byte = 0; byte < at; ++byte) {
        const bool isFollowing = (static_cast<unsigned char>(text[byte]) & 0xC0U) == 0x80U;
        place.column = text[byte] == '\n' ? 1 : place.column + (isFollowing ? 0 : 1);
        place.line += text[byte] == '\n' ? 1 : 0;
    }
    return place;
}

}  // namespace qxmix
