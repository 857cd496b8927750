// Reading the engine's log back in tests.
#pragma once

#include <string>
#include <vector>

namespace mv_test {

// The messages of a log text, each line stripped of its time and step prefix.
// A line that lacks the prefix is kept whole, prefixed by "NO PREFIX: ".
std::vector<std::string> logMessages(const std::string& log_text);

// Whether the log text has a line whose message is exactly `message`.
bool hasMessage(const std::string& log_text, const std::string& message);

}  // namespace mv_test
