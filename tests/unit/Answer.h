#pragma once

#include "RequestBuilder.h"
#include "TestHost.h"

#include <ostream>
#include <string>
#include <vector>

/// What a host sees after a calculation, or what a test expects it to see.
struct Answer {
    std::int32_t returned = 0;
    std::vector<std::uint32_t> notes;  ///< six, by cassette position
    std::uint32_t remainder = 0;
    std::string code;          ///< the value "CDM", empty when nothing was recorded
    std::uint32_t amount = 0;  ///< ulAmount afterwards; not compared

    Answer& Rest(std::uint32_t rest) {
        remainder = rest;
        return *this;
    }
    Answer& Code(const char* recorded) {
        code = recorded;
        return *this;
    }

    friend bool operator==(const Answer& first, const Answer& second) {
        return first.returned == second.returned && first.notes == second.notes &&
               first.remainder == second.remainder && first.code == second.code;
    }
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer);
};

/// A success with these notes by position (0 for the positions left out) and nothing left unpaid.
Answer Paid(std::vector<std::uint32_t> notes);

/// A failure: no notes, and ulRemainder as the host left it.
Answer Refused(std::int32_t result, const char* code);

/// Puts a request to a new module, or to one that a test has prepared.
///
/// Each time it also holds the module to what every calculation owes its host: at most one registry
/// write, a cleared result after a failure, and no byte of the request changed besides ulAmount and
/// ulRemainder.
Answer Ask(const Request& request);
Answer Ask(const Request& request, Module& module);
