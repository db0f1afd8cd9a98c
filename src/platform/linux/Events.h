#pragma once

/// Makes the handles of all events unknown.
void ForgetEvents();
