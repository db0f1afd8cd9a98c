#include "WrappedText.h"

#include "Terminal.h"

namespace qxmix {

std::string WrappedText(const std::vector<std::string>& parts,
                        const std::string& separator,
                        std::size_t used,
                        std::size_t indent) {
    std::string text;
    std::size_t column = used;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        const std::string part = parts[index] + (index + 1 < parts.size() ? separator : "");
        const std::size_t needed = part.find_last_not_of(' ') + 1;
        if (column + needed > kPlainWidth && index > 0) {
            text.erase(text.find_last_not_of(' ') + 1);
            text += "\n" + std::string(indent, ' ');
            column = indent;
        }
        text += part;
        column += part.size();
    }
    return text;
}

}  // namespace qxmix
