#include "messages.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

#include "ByteWriter.h"

namespace mv {

static_assert(MESSAGE_HEADER_BYTES == 4, "a message's body length goes as four bytes");

int messageLabelCode(const std::string& label, const std::vector<std::string>& labels) {
  const auto found = std::find(labels.begin(), labels.end(), label);
  return found == labels.end() ? -1 : static_cast<int>(found - labels.begin());
}

std::string frameMessage(const std::string& label, const std::string& payload,
                         const std::vector<std::string>& labels) {
  const int code = messageLabelCode(label, labels);
  const std::size_t body = payload.size() + 1;
  if (code == -1 || body > MAX_MESSAGE_BODY) {
    return "";
  }
  std::ostringstream frame;
  ByteWriter out(frame);
  out.writeUnsigned(static_cast<std::uint32_t>(body));
  out.writeByte(static_cast<unsigned char>(code));
  frame << payload;
  return frame.str();
}

}  // namespace mv
