#pragma once

#include <cstdint>

namespace property {

/// While it lives the program ends, naming the case, once that has taken a minute of processor
/// time: a module that answers wrongly may as well never answer.
class CaseWatch {
public:
    explicit CaseWatch(std::uint64_t number);
    CaseWatch(const CaseWatch&) = delete;
    CaseWatch& operator=(const CaseWatch&) = delete;
    ~CaseWatch();
};

}  // namespace property
