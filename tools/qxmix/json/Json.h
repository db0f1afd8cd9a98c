#pragma once

#include "JsonName.h"

#include <nlohmann/json.hpp>
