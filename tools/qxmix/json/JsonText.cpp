#include "JsonText.h"

#include "errors/Place.h"

#include <algorithm>
#include <vector>

namespace qxmix {

namespace {

/// Builds the value from the parser's events; unlike the parser's own builder it refuses a field
/// that is given twice, wherever it stands.
class JsonBuilder {
public:
    using number_integer_t = Json::number_integer_t;
    using number_unsigned_t = Json::number_unsigned_t;
    using number_float_t = Json::number_float_t;
    using string_t = Json::string_t;
    using binary_t = Json::binary_t;

    JsonBuilder(const std::string& text, const std::string& file) : text_(text), file_(file) {}

    Json&& TakeValue() { return std::move(root_); }

    // NOLINTBEGIN(readability-identifier-naming): the parser calls these by these names
    bool null() { return Add(nullptr); }
    bool boolean(bool value) { return Add(value); }
    bool number_integer(number_integer_t value) { return Add(value); }
    bool number_unsigned(number_unsigned_t value) { return Add(value); }
    bool number_float(number_float_t value, const string_t&) { return Add(value); }
    bool string(string_t& value) { return Add(std::move(value)); }
    bool binary(binary_t&) { return false; }  // no such thing in JSON text
    bool start_object(std::size_t) { return Open(Json::object()); }
    bool start_array(std::size_t) { return Open(Json::array()); }
    bool end_object() { return Close(); }
    bool end_array() { return Close(); }

    bool key(string_t& name) {
        if (open_.back()->contains(name)) {
            throw Here().Below(name).Error("given twice; expected once");
        }
        keys_.back() = name;
        return true;
    }

    bool parse_error(std::size_t byte, const std::string& last, const Json::exception& error) {
        const auto end = text_.begin() + static_cast<std::ptrdiff_t>(Before(byte));
        const auto line = std::count(text_.begin(), end, '\n') + 1;
        const auto lineStart = std::find(std::make_reverse_iterator(end), text_.rend(), '\n');
        const auto column = end - lineStart.base() + 1;
        throw SyntaxError(file_, line, column, Wrong(last, error));
    }
    // NOLINTEND(readability-identifier-naming)

private:
    /// Bytes before the one at which the parser stopped, counted from 1.
    std::size_t Before(std::size_t byte) const {
        return std::min(byte == 0 ? 0 : byte - 1, text_.size());
    }

    /// What is wrong, where the parser would speak of its own affairs in words of ours.
    std::string Wrong(const std::string& last, const Json::exception& error) const {
        constexpr int kNumberOverflow = 406;
        if (error.id == kNumberOverflow) {
            return last + " is too large a number";
        }
        const std::string start = text_.substr(0, 2);
        if (start == "\xff\xfe" || start == "\xfe\xff") {
            return "UTF-16; expected JSON in UTF-8";
        }
        if (text_.find_first_not_of(" \t\r\n") == std::string::npos) {
            return "empty; expected JSON";
        }
        const std::string message = error.what();
        const std::size_t what = message.find("syntax error");
        return what == std::string::npos ? message : message.substr(what);
    }

    Place Here() const {
        Place place(file_);
        for (std::size_t depth = 0; depth + 1 < open_.size(); ++depth) {
            place = open_[depth]->is_array() ? place.Below(open_[depth]->size() - 1)
                                             : place.Below(keys_[depth]);
        }
        return place;
    }

    template <typename Value>
    Json& Put(Value&& value) {
        if (open_.empty()) {
            root_ = std::forward<Value>(value);
            return root_;
        }
        if (open_.back()->is_array()) {
            open_.back()->push_back(std::forward<Value>(value));
            return open_.back()->back();
        }
        return (*open_.back())[keys_.back()] = std::forward<Value>(value);
    }

    template <typename Value>
    bool Add(Value&& value) {
        Put(std::forward<Value>(value));
        return true;
    }

    bool Open(Json&& container) {
        // The address holds: nothing is added to what is around it while it is open.
        open_.push_back(&Put(std::move(container)));
        keys_.emplace_back();
        return true;
    }

    bool Close() {
        open_.pop_back();
        keys_.pop_back();
        return true;
    }

    const std::string& text_;
    const std::string& file_;
    Json root_;
    std::vector<Json*> open_;        // from the root to the innermost
    std::vector<std::string> keys_;  // of each open object, the field that is being read
};

}  // namespace

Json ParseJson(const std::string& text, const std::string& file) {
    JsonBuilder builder(text, file);
    Json::sax_parse(text, &builder);
    return builder.TakeValue();
}

std::string DescribeJson(const Json& value) {
    if (value.is_array()) {
        return "a list";
    }
    if (value.is_object()) {
        return "an object";
    }
    constexpr std::size_t kLongest = 40;
    const std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace);
    return text.size() <= kLongest ? text : text.substr(0, kLongest - 4) + "...\"";
}

}  // namespace qxmix
