#pragma once

#include "CMixAlgorithm.h"
#include "MixAlgorithmProxy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

/// A host that keeps every object it is told of and destroys at its end what the module leaves, so
/// that leak checkers can stay switched on.
class TestHost final : public MixAlgorithmHost {
public:
    TestHost() = default;
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;
    ~TestHost() {
        if (std::find(left_.begin(), left_.end(), instance_) != left_.end()) {
            Delete();
        }
        for (IMixAlgorithm* object : left_) {
            object->Destroy(1);
        }
    }

    void Reserved() noexcept override { ADD_FAILURE() << "the host's own slot was called"; }

    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override {
        created.push_back(object);
        left_.push_back(object);
        if (onCreated) {
            onCreated(object);
        }
        return -1;  // ignored by the module
    }

    IMixAlgorithm* Create() {
        instance_ = CreateMixAlgorithm(this);
        return instance_;
    }

    void Delete() {
        DeleteMixAlgorithm();
        Forget(instance_);
        instance_ = nullptr;
    }

    /// Leaves an object to the test.
    void Forget(const IMixAlgorithm* object) {
        left_.erase(std::remove(left_.begin(), left_.end(), object), left_.end());
    }

    std::vector<IMixAlgorithm*> created;                  ///< in the order of the callbacks
    std::function<void(const IMixAlgorithm*)> onCreated;  ///< looks at each at that moment

private:
    std::vector<IMixAlgorithm*> left_;

    /// What the module's own instance pointer stands at: one for all hosts, as in the module.
    static inline IMixAlgorithm* instance_ = nullptr;
};

/// A pair of objects, ready to use.
class Module {
public:
    Module() : outer_(host_.Create()) {}

    IMixAlgorithm& Outer() { return *outer_; }
    MixAlgorithmProxy& Proxy() { return *static_cast<MixAlgorithmProxy*>(outer_); }
    CMixAlgorithm& Inner() { return *static_cast<CMixAlgorithm*>(host_.created[1]); }

private:
    TestHost host_;
    IMixAlgorithm* outer_;
};
