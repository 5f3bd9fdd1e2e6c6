#pragma once

#include <cstdint>

#include "model/kuVariantsExport.h"

/**
 * Grows whenever a set is given material snapshots: whoever keeps an index of them compares it.
 * What a set loses does not count.
 */
KUVARIANTS_EXPORT std::uint64_t kuSnapshotRevision();
