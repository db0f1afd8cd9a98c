#pragma once

#include "Envelope.h"
#include "files/OutputForm.h"
#include "terminal/Terminal.h"

#include <functional>
#include <string>

namespace qxmix {

/// An answer in each form in which it can be written; made only when it is wanted. As JSON it is
/// the text of its envelope.
struct AnswerForms {
    std::function<std::string(const Painter& painter)> text;
    std::function<std::string()> csv;
    std::function<std::string()> page;  ///< none where the command writes no page

    /// What a file of this form holds.
    ///
    /// @throw InputError when a page would be too large.
    std::string File(OutputForm form, const Envelope& envelope) const;
};

}  // namespace qxmix
