#include "AskerPool.h"

#include "errors/Errors.h"
#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"

#include <algorithm>
#include <iterator>

namespace qxmix {

namespace {

/// Each asker is a process.
constexpr std::size_t kMostAskers = 8;

}  // namespace

AskerPool::AskerPool(std::string library, std::string registry, bool replaces, TraceSink trace)
    : library_(std::move(library)), registry_(std::move(registry)), replaces_(replaces),
      trace_(std::move(trace)) {
}

Reply AskerPool::Ask(const Dispenser& dispenser, const MixRequest& request, Milliseconds deadline) {
    Reply reply = For(dispenser.registry).Ask(request, deadline);
    if (!reply.calculation.written.empty()) {
        lastCode_ = reply.calculation.written;
    }
    return reply;
}

std::string AskerPool::RegistryLeft() {
    Asker& asker = For({});
    asker.KeepRegistry();
    return WithErrorCode(asker.Registry(), lastCode_);
}

Asker& AskerPool::For(const std::vector<StoredValue>& values) {
    const std::string registry = values.empty() || replaces_ ? registry_ : RegistryOf(values);
    const auto known = askers_.find(registry);
    if (known != askers_.end()) {
        return known->second;
    }
    if (askers_.size() == kMostAskers) {
        // The one that everything else falls back to stays.
        for (auto asker = askers_.begin(); asker != askers_.end();) {
            asker = asker->first == registry_ ? std::next(asker) : askers_.erase(asker);
        }
    }
    return askers_.try_emplace(registry, library_, registry, trace_).first->second;
}

std::vector<AskerPool> OpenLibraries(const CommonOptions& options) {
    if (options.libraries.size() > 2) {
        throw InputError("--library: given " + std::to_string(options.libraries.size()) +
                         " times; expected once or twice");
    }
    std::vector<std::string> named = options.libraries;
    named.resize(std::max<std::size_t>(named.size(), 1));
    const std::string registry = options.RegistryOr({});
    std::vector<AskerPool> libraries;
    for (const std::string& library : named) {
        libraries.emplace_back(FindLibrary(library), registry, !options.registry.empty(),
                               options.Trace());
        libraries.back().Open();
    }
    return libraries;
}

std::vector<std::string> NamesOf(const std::vector<AskerPool>& libraries) {
    std::vector<std::string> names;
    for (const AskerPool& library : libraries) {
        names.push_back(FileNameOf(library.Library()));
    }
    if (names.front() == names.back() && names.size() > 1) {
        names = {libraries.front().Library(), libraries.back().Library()};
    }
    return names;
}

}  // namespace qxmix
