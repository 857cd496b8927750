#include "logLines.h"

#include <algorithm>
#include <regex>
#include <sstream>

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

bool hasMessage(const std::string& log_text, const std::string& message) {
  const std::vector<std::string> messages = logMessages(log_text);
  return std::find(messages.begin(), messages.end(), message) != messages.end();
}

}  // namespace mv_test
