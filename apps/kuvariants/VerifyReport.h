#pragma once

#include <string>
#include <vector>

#include "document/kuVariantFinding.h"

using VerifyFindings = std::vector<kuVariantFinding>;

/** What a check of the manager against itself and the scene finds, in the report's order. */
VerifyFindings findAll();

/** How many of the findings are errors. */
std::size_t countErrors(const VerifyFindings& findings);

std::string verifyJson(const VerifyFindings& findings);

/** For people: the errors by kind with what to do about them, and a last line with the counts. */
std::string verifySummary(const VerifyFindings& findings);
