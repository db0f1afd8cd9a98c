#pragma once

/// The module's one version, for the code and for the version resource of the Windows builds.
#define QXMIX_VERSION_NUMBERS 6, 0, 2, 0
#define QXMIX_VERSION_TEXT "V 06.00.02"
#define QXMIX_INTERNAL_NAME "QXMix"
