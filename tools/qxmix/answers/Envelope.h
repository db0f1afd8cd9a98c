#pragma once

#include "errors/Errors.h"
#include "files/Output.h"
#include "files/OutputForm.h"
#include "findings/Findings.h"
#include "json/Json.h"
#include "terminal/Terminal.h"
#include "workers/Asker.h"

#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// The form of an answer about several currencies of a dispenser.
constexpr unsigned kVersionOfCurrencies = 2;

/// The answer of a command as JSON (schema/answer.schema.json).
struct Envelope {
    unsigned version = 1;  ///< of its form
    std::string module;    ///< version that the module names; empty: it names none
    std::string library;   ///< file name of the library; empty: none was needed
    std::string command;
    bool complete = true;  ///< false: Ctrl-C came before the end
    Json input = Json::object();
    Json result;
    std::vector<Finding> warnings;
    ExitStatus exitStatus = ExitStatus::Well;
};

/// The envelope of what this asker's module answered, with nothing in it so far.
Envelope EnvelopeBy(const Asker& asker, const std::string& command);

Json EnvelopeJson(const Envelope& envelope);

/// The envelope on one line, with its line end.
std::string EnvelopeText(const Envelope& envelope);

/// Writes the same for a result that is too large to be held: the parts of the text in their order.
///
/// @param result  writes it where it belongs.
void WriteEnvelope(const Envelope& envelope,
                   const TakePart& take,
                   const std::function<void()>& result);

/// An answer in each form in which it can be written; made only when it is wanted. As JSON it is
/// the text of its envelope.
struct AnswerForms {
    std::function<std::string(const Painter& painter)> text;
    std::function<std::string()> csv;
    std::function<std::string()> page;  ///< none where the command writes no page
    std::function<std::string(OutputForm)> table = nullptr;  ///< none: it writes no mix table

    /// What a file of this form holds.
    ///
    /// @throw InputError when a page would be too large.
    std::string File(OutputForm form, const Envelope& envelope) const;
};

}  // namespace qxmix
