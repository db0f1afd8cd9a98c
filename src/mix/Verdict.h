#pragma once

/// What a search wants after a combination that it was shown.
enum class Verdict { GoOn, EndSearch };
