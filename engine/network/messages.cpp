#include "messages.h"

#include <algorithm>
#include <iterator>

namespace mv {

int messageLabelCode(const std::string& label) {
  const auto found = std::find(std::begin(MESSAGE_LABELS), std::end(MESSAGE_LABELS), label);
  return found == std::end(MESSAGE_LABELS)
             ? -1
             : static_cast<int>(std::distance(std::begin(MESSAGE_LABELS), found));
}

std::string frameMessage(const std::string& label, const std::string& payload) {
  const int code = messageLabelCode(label);
  const std::size_t body = payload.size() + 1;
  if (code == -1 || body > MAX_MESSAGE_BODY) {
    return "";
  }
  std::string frame;
  frame.reserve(MESSAGE_HEADER_BYTES + body);
  for (std::size_t i = 0; i < MESSAGE_HEADER_BYTES; i++) {
    frame.push_back(static_cast<char>((body >> (8 * i)) & 0xff));
  }
  frame.push_back(static_cast<char>(code));
  frame += payload;
  return frame;
}

}  // namespace mv
