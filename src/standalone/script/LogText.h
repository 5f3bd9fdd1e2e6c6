#pragma once

#include <string>
#include <string_view>

namespace kuStandalone {

/** How much of a reason, and of a script, a log line shows. */
constexpr std::size_t kLogReasonBytes = 300;
constexpr std::size_t kLogStartBytes = 80;

/**
 * @p text as it may stand in a line of the log: control characters and bytes that are not UTF-8
 * become blanks or "?", so that a document cannot forge log lines, and after @p maxBytes it ends
 * in "...".
 */
std::string oneLine(std::string_view text, std::size_t maxBytes);

/** "script", with the name of the set that is being selected if there is one. */
std::string presentScript();

/** Logs that the present script failed. */
void logScriptFailure(const std::string& reason);

}  // namespace kuStandalone
