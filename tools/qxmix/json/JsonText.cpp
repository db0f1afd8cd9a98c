#include "JsonText.h"

#include "Json.h"
#include "errors/Place.h"

#include <algorithm>
#include <set>
#include <vector>

namespace qxmix {

namespace {

/// What any input of the tool needs is a tenth of it; without a limit each bracket costs memory.
constexpr std::size_t kDeepestNesting = 64;

/// The names of the fields of an object that is being read. An object of many fields does not look
/// through all of them for each.
class FieldNames {
public:
    /// @param object  as far as it is read.
    /// @return false when the name is there.
    bool Add(const Json& object, const std::string& name) {
        constexpr std::size_t kFew = 32;
        if (object.size() < kFew) {
            return !object.contains(name);
        }
        if (known_.empty()) {
            for (const auto& field : object.items()) {
                known_.insert(field.key());
            }
        }
        return known_.insert(name).second;
    }

private:
    std::set<std::string> known_;  // empty as long as they are few
};

/// Builds the value from the parser's events; unlike the parser's own builder it refuses a field
/// that is given twice, wherever it stands, and nesting without end.
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
    bool start_object(std::size_t) { return Begin(Json::object()); }
    bool start_array(std::size_t) { return Begin(Json::array()); }
    bool end_object() { return End(); }
    bool end_array() { return End(); }

    bool key(string_t& name) {
        if (!open_.back().names.Add(*open_.back().value, name)) {
            throw Here().Below(name).Error("given twice; expected once");
        }
        open_.back().key = name;
        return true;
    }

    bool parse_error(std::size_t byte, const std::string& last, const Json::exception& error) {
        const std::size_t place = std::min(byte == 0 ? 0 : byte - 1, text_.size());
        throw ErrorAt(place, Wrong(place, last, error));
    }
    // NOLINTEND(readability-identifier-naming)

    /// To the parser a zero byte is the end of the text, whatever stands behind it.
    void CheckEnd() const {
        const std::size_t zero = text_.find('\0');
        if (zero != std::string::npos) {
            throw ErrorAt(zero, kZeroByte);
        }
    }

private:
    static constexpr const char* kZeroByte = "a zero byte; expected JSON in UTF-8";

    SyntaxError ErrorAt(std::size_t place, const std::string& wrong) const {
        const auto end = text_.begin() + static_cast<std::ptrdiff_t>(place);
        const auto line = std::count(text_.begin(), end, '\n') + 1;
        const auto lineStart = std::find(std::make_reverse_iterator(end), text_.rend(), '\n');
        const auto column = end - lineStart.base() + 1;
        return SyntaxError(file_, line, column, wrong);
    }

    /// What is wrong, where the parser would speak of its own affairs in words of ours.
    std::string
    Wrong(std::size_t place, const std::string& last, const Json::exception& error) const {
        constexpr int kNumberOverflow = 406;
        if (error.id == kNumberOverflow) {
            return last + " is too large a number";
        }
        const std::string start = text_.substr(0, 2);
        if (start == "\xff\xfe" || start == "\xfe\xff") {
            return "UTF-16; expected JSON in UTF-8";
        }
        if (place < text_.size() && text_[place] == '\0') {
            return kZeroByte;
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
            const Open& around = open_[depth];
            place = around.value->is_array() ? place.Below(around.value->size() - 1)
                                             : place.Below(around.key);
        }
        return place;
    }

    template <typename Value>
    Json& Put(Value&& value) {
        if (open_.empty()) {
            root_ = std::forward<Value>(value);
            return root_;
        }
        Json& around = *open_.back().value;
        if (around.is_array()) {
            around.push_back(std::forward<Value>(value));
            return around.back();
        }
        // The name is a new one, so nothing has to be looked for.
        auto& fields = around.get_ref<Json::object_t&>();
        fields.push_back({open_.back().key, std::forward<Value>(value)});
        return fields.back().second;
    }

    template <typename Value>
    bool Add(Value&& value) {
        Put(std::forward<Value>(value));
        return true;
    }

    bool Begin(Json&& container) {
        // The address holds: nothing is added to what is around it while it is open.
        Json& put = Put(std::move(container));
        open_.push_back({&put, {}, {}});
        if (open_.size() > kDeepestNesting) {
            throw Here().Error("nested too deep; expected at most " +
                               std::to_string(kDeepestNesting) +
                               " lists and objects in each other");
        }
        return true;
    }

    bool End() {
        open_.pop_back();
        return true;
    }

    /// A list or an object that is being read.
    struct Open {
        Json* value;
        std::string key;   // of an object, the field that is being read
        FieldNames names;  // of an object
    };

    const std::string& text_;
    const std::string& file_;
    Json root_;
    std::vector<Open> open_;  // from the root to the innermost
};

}  // namespace

Json ParseJson(const std::string& text, const std::string& file) {
    JsonBuilder builder(text, file);
    Json::sax_parse(text, &builder);
    builder.CheckEnd();
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
