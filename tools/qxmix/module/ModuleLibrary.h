#pragma once

#include "MixAlgorithm.h"
#include "ObjectLayout.h"

#include <memory>
#include <string>

namespace qxmix {

/// The service provider's side of the interface: takes the two objects while they are created.
class ModuleHost final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override;

    /// The object that calculates, or null.
    IMixAlgorithm* Inner() const { return inner_; }

private:
    IMixAlgorithm* outer_ = nullptr;
    IMixAlgorithm* inner_ = nullptr;
};

/// An opened module library with its pair of objects. It stays open until the process ends.
class ModuleLibrary {
public:
    /// @param library  file name, or a bare name for the system's own search.
    /// @throw WorkError "NAME: why it cannot be used".
    explicit ModuleLibrary(const std::string& library);

    /// Whether the tool knows without a call which calls it never answers.
    bool IsOwn() const { return isOwn_; }

    /// The object that a service provider calls.
    IMixAlgorithm& Algorithm() const { return *algorithm_; }

    /// The configuration that the object took from the registry; null without an inner object.
    const MixAlgorithmFields* Configuration() const;

private:
    ModuleHost host_;
    IMixAlgorithm* algorithm_ = nullptr;
    bool isOwn_;
};

}  // namespace qxmix
