#include "logLines.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "ScratchDirectory.h"

namespace mv_test {

std::vector<std::string> logMessages(const std::string& log_text) {
  static const std::regex prefix(R"(^\d\d:\d\d:\d\d +\d+ )");
  std::vector<std::string> messages;
  std::istringstream lines(log_text);
  std::string line;
  while (std::getline(lines, line)) {
    std::smatch found;
    if (std::regex_search(line, found, prefix)) {
      messages.push_back(found.suffix());
    } else {
      messages.push_back("NO PREFIX: " + line);
    }
  }
  return messages;
}

std::vector<std::string> logFileMessages(const std::string& path) {
  return logMessages(readFile(path));
}

bool hasMessage(const std::string& log_text, const std::string& message) {
  const std::vector<std::string> messages = logMessages(log_text);
  return std::find(messages.begin(), messages.end(), message) != messages.end();
}

bool logged(const std::string& message) { return hasMessage(readFile("morvane.log"), message); }

std::string stderrOf(const std::function<void()>& action) {
  testing::internal::CaptureStderr();
  action();
  return testing::internal::GetCapturedStderr();
}

testing::AssertionResult inOrder(const std::vector<std::string>& messages,
                                 const std::vector<std::string>& lines) {
  auto position = messages.begin();
  for (const std::string& line : lines) {
    position = std::find(position, messages.end(), line);
    if (position == messages.end()) {
      return testing::AssertionFailure()
             << "missing or out of order: '" << line << "' in " << testing::PrintToString(messages);
    }
  }
  return testing::AssertionSuccess();
}

}  // namespace mv_test
