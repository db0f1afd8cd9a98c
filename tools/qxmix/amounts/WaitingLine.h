#pragma once

#include "dispenser/Dispenser.h"
#include "options/CommonOptions.h"
#include "terminal/StatusLine.h"
#include "workers/Asker.h"

#include <string>

namespace qxmix {

/// Says at the terminal what a command of one question waits for, when it waits for long.
class WaitingLine {
public:
    /// @param dispenser  that is asked; outlives the line.
    /// @param asker      is heard as long as the line is there.
    WaitingLine(const Dispenser& dispenser, const CommonOptions& options, Asker& asker);
    WaitingLine(const WaitingLine&) = delete;
    WaitingLine& operator=(const WaitingLine&) = delete;
    ~WaitingLine() { asker_.Listen(nullptr); }

    void Wipe() { line_.Wipe(); }

private:
    StatusLine line_;
    Asker& asker_;
};

/// "waiting for mix 4 to answer 60 EUR, 1.2 of 2 s"
std::string WaitingText(const Dispenser& dispenser,
                        const MixRequest& request,
                        Milliseconds waited,
                        Milliseconds deadline);

}  // namespace qxmix
