#pragma once

#include <vector>

#include "CaptureDifference.h"

/**
 * Prints what the user of a captured set should know and would not see in it.
 * @param changes the switch materials that the capture changed.
 */
void warnOfCapture(const kuVariantSet& captured, const std::vector<SwitchChange>& changes);
