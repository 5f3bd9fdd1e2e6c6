#pragma once

class kuVariantSet;

/** Prints what the user of a captured set should know and would not see in it. */
void warnOfCapture(const kuVariantSet& captured);
