#pragma once

#include "Worker.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace qxmix {

/// What a question may take where nobody says otherwise, and what one beside the answer may take.
constexpr Milliseconds kUsualDeadline{2000};
constexpr Milliseconds kSideDeadline{100};

/// Is told, about ten times a second, which answer is waited for and how long so far.
using WaitListener =
    std::function<void(const MixRequest& request, Milliseconds waited, Milliseconds deadline)>;

/// Asks one library in one registry, and keeps asking: a worker that missed its deadline or
/// crashed is replaced by a new one when the next question comes.
class Asker {
public:
    /// @param library   file of the library, see FindLibrary.
    /// @param registry  what the module reads: the text of a registry file.
    /// @param trace     hears the module's lines; empty: nobody does.
    Asker(std::string library, std::string registry, TraceSink trace = nullptr);
    explicit Asker(const OpenOrder& order, TraceSink trace = nullptr);

    /// Opens the library if it is not open; every question does so by itself.
    ///
    /// @throw WorkError when the library cannot be used.
    const Opening& Open();

    /// Version that the library's file or its trace lines name; empty when none does. Known once it
    /// is open.
    const std::string& ModuleVersion() const { return version_; }

    const std::string& Library() const { return library_; }

    /// @param listener  hears from now on what Ask waits for; empty: nobody does.
    void Listen(WaitListener listener) { listener_ = std::move(listener); }

    enum class Tracing { Heard, Silent };

    /// One calculation.
    Reply Ask(const MixRequest& request, Milliseconds deadline, Tracing tracing = Tracing::Heard);

    Ending ListTypes(Catalogue& catalogue, Milliseconds deadline);

    /// Keeps what the module has left in the registry so far; a worker that is gone has left
    /// nothing. A new worker starts with what was kept last.
    void KeepRegistry();

    /// What was kept last, or else the registry given at the start.
    const std::string& Registry() const { return registry_; }

private:
    Worker& OpenWorker();
    void HearOpening(const std::string& line);

    std::string library_;
    std::string registry_;
    std::shared_ptr<OpenedModule> here_;  // answers instead of a worker; null: a worker does
    TraceSink trace_;
    WaitListener listener_;
    std::string version_;
    bool wasOpened_ = false;
    std::unique_ptr<Worker> worker_;
};

}  // namespace qxmix
