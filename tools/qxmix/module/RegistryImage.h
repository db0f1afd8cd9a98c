#pragma once

#include "dispenser/Dispenser.h"

#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Registries as the text of a registry file. The stand-in of the terminal's system reads and
/// writes that text; each function below that takes or gives a text uses this process's stand-in
/// and leaves some content in it.

/// Error code of the module, stored beside the values that it reads.
constexpr const char* kErrorCodeName = "CDM";

/// A registry that holds the dispenser's values beside the start content.
std::string RegistryOf(const std::vector<StoredValue>& values);

/// Reads a registry file.
///
/// @throw InputError FILE:LINE when a line is wrong.
std::string ReadRegistryFile(const std::string& file);

/// What a registry stores under one of the module's three value names.
std::optional<StoredValue> FindStored(const std::string& registry, const std::string& name);

/// The key in which the module reads, or leaves, a value of one of those names.
const char* KeyOf(const std::string& name);

/// All keys that store a value of one of those names, but for the one that is read.
std::vector<std::string> KeysWith(const std::string& registry, const std::string& name);

/// The values stored there that the module reads.
std::vector<StoredValue> TakenValues(const std::string& registry);

/// The registry with a value of the module in place of the one before.
std::string WithStored(const std::string& registry, const StoredValue& value);

/// The registry without a value of the module.
std::string WithoutStored(const std::string& registry, const std::string& name);

/// The registry with an error code in place of the one before.
///
/// @param code  empty: the registry as it is.
std::string WithErrorCode(const std::string& registry, const std::string& code);

/// Whether the key is there in which the module leaves error codes.
bool HasErrorCodeKey(const std::string& registry);

// -- this process's stand-in itself, for a worker

/// Replaces the content; an empty text stands for the start content.
///
/// @throw WorkError
void LoadRegistry(const std::string& registry);

std::string SaveRegistry();

/// The bytes stored as error code; empty without any.
std::string ErrorCodeBytes();

/// Removes the error code.
///
/// @return what was stored, for RestoreErrorCode.
std::optional<StoredValue> TakeErrorCode();

void RestoreErrorCode(const std::optional<StoredValue>& taken);

}  // namespace qxmix
