// Reading the engine's log back in tests.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace mv_test {

// The messages of a log text, each line stripped of its time and step prefix.
// A line that lacks the prefix is kept whole, prefixed by "NO PREFIX: ".
std::vector<std::string> logMessages(const std::string& log_text);

// The messages of the log file in the working directory.
std::vector<std::string> logFileMessages(const std::string& path = "morvane.log");

// Whether the log text has a line whose message is exactly `message`.
bool hasMessage(const std::string& log_text, const std::string& message);

// Whether the log file in the working directory has that message.
bool logged(const std::string& message);

// What `action` writes to standard error, where the log goes while no file is open.
std::string stderrOf(const std::function<void()>& action);

// Success when all of `lines` stand in `messages` in this order, each looked
// for after the one before it; otherwise names the first missing line.
testing::AssertionResult inOrder(const std::vector<std::string>& messages,
                                 const std::vector<std::string>& lines);

}  // namespace mv_test
